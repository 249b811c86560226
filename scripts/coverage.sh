#!/usr/bin/env bash
# Measures the line coverage of the engine by the tests and names the lines that are not covered.
# Fails below 97 per cent.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
need_packages "${build_packages[@]}" "${test_packages[@]}" gcovr
cmake --preset coverage >/dev/null
cmake --build --preset coverage -- --quiet
find build/coverage -name '*.gcda' -delete
ctest --preset coverage --progress >/dev/null
gcovr --root . --filter utility/ --exclude-throw-branches --fail-under-line 97 build/coverage
