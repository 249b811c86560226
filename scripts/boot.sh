#!/usr/bin/env bash
# Boots a phone with the packages: a Debian in a virtual machine, with kvq-modem where a phone has its modem. There they
# are installed, and after a reboot users ask the modem, the daemon is restarted and killed, and all is purged
# (scripts/boot-check.sh). Fails when anything of it does. Three minutes or more, as root. The processor is emulated, so
# that it is the same on every machine.
# usage: scripts/boot.sh [PACKAGES_FOLDER]     what scripts/deb.sh has made; without it they are built first
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
((EUID == 0)) || { echo "error: only root can make the system of a phone" >&2; exit 1; }

need_packages mmdebstrap qemu-system-x86 e2fsprogs
place=build/boot
mkdir -p $place
if (($# == 0)); then
    need_packages "${build_packages[@]}" "${deb_packages[@]}"
    cmake --preset release -B $place/build -DKVQ_BUILD_TESTS=OFF -DKVQ_BUILD_BENCHMARKS=OFF -DKVQ_BUILD_QML=OFF >/dev/null
    cmake --build $place/build -- --quiet
    scripts/deb.sh $place/build $place/deb
fi
packages=${1-$place/deb}

machine=$(mktemp -d "${TMPDIR:-/tmp}/kvq-boot.XXXXXX")
trap 'rm -rf "$machine"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
system=$machine/system
mkdir -p "$machine"/overlay/etc/systemd/system/{getty@tty1.service.d,ofono.service.d,multi-user.target.wants} \
    "$machine/overlay/check"
cp scripts/boot-check.sh "$packages"/{libkvqcallsetupengine1,libkvqplatform1-ofono,kvq-modem,kvq-console}_*.deb \
    "$machine/overlay/check"
cd "$machine/overlay"

# The hardware of this phone.
cat >etc/systemd/system/modem.service <<END
[Service]
ExecStart=kvq-modem --no-prompt --control /run/modem
END
cat >etc/systemd/system/ofono.service.d/modem.conf <<END
[Unit]
Wants=modem.service
After=modem.service
[Service]
Environment=OFONO_PHONESIM_CONFIG=/check/modem.conf
END
printf '[phone]\nAddress=127.0.0.1\nPort=12345\n' >check/modem.conf
# Its user is logged in at the screen.
cat >etc/systemd/system/getty@tty1.service.d/login.conf <<END
[Service]
ExecStart=
ExecStart=-agetty --autologin user --noclear %I
END
cat >etc/systemd/system/boot-check.service <<END
[Unit]
After=multi-user.target
[Service]
Type=idle
ExecStart=/check/boot-check.sh
StandardOutput=file:/dev/ttyS1
StandardError=inherit
END
ln -s ../boot-check.service etc/systemd/system/multi-user.target.wants/
cd "$OLDPWD"

echo "== Making the system of a phone"
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
# From where this machine has its own packages; if that is not known, mmdebstrap's choice.
archive=$(apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Identifier: Packages' "Release: $release" 'Component: main' | head -n 1)
# What the packages depend on is fetched now, so that the phone needs no network.
mmdebstrap --quiet --mode=root --variant=minbase --aptopt='APT::Install-Recommends "0"' \
    --include=systemd-sysv,libpam-systemd,dbus,udev,linux-image-cloud-amd64 --skip=cleanup/apt \
    --customize-hook="copy-in $machine/overlay/check $machine/overlay/etc /" \
    --customize-hook='chroot "$1" sh -c "useradd -m -s /bin/bash user && useradd -m stranger
        apt-get install -y -qq --download-only /check/*.deb" >/dev/null' \
    "$release" "$system" ${archive:+"$archive"}
cp "$system"/{vmlinuz,initrd.img} "$machine"
mke2fs -q -t ext4 -F -d "$system" "$machine/disk" 3G >/dev/null

echo "== Booting it"
timeout --foreground 600 qemu-system-x86_64 -accel tcg -cpu max -m 1G -smp 2 -display none -nic none \
    -kernel "$machine/vmlinuz" -initrd "$machine/initrd.img" -append "root=/dev/vda rw console=ttyS0 quiet" \
    -drive "file=$machine/disk,format=raw,if=virtio,cache=unsafe" \
    -serial "file:$place/console.log" -serial stdio </dev/null | tee "$machine/report"
grep -q '^The phone is as it should be' "$machine/report" || {
    echo "error: see $place/console.log for what the system said" >&2
    exit 1
}
