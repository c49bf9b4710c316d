#!/bin/sh
# Installs the built library into a scratch prefix and builds a client
# against it with pkg-config only.
set -eu
build=$1
client=$2
cflags=${3:-}
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
cmake --install "$build" --prefix "$prefix" >/dev/null
export PKG_CONFIG_PATH="$prefix/lib/pkgconfig:$prefix/lib/x86_64-linux-gnu/pkgconfig"
pkg-config --exists xwk
cc $cflags -o "$prefix/client" "$client" $(pkg-config --cflags --libs xwk)
LD_LIBRARY_PATH="$prefix/lib:$prefix/lib/x86_64-linux-gnu" "$prefix/client"
