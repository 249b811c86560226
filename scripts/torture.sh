#!/usr/bin/env bash
# Tortures the settings store: killed, stopped and crowding processes, full and failing disks, damaged files.
# Prints tables of tries, faults and waits, and fails on any fault. About three minutes, as root for the loop-mounted
# disks, on a machine that does nothing else.
# usage: scripts/torture.sh [EFFORT]     1 when not given; 0.1 for a quick look, 10 for a night
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${qml_packages[@]}" e2fsprogs
cmake --preset release >/dev/null
cmake --build build/release --target torture -- --quiet >&2
exec build/release/tests/torture/torture "${1-1}" build/release
