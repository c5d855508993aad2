#!/usr/bin/env bash
# Installs what is missing, builds the library in release mode and runs the demo.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DKAI18N_BUILD_TESTS=OFF
cmake --build build/release --target kai18n_demo
build/release/examples/kai18n_demo
