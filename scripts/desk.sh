#!/usr/bin/env bash
# The desk: a private bus, the simulated modem and the real telephony daemon, for as long as a command runs.
#
#   scripts/desk.sh run [--online] [--two] [--modem PROGRAM] [--script FILE] -- COMMAND...
#       Starts all three in a folder of their own, runs COMMAND and ends them, also when it fails or is interrupted,
#       and within two seconds when this script itself is killed.
#       --online powers the modem and waits until it is registered. --two starts a second modem, with another card:
#       the daemon's /phone2, which --online switches on too. PROGRAM is kvq-modem (default: $KVQ_MODEM_PROGRAM,
#       then the one of the newest build below build/). FILE holds commands for the modem's prompt.
#       Exit status: the command's; 70 when the desk could not be set up.
#
# COMMAND finds in its environment:
#   DBUS_SYSTEM_BUS_ADDRESS  the private bus, where the daemon has the modem /phone
#   KVQ_DESK                 the folder of this desk: bus.pid, modem.pid, daemon.pid (each the program's own process id),
#                            modem.control, and the logs bus.log, modem.log, daemon.log (the AT traffic is in the last);
#                            of a second modem modem2.pid, modem2.control and modem2.log
#   KVQ_MODEM_PROGRAM        kvq-modem
# and, so that nothing of the user's own is touched either, DBUS_SESSION_BUS_ADDRESS (the same bus), XDG_RUNTIME_DIR,
# XDG_DATA_HOME, XDG_CONFIG_HOME and XDG_STATE_HOME (empty folders of this desk).
#
# Inside of it:
#   scripts/desk.sh tell WORDS...   a command of the modem's prompt, as in: desk.sh tell .ring 5551234;
#                                   without words the prompt itself
#   scripts/desk.sh tell2 WORDS...  the same for the second modem
#   scripts/desk.sh online [PATH]   powers a modem, /phone unless another is named, and waits until it is registered
#   scripts/desk.sh daemon          starts the daemon anew after kill "$(cat "$KVQ_DESK/daemon.pid")"
#   scripts/desk.sh bus             starts the bus anew, at the same address
#
# Nothing of the machine's own bus, daemon or state is touched: the daemon sees a /var/lib of its own, in a mount
# namespace of its own. That takes root, or a kernel that lets users have user namespaces.
set -euo pipefail

readonly deadline=150 # tenths of a second

fail() {
    echo "desk: $*" >&2
    exit 70
}

# wait_until WHAT COMMAND...
wait_until() {
    local what=$1 tenth
    shift
    for ((tenth = 0; tenth < deadline; ++tenth)); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    fail "$what: nothing after $((deadline / 10)) s; see the logs in $KVQ_DESK"
}

on_the_daemon() {
    dbus-send --bus="$DBUS_SYSTEM_BUS_ADDRESS" --print-reply=literal --reply-timeout=5000 --dest=org.ofono "$@"
}

# start NAME COMMAND...: in the background, its output in NAME.log and its process id in NAME.pid
start() {
    local name=$1
    shift
    "$@" >>"$KVQ_DESK/$name.log" 2>&1 </dev/null &
    echo $! >"$KVQ_DESK/$name.pid"
    disown # whoever kills it means it
}

# Ends what a pid file names, gently first.
end() {
    local pid tenth
    pid=$(cat "$KVQ_DESK/$1.pid" 2>/dev/null) || return 0
    kill "$pid" 2>/dev/null || return 0
    for ((tenth = 0; tenth < 30; ++tenth)); do
        kill -0 "$pid" 2>/dev/null || return 0
        sleep 0.1
    done
    kill -KILL "$pid" 2>/dev/null || true
}

start_bus() {
    cat >"$KVQ_DESK/bus.conf" <<EOF
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=$KVQ_DESK/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
EOF
    rm -f "$KVQ_DESK/bus"
    start bus dbus-daemon --config-file="$KVQ_DESK/bus.conf" --nofork --nopidfile
    # The socket is there a moment before it is listened on.
    wait_until "the bus" dbus-send --bus="$DBUS_SYSTEM_BUS_ADDRESS" --print-reply --dest=org.freedesktop.DBus \
        / org.freedesktop.DBus.ListNames
}

# start_modem NAME GROUP [SCRIPT]: a group of the daemon's file is a modem's path
start_modem() {
    start "$1" "$KVQ_MODEM_PROGRAM" --port 0 --no-prompt --control "$KVQ_DESK/$1.control" ${3:+--script "$3"}
    wait_until "the modem" grep -q '^port ' "$KVQ_DESK/$1.log"
    printf '[%s]\nAddress=127.0.0.1\nPort=%s\n' "$2" "$(sed -n 's/^port //p' "$KVQ_DESK/$1.log")" \
        >>"$KVQ_DESK/daemon.conf"
}

start_second_modem() {
    printf '.card out\n.card in 2\n' >"$KVQ_DESK/modem2.script"
    start_modem modem2 phone2 "$KVQ_DESK/modem2.script"
}

