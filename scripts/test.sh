#!/usr/bin/env bash
# Builds the engine and runs its tests: with the sanitizers, optimised and under valgrind with Qt 5.15, and against a hostile
# platform; then looks at what ships. Installs what is missing. Every part is run, whatever became of the others; the summary
# at the end tells what failed.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${qml_packages[@]}" "${deb_packages[@]}"
[[ -z ${KVQ_TALLY-} ]] && is_whole=true || is_whole=false
source scripts/parts.sh

check_format() {
    git ls-files '*.cpp' '*.h' | xargs clang-format-14 --dry-run --Werror
}

build() {
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" -- --quiet
}

# Left out: what starts other programs, what counts allocations itself, and what searches the process's memory.
under_valgrind() {
    valgrind --quiet --error-exitcode=1 --child-silent-after-fork=yes --leak-check=full \
        --errors-for-leak-kinds=definite,indirect build/qt5/tests/engine_tests --gtest_brief=1 \
        --gtest_filter='-ConsoleTest.*:AllocationTest.*:PinsInMemoryTest.*:*ForTheNextProcess:*CollectedWrites*:*TheDefaultIs*' |
        tail -n 2
}

# What is used on the way out must not have been destroyed, on either platform library.
leaving_under_valgrind() {
    local platform
    for platform in simulator ofono; do
        LD_LIBRARY_PATH=build/qt5/$platform XDG_DATA_HOME=$PWD/build/qt5/exit-data \
            KVQ_PRODUCT=handset/product.conf valgrind --quiet --error-exitcode=1 build/qt5/tests/store/exit_program
    done
}

status=0
part "Format" check_format || status=1
{ part "Building (asan)" build asan && tests asan; } || status=1
if part "Building (qt5)" build qt5; then
    tests qt5 || status=1
    part "Under valgrind" under_valgrind || status=1
    part "Leaving under valgrind" leaving_under_valgrind || status=1
else
    status=1
fi
part "A hostile platform" scripts/fuzz.sh --short || status=1
{ part "Building (release)" build release && tests release; } || status=1
! $is_whole || summary || status=1
exit $status
