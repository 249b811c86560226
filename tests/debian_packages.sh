#!/usr/bin/env bash
# Packs a build and looks into the packages: what a user of each one gets, and no more.
# usage: debian_packages.sh BUILD_FOLDER
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cpack --config "$1/CPackConfig.cmake" -B "$scratch" >/dev/null

# expect PACKAGE TEXT... : the package lists a file that ends so
expect() {
    local listing file
    listing=$(dpkg-deb -c "$scratch/$1"_*.deb)
    for file in "${@:2}"; do
        grep -qE "$file( ->.*)?$" <<<"$listing" || {
            echo "$1 lacks $file" >&2
            exit 1
        }
    done
}

expect libkvqcallsetupengine1 /libkvqcallsetupengine.so.1
expect libkvqcallsetupengine-dev /PHONE_ENG_Setup.h /TAPI_VOICE.h /libkvqcallsetupengine.so \
    /kvqcallsetupengine.pc /KvqCallSetupEngineConfig.cmake
expect kvq-simulator /libkvqplatform.so.1 /bin/kvq-console /man1/kvq-console.1
[[ $(find "$scratch" -maxdepth 1 -name '*.deb' | wc -l) == 3 ]]
echo "three packages"
