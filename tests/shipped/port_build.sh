#!/usr/bin/env bash
# Configures a build with a platform library of its own and looks whether what does not need the simulated phone is
# there: the engine, the console, the port check and their tests.
# A library that the engine could not be loaded with is refused.
# usage: port_build.sh SOURCE_FOLDER PLATFORM_LIBRARY COMPILER QT_MAJOR
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

configure() {
    cmake -S "$1" -B "$scratch" -G Ninja -DKVQ_PLATFORM_LIBRARY="$2" -DCMAKE_CXX_COMPILER="$3" -DKVQ_QT_MAJOR="$4" 2>&1
}
refused() {
    local output
    output=$(configure "${@:2}") && output="it is taken"
    tr -s ' \n' ' ' <<<"$output" | grep -qF "$1" || {
        echo "expected that a library is refused, \"$1\", but: $output" >&2
        exit 1
    }
}
refused "there is no file /none.so" "$1" /none.so "${@:3}"
refused "is not libkvqplatform.so.1" "$1" "$(realpath "$(command -v cmake)")" "${@:3}"
refused "is built with Qt $4" "${@:1:3}" $((11 - $4))

configure "$@" >/dev/null
if grep "libkvqplatform1-" "$scratch/packages.txt"; then
    echo "it makes a package of a platform library" >&2
    exit 1
fi
targets=$(cmake --build "$scratch" --target help)
for target in kvqcallsetupengine kvq-console kvq-port-check program_tests; do
    grep -q "^$target: phony" <<<"$targets" || {
        echo "a build with a platform library of its own lacks $target" >&2
        exit 1
    }
done
if grep -q "^engine_tests: phony" <<<"$targets"; then
    echo "tests that need the simulated phone are built without it" >&2
    exit 1
fi
[[ $(ctest --test-dir "$scratch" -N) == *ExportedSymbols* ]]
echo "complete with $2"
