#!/usr/bin/env bash
# Installs, with apt, whatever the build, the tests, the benchmarks and the
# fuzz targets need and the machine does not have yet. Needs root (or sudo).
set -euo pipefail

packages=(
    build-essential cmake ninja-build pkgconf
    libicu-dev libgtest-dev libbenchmark-dev
    clang-14 libclang-rt-14-dev
    tzdata  # the host-zone tests run with TZ set to real zones
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
