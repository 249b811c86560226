#!/usr/bin/env bash
# Checks the format of every source and runs clang-tidy over the product. Changes nothing.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${qml_packages[@]}" clang-tidy-14
product=(utility handset simulator ofono modem console portcheck qml settings)
echo "== Format"
find include platform "${product[@]}" benchmarks tests docs -name '*.cpp' -o -name '*.h' |
    xargs clang-format-14 --dry-run --Werror
echo "== clang-tidy"
cmake --preset release >/dev/null
cmake --build --preset release -- --quiet
find "${product[@]}" -name '*.cpp' | xargs -P 2 -n 4 clang-tidy-14 -p build/release --quiet 2>/dev/null
echo "clean"
