#!/usr/bin/env bash
# Lets a hostile platform answer the engine's calls.
# usage: scripts/fuzz.sh [SECONDS]     a long run; new inputs are kept in build/fuzz/corpus
#        scripts/fuzz.sh --short       the run of the tests: the kept seeds and a few thousand inputs more
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" clang-14 libclang-rt-14-dev
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target platform_fuzzer -- --quiet
mkdir -p build/fuzz/corpus
if [[ ${1-} == --short ]]; then
    scratch=$(mktemp -d)
    trap 'rm -rf "$scratch"' EXIT
    build/fuzz/tests/fuzz/platform_fuzzer -seed=1 -runs=4000 -max_len=20000 -timeout=60 -verbosity=0 \
        -print_final_stats=1 -artifact_prefix=build/fuzz/ "$scratch" tests/fuzz/seeds 2>&1 |
        grep -vE 'NEW_FUNC|^"|recommended dictionary'
    exit "${PIPESTATUS[0]}"
fi
exec build/fuzz/tests/fuzz/platform_fuzzer -max_total_time="${1-600}" -max_len=20000 -timeout=60 \
    -artifact_prefix=build/fuzz/ build/fuzz/corpus tests/fuzz/seeds
