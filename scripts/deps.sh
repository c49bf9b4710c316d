#!/bin/sh
# Installs the build and test dependencies with apt-get when any is missing.
set -eu
packages="build-essential cmake pkg-config libmotif-dev libxt-dev libxpm-dev libxtst-dev
libx11-dev libpng-dev zlib1g-dev libglib2.0-dev xvfb xauth googletest libgtest-dev libgmock-dev
libbenchmark-dev imagemagick clang libclang-rt-14-dev mwm openbox libgtk-3-dev"
missing=""
for p in $packages; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0
echo "Installing:$missing" >&2
SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO=sudo
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends $missing >/dev/null
