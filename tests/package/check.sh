#!/usr/bin/env bash
# Installs the library from the build tree <build> into a scratch prefix, then
# builds and runs a client with find_package(kai18n) and with pkg-config.
set -euo pipefail
build=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
work="$build/package-check"
rm -rf "$work"
cmake --install "$build" --prefix "$work/prefix" >/dev/null

cmake -S "$here" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/cmake" >/dev/null
LD_LIBRARY_PATH="$work/prefix/lib" "$work/cmake/consumer"

libdir=$(ls -d "$work"/prefix/lib* | head -n 1)
export PKG_CONFIG_PATH="$libdir/pkgconfig"
# shellcheck disable=SC2046
c++ -o "$work/consumer-pc" "$here/consumer.cpp" $(pkg-config --cflags --libs kai18n)
LD_LIBRARY_PATH="$libdir" "$work/consumer-pc"
echo "package check passed"
