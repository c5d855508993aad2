#!/usr/bin/env bash
# Installs what is missing, builds the library in release mode, runs the demo,
# and formats a few numbers and dates in several locales with the command-line
# tool.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DKAI18N_BUILD_TESTS=OFF
cmake --build build/release --target kai18n_demo kai18n_cli
build/release/examples/kai18n_demo

kai18n=build/release/cli/kai18n
echo
echo "kai18n pattern '[Red]-#,##0.00;(#,##0.00)'"
"$kai18n" pattern '[Red]-#,##0.00;(#,##0.00)'
for locale in en_US de_DE fr_FR hi_IN ar_EG; do
    echo
    echo "kai18n format-number --locale $locale '#,##0.00;[Red]-#,##0.00' 1234567.891 -42.5 0.005"
    "$kai18n" format-number --locale "$locale" '#,##0.00;[Red]-#,##0.00' 1234567.891 -42.5 0.005
done
for locale in en_US de_DE fr_FR ja_JP.UTF-8 ar_EG; do
    echo
    echo "kai18n date --locale $locale '%A %#d %B %Y | %x %X' 2004-03-05T14:07:30 1582-10-04 1582-10-15"
    "$kai18n" date --locale "$locale" '%A %#d %B %Y | %x %X' 2004-03-05T14:07:30 1582-10-04 1582-10-15
done
for locale in en_US de_DE ja_JP ar_EG hi_IN; do
    echo
    echo "kai18n format-date --locale $locale --zone Europe/Paris 'dddd d mmmm yyyy, HH:mm' 2004-07-14T10:13:20Z"
    "$kai18n" format-date --locale "$locale" --zone Europe/Paris 'dddd d mmmm yyyy, HH:mm' 2004-07-14T10:13:20Z
done
echo
echo "kai18n format-date --locale ja_JP --dialect serial --zone Asia/Tokyo 'T[ip]T[jy]L[年]T[M]L[月]T[d]L[日]' 1989-01-07T03:00:00Z 1989-01-08T03:00:00Z"
"$kai18n" format-date --locale ja_JP --dialect serial --zone Asia/Tokyo 'T[ip]T[jy]L[年]T[M]L[月]T[d]L[日]' 1989-01-07T03:00:00Z 1989-01-08T03:00:00Z
echo
echo "kai18n excel '#,##0.00;[Red]-#,##0.00'"
"$kai18n" excel '#,##0.00;[Red]-#,##0.00'
