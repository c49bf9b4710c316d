#!/bin/sh
# Builds and runs the demo.  Without DISPLAY it runs on its own Xvfb and
# writes a screenshot, whose path it prints.
set -eu
cd "$(dirname "$0")/.."
dir=$(sh scripts/build.sh)
if [ -z "${DISPLAY:-}" ] && [ "$#" -eq 0 ]; then
    set -- --screenshot "$dir/xwk-demo.png"
fi
exec "$dir/demo/xwk-demo" "$@"
