#!/usr/bin/env bash
# Configures a build with a platform library of its own and looks whether what does not need the simulated phone is
# there: the engine, the console, the port check and their tests.
# usage: port_build.sh SOURCE_FOLDER PLATFORM_LIBRARY COMPILER QT_MAJOR
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake -S "$1" -B "$scratch" -G Ninja -DKVQ_PLATFORM_LIBRARY="$2" -DCMAKE_CXX_COMPILER="$3" -DKVQ_QT_MAJOR="$4" \
    >/dev/null
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
