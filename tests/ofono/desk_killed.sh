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
timeout 60 sh -c 'until [ -e "$TMPDIR/ready" ]; do sleep 0.1; done'
kill -KILL $desk

# waits_for_end WHAT COMMAND...: until the command fails
waits_for_end() {
    local what=$1 tenth
    shift
    for ((tenth = 0; tenth < 600; ++tenth)); do
        "$@" 2>/dev/null || return 0
        sleep 0.1
    done
    echo "$what: still there"
    exit 1
}

waits_for_end "the folder" ls -d "$TMPDIR"/kvq-desk.*
for file in "$TMPDIR"/{bus,modem,daemon,command}.pid; do
    # What has ended and was not asked for its status yet has no command line any more.
    waits_for_end "$file" test -s "/proc/$(cat "$file")/cmdline"
done
