#!/usr/bin/env bash
# Prints the size of the test code against the size of the code it tests, as
# lines of C++ under version control: tests/ (fuzz targets included) against
# src/, include/, cli/ and data/, generated tables not counted. The aim is
# roughly a quarter to a third.
set -euo pipefail
cd "$(dirname "$0")/.."

count() { git ls-files "$@" | grep -E '\.(cpp|cc|h|hpp|inc)$' | grep -viE 'generated|_tables?\.' |
          xargs -r cat | wc -l; }
tests=$(git ls-files tests | grep -E '\.(cpp|cc|h|hpp)$' | xargs -r cat | wc -l)
code=$(count src include cli data)
echo "test code: $tests lines against $code lines of code, $((100 * tests / code))%"
