#!/usr/bin/env bash
# Makes the Debian packages in build/deb, with the flags of Debian's packages or of a build folder that is there already.
# Of a cross build these are the packages of its architecture, without what is the same for all.
# usage: scripts/deb.sh [BUILD_FOLDER [OUTPUT_FOLDER]]
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
need_packages "${build_packages[@]}" "${qml_packages[@]}" "${deb_packages[@]}"

output=${2-build/deb}
mkdir -p "$output"
output=$(realpath "$output")
make=(debian/rules binary)
if (($# > 0)); then
    KVQ_BUILD=$(realpath "$1")
    export KVQ_BUILD
    grep -qx 'CMAKE_INSTALL_PREFIX:[A-Z]*=/usr' "$KVQ_BUILD/CMakeCache.txt" || {
        # The folders of libraries were chosen for another place than a package's.
        echo "error: packages are for /usr: first cmake $1 -DCMAKE_INSTALL_PREFIX=/usr" >&2
        exit 1
    }
    architecture=$(sed -n 's/^KVQ_DEBIAN_ARCHITECTURE:STRING=//p' "$KVQ_BUILD/CMakeCache.txt")
    [[ -z $architecture ]] || make=(dpkg-architecture -a "$architecture" -c debian/rules binary-arch)
fi

# The packaging tools work beside what they read, and leave their traces there, so they get a copy.
source=$output/source
rm -rf "$output"/*.deb "$source"
export DEB_RULES_REQUIRES_ROOT=no # as debian/control says
mkdir "$source"
tar -c --exclude=./build --exclude=./.git . | tar -x -C "$source"
(cd "$source" && "${make[@]}") >"$output/log" 2>&1 || {
    echo "error: the last lines of $output/log:" >&2
    tail -n 30 "$output/log" >&2
    exit 1
}
rm -rf "$source"
ls "$output"/*.deb
