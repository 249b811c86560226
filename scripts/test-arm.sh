#!/usr/bin/env bash
# Builds the engine for the ARM processors of phones and runs its tests under the emulator: for 64 bits and for 32,
# where pointers and longs in records are smaller. Holds the exported interface, the size and the Debian packages of
# each. The whole is built as it ships, and all is tested but the screens, which are the same on every processor, and
# what needs this machine's own telephony daemon or compiler.
# The packages are left in build/ARCHITECTURE/packages.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}" "${qml_packages[@]}" "${arm_packages[@]}" "${deb_packages[@]}"
[[ -z ${KVQ_TALLY-} ]] && is_whole=true || is_whole=false
source scripts/parts.sh

build() {
    scripts/sysroot.sh "$1"
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" -- --quiet
}

pack() {
    local architecture=$1 build=build/$1 package unpacked emulator triplet
    DEB_BUILD_OPTIONS=noautodbgsym scripts/deb.sh "$build" "$build/packages" >/dev/null
    unpacked=$build/packages/unpacked
    rm -rf "$unpacked"
    for package in "$build/packages"/*.deb; do
        [[ $(dpkg-deb -f "$package" Architecture) == "$architecture" ]] || {
            echo "error: $package is not a package of $architecture" >&2
            exit 1
        }
        echo "$(dpkg-deb -f "$package" Package): $(stat -c %s "$package") bytes"
        [[ $package == */libkvqplatform1-ofono_* ]] || dpkg-deb -x "$package" "$unpacked"
    done
    [[ $(basename -a "$build/packages"/*.deb | sed 's/_.*//') == $(sort "$build/packages.txt") ]] || {
        echo "error: these are not the packages of this build" >&2
        exit 1
    }
    lintian --fail-on error,warning "$build/packages"/*.deb 2>/dev/null
    # What was packed runs: the tour, on the packages alone.
    emulator=$(sed -n 's/^KVQ_EMULATOR:[^=]*=//p' "$build/CMakeCache.txt")
    triplet=$(dpkg-architecture -a "$architecture" -q DEB_HOST_MULTIARCH)
    XDG_DATA_HOME=$build/packages/data "$emulator" -L "build/sysroot/$architecture" \
        -E LD_LIBRARY_PATH="$unpacked/usr/lib/$triplet" "$unpacked/usr/bin/kvq-console" -q \
        --script "$unpacked/usr/share/doc/kvq-console/examples/tour.kvq" >/dev/null
}

status=0
for architecture in arm64 armhf; do
    if part "Building ($architecture)" build "$architecture"; then
        part "Packing ($architecture)" pack "$architecture" || status=1
        tests "$architecture" || status=1
    else
        status=1
    fi
done
! $is_whole || summary || status=1
exit $status
