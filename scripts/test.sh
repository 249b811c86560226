#!/usr/bin/env bash
# Builds the engine and runs its tests: with the sanitizers, then optimised. Installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}"

for preset in asan release; do
    echo "== Building ($preset)"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" -- --quiet
    echo "== Testing ($preset)"
    ctest --preset "$preset" --progress
done
