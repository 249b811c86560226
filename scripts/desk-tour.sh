#!/usr/bin/env bash
# A tour of the call setup engine on a phone whose modem the telephony daemon runs. Each line that begins with > is a
# program of its own that calls the engine; each that begins with modem> is something that happens to the phone.
# usage, on a desk: desk-tour.sh BUILD_FOLDER
set -euo pipefail
build=$1
here=$(dirname "$0")
export LD_LIBRARY_PATH=$build/ofono

say() {
    printf '\n# %s\n' "$*"
}

phone() {
    echo "> $*"
    "$build/console/kvq-console" -q "$@"
}

modem() {
    echo "modem> $*"
    "$here/desk.sh" tell "$@"
}

# The daemon looks at its modem's calls every half second.
settle() {
    sleep 1
}

say "1. A conversation: dialled by one program, seen and ended by others."
phone PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq 0 5551234
modem .answer
settle
phone PHONE_ENG_TAPI_CALL_GetCallStatus
modem .ring 5555678
settle
phone PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq 2 0
settle
phone PHONE_ENG_TAPI_CALL_GetCallStatus
phone PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq 1 2
settle
phone PHONE_ENG_TAPI_CALL_GetCallStatus
phone PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq 1 1
settle # one call after the other
settle
phone PHONE_ENG_TAPI_CALL_GetCallStatus

say "2. Forwarding, kept by the network: the timer is rounded there, and a call goes where it was told to."
phone divertVoiceCallsWithTime on 5559999 12
phone getVoiceCallsDivert no-reply
modem AT+CCFC=2,2
phone divertVoiceCalls on unconditional 5550000
modem .ring 5551234
phone cancelAllVoiceCallsDiverts
phone getVoiceCallsDivert unconditional

say "3. The lock of the SIM is switched on; a wrong PIN costs a try, the right one gives it back."
phone enablePin1 1234
phone setupVerifySimPin 0000
modem AT+CPINR
phone setupVerifySimPin 1234
modem AT+CPINR

say "4. Networks: one vanishes, the phone finds another."
phone findNewNetwork
phone getKnownNetworks
modem .network vanishes 00101
phone findNewNetwork
settle
phone getKnownNetworks
modem .network returns 00101

say "5. What the modem does not have is said so, at once."
phone getPreferredNetworks

say "6. The phone as its modem sees it."
modem .state
