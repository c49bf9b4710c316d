#!/bin/sh
# Configures and builds into build/ (or build-sanitize/ with --sanitize).
set -eu
cd "$(dirname "$0")/.."
dir=build
flags=""
if [ "${1:-}" = "--sanitize" ]; then
    dir=build-sanitize
    flags="-DXWK_SANITIZE=ON -DXWK_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug"
fi
sh scripts/deps.sh
cmake -S . -B "$dir" $flags >&2
cmake --build "$dir" -j"$(nproc)" >&2
echo "$dir"
