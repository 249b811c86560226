#!/usr/bin/env bash
# Measures what the engine costs against the same work by hand, and its size. Fails when a limit is exceeded.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${qml_packages[@]}" valgrind binutils ofono dbus
cmake --preset bench >/dev/null
cmake --build --preset bench -- --quiet

build=build/bench
library=$build/utility/libkvqcallsetupengine.so.1
status=0
"$build/benchmarks/engine_benchmarks" || status=1
"$build/benchmarks/open_library" "$build/simulator/libkvqplatform.so.1" "$library" || status=1
"$build/benchmarks/toggle_to_confirmed" || status=1
for subject in settings bare; do
    printf '%-54s %s\n' "first frame and memory: $subject window" "$(KVQ_LOG=off QT_QPA_PLATFORM=offscreen \
        QT_QUICK_BACKEND=software "$build/benchmarks/first_frame" $subject 2>/dev/null)" || status=1
done
KVQ_LOG=off QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software "$build/benchmarks/event_loop_gap" 2>/dev/null || status=1
KVQ_LOG=off scripts/desk.sh run --online --modem "$build/modem/kvq-modem" -- "$build/benchmarks/ofono_benchmarks" \
    || status=1
scripts/asking.sh "$build" || status=1

stripped=$(mktemp)
trap 'rm -f "$stripped"' EXIT
strip -o "$stripped" "$library"
size=$(stat -c %s "$stripped")
limit=$((144 * 1024)) # as tests/shipped/hardening.sh has it
verdict=holds
((size <= limit)) || { verdict=EXCEEDED; status=1; }
printf '%-54s %10d B %5d B  %s\n' "the stripped library" "$size" "$limit" "$verdict"
strip -o "$stripped" "$build/ofono/libkvqplatform.so.1"
echo "the stripped platform over oFono: $(stat -c %s "$stripped") bytes"
exit $status
