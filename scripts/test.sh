#!/bin/sh
# Builds and runs the whole test suite; --sanitize runs it under
# AddressSanitizer and UndefinedBehaviorSanitizer.  Exits non-zero on failure.
set -eu
cd "$(dirname "$0")/.."
dir=$(sh scripts/build.sh "$@")
cd "$dir"
ctest --output-on-failure -j"$(nproc)"
