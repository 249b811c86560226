#!/usr/bin/env bash
# Lets a monkey loose on the settings application, under the sanitizers and without a display.
# usage: scripts/monkey.sh [SECONDS] [SEED]     (60 seconds and a fresh seed unless told)
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${qml_packages[@]}"
cmake --preset asan >/dev/null
cmake --build --preset asan --target settings_monkey kvqcallsetupqmlplugin -- --quiet
LC_ALL=C.UTF-8 KVQ_LOG=off LSAN_OPTIONS=suppressions=tests/settings/leaks.supp:print_suppressions=0 \
    exec build/asan/tests/settings/settings_monkey --seconds "${1-60}" --seed "${2-$RANDOM}"
