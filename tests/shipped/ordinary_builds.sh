#!/usr/bin/env bash
# Whoever builds from source chooses a compiler and a build type, or none: each compiles the engine and is optimised unless
# Debug was asked for. The engine alone is compiled, so a platform library is given to it.
#
# ordinary_builds.sh SOURCES QT_MAJOR PLATFORM_LIBRARY
set -euo pipefail

build=$(mktemp -d)
trap 'rm -rf "$build"' EXIT
for compiler in g++ clang++ clang++-14; do
    command -v $compiler >/dev/null || continue
    [[ $compiler != clang++-14 ]] || ! command -v clang++ >/dev/null || continue
    for type in "" Release Debug MinSizeRel; do
        folder=$build/$compiler-${type:-none}
        cmake -S "$1" -B "$folder" -G Ninja ${type:+-DCMAKE_BUILD_TYPE=$type} -DCMAKE_CXX_COMPILER=$compiler \
            -DKVQ_QT_MAJOR="$2" -DKVQ_PLATFORM_LIBRARY="$3" -DKVQ_BUILD_TESTS=OFF >"$folder.log" 2>&1 &&
            cmake --build "$folder" --target kvqcallsetupengine >>"$folder.log" 2>&1 || {
            echo "$compiler, build type '${type}':"
            tail -n 20 "$folder.log"
            exit 1
        }
        built=$(sed -n 's/^CMAKE_BUILD_TYPE:[^=]*=//p' "$folder/CMakeCache.txt")
        [[ $built == "${type:-RelWithDebInfo}" ]] || { echo "$compiler, build type '$type' became '$built'"; exit 1; }
        [[ $type == Debug ]] || grep -q -- '-O[23s]' "$folder/build.ninja" || { echo "$type is not optimised"; exit 1; }
    done
done
