#!/usr/bin/env bash
# Installs a build into an empty place and builds an application against it outside the tree, once with CMake
# and once with pkg-config, and runs both. Before that the QML module is loaded from there, with nothing to help it.
# usage: installed_package.sh BUILD_FOLDER EXAMPLE_FOLDER COMPILER [QML_TEST_RUNNER QML_TEST]
set -euo pipefail
build=$1 example=$2 compiler=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake --install "$build" --prefix "$scratch/usr" >/dev/null
library_folder=$(dirname "$(find "$scratch/usr" -name libkvqcallsetupengine.so.1)")
export XDG_DATA_HOME=$scratch/data

if (($# == 5)); then
    KVQ_LOG=off QT_QPA_PLATFORM=offscreen "$4" -import "$library_folder/qt6/qml" -input "$5" || {
        echo "the installed QML module does not work" >&2
        exit 1
    }
    DESTDIR=$scratch/root cmake --install "$build" --prefix /usr --component qml6-module-kvq-callsetup >/dev/null
    while read -r library; do
        ! readelf -d "$library" | grep -E 'RPATH|RUNPATH' || {
            echo "$library: below /usr it looks for libraries elsewhere" >&2
            exit 1
        }
    done < <(find "$scratch/root" -name '*.so*' -type f)
fi

export LD_LIBRARY_PATH=$library_folder

run() {
    local output
    output=$("$1" 2>&1)
    [[ $output == *"forwarded on no reply: false"* ]] || {
        echo "$1 does not do what it should: $output" >&2
        exit 1
    }
}

cp -r "$example" "$scratch/source"
cmake -S "$scratch/source" -B "$scratch/build" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_PREFIX_PATH="$scratch/usr" >/dev/null
cmake --build "$scratch/build" >/dev/null
run "$scratch/build/example"
run "$scratch/build/worker"

flags=$(PKG_CONFIG_PATH=$library_folder/pkgconfig pkg-config --cflags --libs kvqcallsetupengine)
# shellcheck disable=SC2086
"$compiler" -std=c++20 -fPIC "$scratch/source/main.cpp" $flags -o "$scratch/example"
run "$scratch/example"
echo "built and run with CMake and with pkg-config"
