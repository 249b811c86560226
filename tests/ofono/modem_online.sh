#!/usr/bin/env bash
# What a phone does at boot, on a desk whose modem is off: brings it online and ends; waits for a modem that is not there;
# leaves a modem alone that it was not asked for.
#
# modem_online.sh PROGRAM
set -euo pipefail

for program in busctl systemd-analyze; do
    command -v $program >/dev/null || { echo "$program is missing"; exit 1; }
done

# The unit, with the program where it is here.
unit=$(mktemp -d)
trap 'rm -rf "$unit"' EXIT
sed "s#^ExecStart=.*#ExecStart=$1#" "$1.service" >"$unit/kvq-modem-online.service"
said=$(systemd-analyze verify "$unit/kvq-modem-online.service" 2>&1 | grep kvq-modem-online || true)
[[ -z $said ]] || { echo "$said"; exit 1; }
# The exposure in tenths, of 100: without its restrictions it is 89.
systemd-analyze security --offline=yes --no-pager --threshold=15 "$unit/kvq-modem-online.service" >/dev/null || {
    echo "the unit allows more than it needs"
    exit 1
}

is_online() {
    busctl --system call org.ofono /phone org.ofono.Modem GetProperties | grep -q '"Online" b true'
}

! is_online || { echo "the desk's modem is online to begin with"; exit 1; }
status=0
KVQ_MODEM=/absent timeout 3 "$1" || status=$?
[[ $status == 124 ]] || { echo "a modem that is not there: status $status, not waiting"; exit 1; }
! is_online || { echo "the modem that was not named is online"; exit 1; }
[[ $(timeout 120 "$1") == "/phone is online" ]] || { echo "does not bring the modem online"; exit 1; }
is_online || { echo "says that the modem is online, but it is not"; exit 1; }
[[ $(KVQ_MODEM=/phone timeout 120 "$1") == "/phone is online" ]] || { echo "stumbles over one that is online"; exit 1; }

# It does not outlive its package.
cp "$1" "$unit/service"
KVQ_MODEM=/absent "$unit/service" &
rm "$unit/service"
timeout 60 tail --pid=$! -f /dev/null || { echo "still waits when its package was removed"; kill $!; exit 1; }
