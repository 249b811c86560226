#!/usr/bin/env bash
# Makes the sysroot of another architecture in build/sysroot: Debian packages, unpacked and not installed, so the
# machine itself gets no foreign package and nothing on it can be in conflict with one. Needs no privilege.
# The packages are those of the release without later updates: what is built runs on every machine of the release.
# usage: scripts/sysroot.sh ARCHITECTURE
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

# What the build and its tests link and load.
packages=(libc6-dev libgtest-dev libgmock-dev)
for package in "${build_packages[@]}" "${qml_packages[@]}"; do
    [[ $package =~ ^(lib|qml6-)|-dev$ ]] && packages+=("$package")
done

(($# == 1)) || { echo "usage: scripts/sysroot.sh ARCHITECTURE" >&2; exit 2; }
architecture=$1
sysroot=$PWD/build/sysroot/$architecture
wanted="$architecture ${packages[*]}"
[[ $(cat "$sysroot/contents" 2>/dev/null) == "$wanted" ]] && exit

need_packages mmdebstrap
echo "== Making the sysroot ($architecture)"
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
# From where this machine has its own packages; if that is not known, mmdebstrap's choice.
archive=$(apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Identifier: Packages' "Release: $release" 'Component: main' | head -n 1)
rm -rf "$sysroot"
mkdir -p "$(dirname "$sysroot")"
mmdebstrap --quiet --mode=chrootless --variant=extract --architectures="$architecture" \
    --aptopt='APT::Install-Recommends "0"' --include="$(IFS=,; echo "${packages[*]}")" \
    --skip=cleanup/apt/cache "$release" "$sysroot" ${archive:+"$archive"}

# What the libraries ask of those that depend on them, for the packages that are made of a cross build.
for package in "$sysroot"/var/cache/apt/archives/*.deb; do
    dpkg-deb --ctrl-tarfile "$package" | tar -xO --wildcards './shlibs' 2>/dev/null || true
done >"$sysroot/shlibs"
rm -rf "$sysroot/var/cache/apt/archives"
printf '%s\n' "$wanted" >"$sysroot/contents"
