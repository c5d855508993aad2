#!/usr/bin/env bash
# Builds the library and its tests and runs the whole test suite.
#   scripts/test.sh             the ordinary build, in build/test
#   scripts/test.sh --sanitize  under AddressSanitizer + UndefinedBehaviorSanitizer, in build/asan
#   scripts/test.sh --clang     built with clang++-14, in build/clang
#   scripts/test.sh --tsan      the tests of locales shared across threads under
#                               ThreadSanitizer, in build/tsan
set -euo pipefail
cd "$(dirname "$0")/.."

dir=build/test
flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo)
if [ "${1:-}" = "--sanitize" ]; then
    dir=build/asan
    flags=(-DCMAKE_BUILD_TYPE=Debug -DKAI18N_SANITIZE=ON)
    export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
    export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
elif [ "${1:-}" = "--clang" ]; then
    dir=build/clang
    flags=(-DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++-14)
elif [ "${1:-}" = "--tsan" ]; then
    dir=build/tsan
    flags=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAI18N_TSAN=ON)
    export TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1
fi

cmake -S . -B "$dir" -G Ninja "${flags[@]}" -DKAI18N_BUILD_TESTS=ON -DKAI18N_BUILD_EXAMPLES=ON
cmake --build "$dir"
ctest --test-dir "$dir" --output-on-failure -j "$(nproc)"
