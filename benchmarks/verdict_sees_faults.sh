#!/usr/bin/env bash
# The verdict of the benchmarks holds for the engine, and turns red for an engine with deliberate faults, there and
# nowhere else.
# usage: verdict_sees_faults.sh BENCHMARKS LIBRARY_WITH_FAULTS
set -euo pipefail
verdict=$("$1" --verdict) || { echo "the engine does not hold: $verdict" >&2; exit 1; }
if verdict=$(LD_PRELOAD=$2 "$1" --verdict); then
    echo "the faults are not seen: $verdict" >&2
    exit 1
fi
red=$(sed -n 's/  .*EXCEEDED$//p' <<<"$verdict")
expected="a call-control request
a 255-entry USIM list
allocations of a call-control request"
[[ $red == "$expected" ]] || { echo "other lines are red: $verdict" >&2; exit 1; }
echo "green without the faults, red with them"
