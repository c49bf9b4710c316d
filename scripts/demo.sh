#!/bin/sh
# Builds and runs the demo.  Without DISPLAY it runs on its own Xvfb, shows
# each page of its folder in turn and writes one screenshot per page
# (build/xwk-demo-<page>.png), printing their paths.
set -eu
cd "$(dirname "$0")/.."
dir=$(sh scripts/build.sh)
if [ -z "${DISPLAY:-}" ] && [ "$#" -eq 0 ]; then
    # Absolute: the file selection page moves the working directory.
    set -- --screenshot "$(pwd)/$dir/xwk-demo.png"
fi
exec "$dir/demo/xwk-demo" "$@"
