#!/bin/sh
# Builds the libFuzzer targets (fuzz/*_fuzz.cpp) with clang into build-fuzz/
# and runs each for a bounded time, from its seed corpus in fuzz/corpus/.
# Usage: scripts/fuzz.sh [seconds per target, default 10]
# Exits non-zero when a target crashes; the input that did it is kept as
# build-fuzz/artifacts/<target>-crash-*.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-10}
dir=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$dir" -DXWK_BUILD_FUZZ=ON -DXWK_BUILD_TESTS=OFF \
    -DXWK_BUILD_BENCH=OFF -DXWK_BUILD_DEMO=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo >&2
cmake --build "$dir" --target xwk_fuzz -j2 >&2
mkdir -p "$dir/artifacts"
failed=""
for src in fuzz/*_fuzz.cpp; do
    name=$(basename "$src" .cpp)
    # New inputs go to the work corpus; the seeds in the tree stay as they are.
    work="$dir/corpus/$name"
    mkdir -p "$work" "fuzz/corpus/$name"
    echo "== $name, ${seconds}s" >&2
    if ! "$dir/fuzz/$name" -max_total_time="$seconds" -timeout=10 -max_len=8192 \
            -print_final_stats=1 -artifact_prefix="$dir/artifacts/$name-" \
            "$work" "fuzz/corpus/$name" >&2; then
        failed="$failed $name"
    fi
done
if [ -n "$failed" ]; then
    echo "fuzz: crashes in:$failed" >&2
    exit 1
fi
