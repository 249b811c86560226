#!/usr/bin/env bash
# Packs a build, checks the packages, and uses them as a developer would: installs them into a scratch root on top of
# what this machine has, builds the example both ways before there is a platform library, runs it on the simulated
# phone, and removes everything. The machine's own packages stay as they are.
# usage: debian_packages.sh SOURCE_FOLDER BUILD_FOLDER COMPILER
set -euo pipefail
source=$1 build=$2 compiler=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
packages=$scratch/packages root=$scratch/root
triplet=$("$compiler" -print-multiarch)

fail() {
    echo "error: $*" >&2
    exit 1
}

DEB_BUILD_OPTIONS=noautodbgsym "$source/scripts/deb.sh" "$build" "$packages" >/dev/null

# A package for each component of the build, and none for what it does not hold.
expected=$(sort "$build/packages.txt" <(echo libkvqcallsetupengine-doc))
[[ $(basename -a "$packages"/*.deb | sed 's/_.*//' | sort) == "$expected" ]] ||
    fail "expected packages" $expected "but got" "$packages"/*.deb
lintian --fail-on error,warning "$packages"/*.deb 2>/dev/null || fail "lintian objects"

# The scratch root knows what is installed here, so that dependencies count.
mkdir -p "$root/var/lib/dpkg/"{info,updates,triggers}
cp /var/lib/dpkg/status "$root/var/lib/dpkg/"
touch "$root/var/lib/dpkg/available"
dpkg_root() {
    fakeroot dpkg --root="$root" --log="$scratch/dpkg.log" --no-triggers \
        --force-not-root,unsafe-io,bad-path "$@" >"$scratch/dpkg.out" 2>&1
}
deb() { echo "$packages/$1"_*.deb; }

# The engine does not work without a phone, and its package says so. Linking does.
dpkg_root --unpack "$(deb libkvqcallsetupengine1)" "$(deb libkvqcallsetupengine-dev)" ||
    fail "not unpacked: $(<"$scratch/dpkg.out")"
! dpkg_root --configure libkvqcallsetupengine1 || fail "the engine is configured without a platform library"
grep -q "depends on libkvqplatform1-simulator | libkvqplatform1" "$scratch/dpkg.out" ||
    fail "no dependency on a platform library: $(<"$scratch/dpkg.out")"

cp -r "$source/docs/example" "$scratch/example"
programs=()
for linker in bfd gold lld; do
    command -v "ld.$linker" >/dev/null || fail "no linker $linker"
    options="-fuse-ld=$linker -Wl,--fatal-warnings"
    cmake -S "$scratch/example" -B "$scratch/$linker" -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_PREFIX_PATH="$root/usr" -DCMAKE_EXE_LINKER_FLAGS="$options" >/dev/null
    cmake --build "$scratch/$linker" --target example >/dev/null
    flags=$(PKG_CONFIG_PATH=$root/usr/lib/$triplet/pkgconfig pkg-config --cflags --libs kvqcallsetupengine)
    # shellcheck disable=SC2086
    "$compiler" -std=c++20 -fPIC "$scratch/example/main.cpp" $flags $options -o "$scratch/$linker/plain"
    programs+=("$scratch/$linker/example" "$scratch/$linker/plain")
done

# Then the phone on the desk.
others=() # further platform libraries
all=()
for file in "$packages"/*.deb; do
    case $file in
    */libkvqplatform1-simulator_*) all+=("$file") ;;
    */libkvqplatform1-*) others+=("$file") ;;
    *) all+=("$file") ;;
    esac
done
dpkg_root --install "${all[@]}" || fail "not installed: $(<"$scratch/dpkg.out")"
export LD_LIBRARY_PATH=$root/usr/lib/$triplet XDG_DATA_HOME=$scratch/data
for program in "${programs[@]}"; do
    output=$(KVQ_LOG=$scratch/log "$program" 2>&1)
    [[ $output == *"forwarded on no reply: false"* ]] || fail "$program does not do what it should: $output"
    grep -q "getVoiceCallsDivert" "$scratch/log" || fail "$program does not log where KVQ_LOG says"
    rm "$scratch/log"
done
"$root/usr/bin/kvq-console" -q --script "$root/usr/share/doc/kvq-console/examples/tour.kvq" >/dev/null ||
    fail "the console does not play the tour"
documents=$root/usr/share/doc/libkvqcallsetupengine-dev
[[ -e $documents/html/index.html && -e $documents/examples/worker.cpp ]] || fail "documents are missing"

# A port's library takes the place of the phone on the desk and gives it back: never two at once, and each is enough.
port=$scratch/port
mkdir -p "$port/DEBIAN" "$port/usr/lib/$triplet"
cp -L "$root/usr/lib/$triplet/libkvqplatform.so.1" "$port/usr/lib/$triplet/"
cat >"$port/DEBIAN/control" <<END
Package: libkvqplatform1-port
Version: 1
Architecture: $(dpkg --print-architecture)
Maintainer: The port's developers <port@example.org>
Provides: libkvqplatform1
Conflicts: libkvqplatform1
Replaces: libkvqplatform1
Description: platform library of a port
END
fakeroot dpkg-deb --build "$port" "$scratch/port.deb" >/dev/null
current=libkvqplatform1-simulator
for next in "$scratch/port.deb" "${others[@]}" "$(deb libkvqplatform1-simulator)"; do
    ! dpkg_root --install "$next" || fail "$next is installed beside $current"
    dpkg_root --force-depends --remove "$current" && dpkg_root --install "$next" ||
        fail "$next does not replace $current: $(<"$scratch/dpkg.out")"
    dpkg_root --install "$(deb libkvqcallsetupengine1)" || fail "$next is not enough: $(<"$scratch/dpkg.out")"
    current=$(dpkg-deb -f "$next" Package)
done

mapfile -t names < <(basename -a "${all[@]}" | sed 's/_.*//')
dpkg_root --purge "${names[@]}" || fail "not removed: $(<"$scratch/dpkg.out")"
remains=$(find "$root" -path "$root/var" -prune -o -name '*kvq*' -print)
[[ -z $remains ]] || fail "left behind: $remains"
echo "packed, checked, installed, built with, run and removed"
