#!/bin/sh
# Builds the HTML API reference from the public headers into build/docs/
# (or the directory given) and fails when doxygen warns: an undocumented
# export, argument or result is an error.
set -eu
cd "$(dirname "$0")/.."
out=${1:-build/docs}
if ! command -v doxygen >/dev/null 2>&1; then
    SUDO=""
    [ "$(id -u)" -eq 0 ] || SUDO=sudo
    echo "Installing: doxygen" >&2
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends doxygen >/dev/null
fi
rm -rf "$out"
mkdir -p "$out"
XWK_DOCS_OUT=$(cd "$out" && pwd) doxygen docs/Doxyfile
if [ -s "$out/warnings.log" ]; then
    cat "$out/warnings.log" >&2
    echo "docs: $(wc -l < "$out/warnings.log") doxygen warnings" >&2
    exit 1
fi
echo "$out/index.html"
