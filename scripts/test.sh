#!/usr/bin/env bash
# Builds the engine and runs its tests: with the sanitizers, with Qt 5.15, against a hostile platform, under
# valgrind, and last as it ships. Installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${qml_packages[@]}" "${deb_packages[@]}"

echo "== Format"
git ls-files '*.cpp' '*.h' | xargs clang-format-14 --dry-run --Werror

build_and_test() {
    echo "== Building ($1)"
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" -- --quiet
    echo "== Testing ($1)"
    ctest --preset "$1" --progress
}

build_and_test asan
build_and_test qt5

echo "== A hostile platform"
scripts/fuzz.sh --short

echo "== Building (release)"
cmake --preset release >/dev/null
cmake --build --preset release -- --quiet
echo "== Under valgrind"
# Left out: what starts other programs, what counts allocations itself, and what searches the process's memory.
valgrind --quiet --error-exitcode=1 --child-silent-after-fork=yes --leak-check=full \
    --errors-for-leak-kinds=definite,indirect build/release/tests/engine_tests --gtest_brief=1 \
    --gtest_filter='-ConsoleTest.*:AllocationTest.*:PinsInMemoryTest.*:*ForTheNextProcess:*CollectedWrites*:*KilledWriter*:*TwoProcesses*:*TheDefaultIs*' |
    tail -n 2
# What is used on the way out must not have been destroyed, on either platform library.
for platform in simulator ofono; do
    LD_LIBRARY_PATH=build/release/$platform XDG_DATA_HOME=$PWD/build/release/exit-data \
        KVQ_PRODUCT=handset/product.conf valgrind --quiet --error-exitcode=1 build/release/tests/store/exit_program
done

build_and_test release
