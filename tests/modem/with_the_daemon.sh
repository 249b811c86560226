#!/usr/bin/env bash
# The real daemon in front of the modem: it finds everything, calls come and go, a daemon that was killed finds the
# same phone again. Runs on a desk that is online.
# usage: with_the_daemon.sh DESK_SCRIPT
set -euo pipefail
desk=$1

ask() {
    dbus-send --bus="$DBUS_SYSTEM_BUS_ADDRESS" --print-reply=literal --reply-timeout=10000 --dest=org.ofono "$@" |
        tr -s ' \n' ' '
}

# expect TEXT COMMAND...: waits until the answer holds the text
expect() {
    local wanted=$1 answer tenth
    shift
    for ((tenth = 0; tenth < 80; ++tenth)); do
        answer=$("$@" 2>&1) || true
        [[ $answer == *"$wanted"* ]] && return
        sleep 0.1
    done
    echo "expected \"$wanted\" of $*, but the answer is: $answer" >&2
    exit 1
}

properties() {
    ask /phone "org.ofono.$1.GetProperties"
}

for interface in SimManager VoiceCallManager CallForwarding CallSettings SupplementaryServices CallMeter CallVolume \
    NetworkRegistration RadioSettings TextTelephony CallBarring SimAuthentication; do
    expect "org.ofono.$interface" properties Modem
done
expect "Serial variant 350077523237513" properties Modem
expect "ServiceProviderName variant Test Mobile" properties SimManager
expect "SubscriberNumbers variant array [ +491701234567 +491707654321 ]" properties SimManager
expect "Mode variant auto" properties NetworkRegistration

"$desk" tell .ring 5551234 >/dev/null
expect "State variant incoming" ask /phone org.ofono.VoiceCallManager.GetCalls
ask /phone/voicecall01 org.ofono.VoiceCall.Answer >/dev/null
expect "State variant active" ask /phone org.ofono.VoiceCallManager.GetCalls
"$desk" tell .remote hold
expect "RemoteHeld variant boolean true" ask /phone org.ofono.VoiceCallManager.GetCalls
"$desk" tell .remote join
expect "RemoteMultiparty variant boolean true" ask /phone org.ofono.VoiceCallManager.GetCalls
"$desk" tell .hangup >/dev/null
expect "array [ ]" ask /phone org.ofono.VoiceCallManager.GetCalls

ask /phone org.ofono.SupplementaryServices.Initiate 'string:**21*777*25#' >/dev/null
expect "DataAsyncUnconditional variant 777" ask /phone org.ofono.SupplementaryServices.Initiate 'string:*#21**25#'

kill -KILL "$(cat "$KVQ_DESK/daemon.pid")"
"$desk" daemon
"$desk" online
expect "DataAsyncUnconditional variant 777" ask /phone org.ofono.SupplementaryServices.Initiate 'string:*#21**25#'

"$desk" tell .card out
expect "Present variant boolean false" properties SimManager
"$desk" tell .card in
expect "org.ofono.CallForwarding" properties Modem
"$desk" tell .network vanishes
expect "Status variant searching" properties NetworkRegistration
echo "the daemon finds the phone"
