#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a while.
#   scripts/fuzz.sh [seconds per target, default 60]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug \
      -DCMAKE_CXX_COMPILER=clang++-14 -DKAI18N_BUILD_FUZZ=ON \
      -DKAI18N_BUILD_TESTS=OFF -DKAI18N_BUILD_EXAMPLES=OFF
cmake --build build/fuzz

for target in build/fuzz/tests/fuzz/fuzz_*; do
    [ -x "$target" ] || continue
    name=$(basename "$target")
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    echo "== $name: ${seconds}s"
    dirs=("$corpus")
    [ -d "tests/fuzz/seeds/$name" ] && dirs+=("tests/fuzz/seeds/$name")
    # A crash makes libFuzzer exit non-zero, which fails this script.
    "$target" -max_total_time="$seconds" -print_final_stats=1 "${dirs[@]}" > "$corpus.log" 2>&1 ||
        { tail -n 60 "$corpus.log"; exit 1; }
    grep -E '^stat::number_of_executed_units|^Done' "$corpus.log" || true
done