start_daemon() {
    local apart=(unshare --mount)
    ((EUID == 0)) || apart=(unshare --user --map-current-user --keep-caps --mount)
    "${apart[@]}" true 2>/dev/null || fail "the daemon cannot be kept from /var/lib: this machine refuses" \
        "'${apart[*]}', as containers and chroots do unless they are told to allow it"
    mkdir -p "$KVQ_DESK/lib/ofono"
    export OFONO_PHONESIM_CONFIG=$KVQ_DESK/daemon.conf OFONO_AT_DEBUG=1
    # shellcheck disable=SC2016 # the inner shell expands these
    start daemon "${apart[@]}" sh -c 'mount --bind "$1" /var/lib && exec "$2" -n -d "plugins/*:src/modem.c"' \
        desk "$KVQ_DESK/lib" "$(PATH=$PATH:/usr/sbin command -v ofonod)"
    exec 3>&2 # for what is said while waiting quietly
    wait_until "the daemon" modem_is_there
}

modem_is_there() {
    kill -0 "$(cat "$KVQ_DESK/daemon.pid")" || fail "the daemon ended: $(tail -n 1 "$KVQ_DESK/daemon.log")" 2>&3
    on_the_daemon / org.ofono.Manager.GetModems | grep -q /phone
}

# go_online PATH
go_online() {
    on_the_daemon "$1" org.ofono.Modem.SetProperty string:Powered variant:boolean:true >/dev/null
    wait_until "the card" has_interface "$1" org.ofono.SimManager
    on_the_daemon "$1" org.ofono.Modem.SetProperty string:Online variant:boolean:true >/dev/null
    wait_until "the call settings" has_interface "$1" org.ofono.CallSettings
    wait_until "the registration" is_registered "$1"
}

has_interface() {
    on_the_daemon "$1" org.ofono.Modem.GetProperties | grep -q "$2"
}

is_registered() {
    on_the_daemon "$1" org.ofono.NetworkRegistration.GetProperties | grep -Eq 'registered|roaming'
}

run() {
    local online=false two=false modem_script=""
    while [[ ${1-} == --* && $1 != -- ]]; do
        case $1 in
        --online) online=true ;;
        --two) two=true ;;
        --modem) KVQ_MODEM_PROGRAM=$2 && shift ;;
        --script) modem_script=$2 && shift ;;
        *) fail "unknown option $1" ;;
        esac
        shift
    done
    [[ ${1-} == -- && $# -ge 2 ]] || fail "usage: scripts/desk.sh run [OPTION...] -- COMMAND..."
    shift
    if [[ -z ${KVQ_MODEM_PROGRAM-} ]]; then
        KVQ_MODEM_PROGRAM=$(ls -t "$(dirname "$0")"/../build/*/modem/kvq-modem 2>/dev/null | head -n 1)
    fi
    [[ -x $KVQ_MODEM_PROGRAM ]] || fail "there is no kvq-modem: name it with --modem"
    local program
    for program in dbus-daemon dbus-send unshare ofonod; do
        PATH=$PATH:/usr/sbin command -v $program >/dev/null || fail "$program is missing"
    done
    KVQ_DESK=$(mktemp -d "${TMPDIR:-/tmp}/kvq-desk.XXXXXX")
    export KVQ_DESK KVQ_MODEM_PROGRAM DBUS_SYSTEM_BUS_ADDRESS=unix:path=$KVQ_DESK/bus
    export DBUS_SESSION_BUS_ADDRESS=$DBUS_SYSTEM_BUS_ADDRESS XDG_RUNTIME_DIR=$KVQ_DESK/run
    export XDG_DATA_HOME=$KVQ_DESK/data XDG_CONFIG_HOME=$KVQ_DESK/config XDG_STATE_HOME=$KVQ_DESK/state
    mkdir -m 700 "$XDG_RUNTIME_DIR" "$XDG_DATA_HOME" "$XDG_CONFIG_HOME" "$XDG_STATE_HOME"
    trap clear_away EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    watch_over_this_script
    start_bus
    start_modem modem phone "$modem_script"
    ! $two || start_second_modem
    start_daemon
    ! $online || go_online /phone
    ! $online || ! $two || go_online /phone2
    # In the background, so that a signal to this script is heard at once; with the terminal and Ctrl-C as ever.
    local status=0
    env --default-signal=INT,QUIT "$@" <&0 &
    echo $! >"$KVQ_DESK/command.pid"
    wait $! || status=$?
    rm "$KVQ_DESK/command.pid"
    exit "$status"
}

clear_away() {
    local name
    for name in screen command daemon modem modem2 bus; do
        end $name
    done
    rm -rf "$KVQ_DESK"
    [[ -z ${watcher-} ]] || kill -KILL "$watcher"
}

# Nobody can trap SIGKILL, so somebody else clears away when this script is gone without having done it.
watch_over_this_script() {
    (
        trap '' INT TERM HUP
        tail --pid=$$ -f /dev/null
        for name in screen command daemon modem modem2 bus; do
            pid=$(cat "$KVQ_DESK/$name.pid") && kill -KILL "$pid"
        done
        rm -rf "$KVQ_DESK"
    ) </dev/null >/dev/null 2>&1 &
    watcher=$!
    disown
}

command=${1-}
shift || true
case $command in
run) run "$@" ;;
tell) exec "$KVQ_MODEM_PROGRAM" --tell "$KVQ_DESK/modem.control" "$@" ;;
tell2) exec "$KVQ_MODEM_PROGRAM" --tell "$KVQ_DESK/modem2.control" "$@" ;;
online) go_online "${1-/phone}" ;;
daemon) start_daemon ;;
bus) start_bus ;;
*) fail "usage: scripts/desk.sh run|tell|tell2|online|daemon|bus; its head says more" ;;
esac
