#!/usr/bin/env bash
# A desk that is killed leaves nothing behind: neither its programs nor its folder.
#
# desk_killed.sh DESK_SCRIPT MODEM
set -euo pipefail

TMPDIR=$(mktemp -d)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
# shellcheck disable=SC2016 # the inner shell expands these
"$1" run --modem "$2" -- sh -c 'until [ -s "$KVQ_DESK/command.pid" ]; do sleep 0.1; done
    cp "$KVQ_DESK"/*.pid "$TMPDIR"; touch "$TMPDIR/ready"; exec sleep 100' &
desk=$!
timeout 30 sh -c 'until [ -e "$TMPDIR/ready" ]; do sleep 0.1; done'
kill -KILL $desk
sleep 3
! ls -d "$TMPDIR"/kvq-desk.* 2>/dev/null || exit 1
for file in "$TMPDIR"/{bus,modem,daemon,command}.pid; do
    # What has ended and was not asked for its status yet has no command line any more.
    [[ ! -s /proc/$(cat "$file")/cmdline ]] || { echo "$file: still there"; exit 1; }
done
