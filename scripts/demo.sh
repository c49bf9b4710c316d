#!/bin/sh
# Builds and runs the demo.  Without DISPLAY it runs on its own Xvfb and
# writes a screenshot, whose path it prints.
set -eu
cd "$(dirname "$0")/.."
dir=$(sh scripts/build.sh)
exec "$dir/demo/xwk-demo" "$@"
