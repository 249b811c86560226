#!/usr/bin/env bash
# Shows whether a test fails without a fault: runs the tests of asan and qt5 again and again on a machine that is made
# slow, and prints which test failed how often.
# usage: scripts/flakes.sh [RUNS]     (5 unless told)
#
# RUNS times with as many busy loops beside them as there are processors; once more at nice 19, with the loops at nice 15;
# once with the temporary folder in memory. Status 1 when any test failed.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

runs=${1-5}
[[ $runs =~ ^[1-9][0-9]*$ ]] || { echo "usage: scripts/flakes.sh [RUNS]" >&2; exit 2; }
need_packages "${build_packages[@]}" "${test_packages[@]}" "${qml_packages[@]}" "${deb_packages[@]}"

presets=(asan qt5)
for preset in "${presets[@]}"; do
    echo "== Building ($preset)"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" -- --quiet
done

work=$(mktemp -d)
loops=()
end() {
    ((${#loops[@]} == 0)) || kill "${loops[@]}" 2>/dev/null || true
    rm -rf "$work"
}
trap end EXIT
trap 'exit 130' INT TERM

# start_loops NICENESS
start_loops() {
    local processor
    for ((processor = 0; processor < $(nproc); ++processor)); do
        nice -n "$1" bash -c 'while :; do :; done' &
        loops+=($!)
    done
}

stop_loops() {
    kill "${loops[@]}"
    wait "${loops[@]}" 2>/dev/null || true
    loops=()
}

tried=0
# try HOW COMMAND...: the tests of each preset, started by a command
try() {
    local how=$1 preset log
    shift
    for preset in "${presets[@]}"; do
        log=$work/log
        echo "== $preset, $how"
        ((++tried))
        if "$@" ctest --preset "$preset" >"$log" 2>&1; then
            tail -n 3 "$log" | head -n 1
            continue
        fi
        sed -n "s/^\t *[0-9]* - \(.*\) (\(Failed\|Timeout\|SEGFAULT\|Subprocess.*\|.*Exception.*\)).*/$preset \1/p" "$log" |
            tee -a "$work/failed" | sed 's/^/failed: /'
        grep -q '% tests passed' "$log" || echo "$preset: the test runner ended early" | tee -a "$work/failed"
        cp "$log" "build/flakes-$tried.log"
    done
}

: >"$work/failed"
start_loops 0
for ((run = 1; run <= runs; ++run)); do
    try "run $run of $runs beside $(nproc) busy loops" env
done
stop_loops
start_loops 15
try "at nice 19" nice -n 19
stop_loops
if [[ -w /dev/shm ]]; then
    in_memory=$(mktemp -d /dev/shm/kvq-flakes.XXXXXX)
    try "with the temporary folder in memory" env TMPDIR="$in_memory"
    rm -rf "$in_memory"
else
    echo "left out: there is no /dev/shm for a temporary folder in memory"
fi

echo "== In $tried runs of the tests"
if [[ ! -s $work/failed ]]; then
    echo "no test failed"
    exit 0
fi
sort "$work/failed" | uniq -c | sort -rn
echo "what was printed is in build/flakes-*.log"
exit 1
