#!/usr/bin/env bash
# Counts what the settings application asks the telephony daemon for, and how often it wakes up when it is left alone.
# Counts, not times: how fast the machine is makes no difference. Fails when a limit is exceeded.
# usage: scripts/asking.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "$1")
if [[ -z ${KVQ_DESK-} ]]; then
    exec scripts/desk.sh run --online --modem "$build/modem/kvq-modem" -- scripts/asking.sh "$build"
fi

export LD_LIBRARY_PATH=$build/ofono KVQ_LOG=off QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software LC_ALL=C.UTF-8
settings=("$build/settings/kvq-settings" --no-desk)
heard=$KVQ_DESK/heard
status=0

# Everything on the bus, a line a message: kind, time, serial, sender, receiver, path, interface, member.
dbus-monitor --address "$DBUS_SYSTEM_BUS_ADDRESS" --profile >"$heard" 2>/dev/null &
monitor=$!
application=""
trap 'kill $monitor $application 2>/dev/null || true' EXIT

# mark NAME: a message of that name stands in the monitor's list when this returns.
mark() {
    local try
    for ((try = 0; try < 600; ++try)); do
        dbus-send --address="$DBUS_SYSTEM_BUS_ADDRESS" /mark "org.kvq.Mark.$1"
        grep -qs "org.kvq.Mark.*$1\$" "$heard" && return
        sleep 0.1
    done
    echo "error: the bus is not heard" >&2
    exit 1
}

# verdict WHAT COUNT LIMIT [DETAILS]
verdict() {
    local word=holds
    (($2 <= $3)) || { word=EXCEEDED; status=1; }
    printf '%-54s %12s %7s  %s\n' "$1" "$2" "$3" "$word"
    [[ -z ${4-} ]] || sed 's/^/    /' <<<"$4"
}

# asked NAME ARGUMENTS...: the daemon's members that the application asks for, until all is answered. Looking for calls
# goes on by itself and is left out.
asked() {
    local name=$1
    shift
    mark "Begin$name"
    "${settings[@]}" "$@" --screenshot "$KVQ_DESK/shot.png" >"$KVQ_DESK/said" 2>&1 || {
        cat "$KVQ_DESK/said" >&2
        return 1
    }
    mark "End$name"
    sed -n "/Begin$name\$/,/End$name\$/p" "$heard" | awk -F '\t' '$1 == "mc" && $7 ~ /^org\.ofono/ {
        sub(/^org\.ofono\./, "", $7); print $7 "." $8 }' | grep -v '^VoiceCallManager.GetCalls$' || true
}

count() { grep -c . <<<"$1" || true; }

start=$(asked Start)
verdict "D-Bus calls of a start" "$(count "$start")" 6 "$(sort <<<"$start" | uniq -c)"
for page in security:1 costs:1 networks:4; do
    # What the page asks for comes after what the start asks for.
    all=$(asked "Page${page%:*}" --page "${page%:*}")
    added=$(comm -13 <(sort <<<"$start") <(sort <<<"$all"))
    verdict "D-Bus calls of the page ${page%:*}" "$(count "$added")" "${page#*:}" "$(uniq -c <<<"$added")"
done

# wakeups PID: how often its threads have waited for something that came
wakeups() { cat "/proc/$1"/task/*/status | awk '/^voluntary_ctxt_switches/ { sum += $2 } END { print sum }'; }

# Left alone, a page only looks for calls, twice a second: its timer, the request, the daemon's answer, and the answer.
for page in calls about; do
    "${settings[@]}" --page "$page" >"$KVQ_DESK/said" 2>&1 &
    application=$!
    sleep 10 # what it reads at the start is read
    before=$(wakeups $application)
    sleep 10
    verdict "wakeups in 10 s, left alone on the page $page" "$(($(wakeups $application) - before))" 120
    kill $application
    wait $application 2>/dev/null || true
    application=""
done
exit $status
