#!/bin/sh
# Rebuilds the generator and rewrites data/generated/ from the CLDR data of the
# installed ICU (libicu-dev). Run from anywhere inside the repository.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
cmake -S "$root/tools/gen_locale_data" -B "$root/build/gen_locale_data" -G Ninja -DCMAKE_BUILD_TYPE=Release
cmake --build "$root/build/gen_locale_data"
"$root/build/gen_locale_data/gen_locale_data" "$root/data/generated"
