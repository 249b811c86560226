#!/usr/bin/env bash
# What scripts/boot.sh runs on its phone at each boot: installs the packages and reboots; then uses and purges them.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive

say() {
    printf '%s\n' "$*"
}

fail() {
    say "error: $*"
    systemctl --no-pager status ofono kvq-modem-online modem || true
    journalctl --no-pager -q -b -u ofono -u kvq-modem-online -u modem | tail -n 50
    exit 1
}

# until_within SECONDS WHAT COMMAND...
until_within() {
    local seconds=$1 what=$2 second
    shift 2
    for ((second = 0; second < seconds; ++second)); do
        if "$@" >/dev/null 2>&1; then
            say "$what: after $second s"
            return
        fi
        sleep 1
    done
    fail "$what: not within $seconds s"
}

# as USER OPERATION...
as() {
    runuser -u "$1" -- env XDG_RUNTIME_DIR="/run/user/$(id -u "$1")" kvq-console -q "${@:2}" 2>&1
}

# answers USER RESULT OPERATION...
answers() {
    as "$1" "${@:3}" | grep "($2)"
}

sits_at_the_screen() {
    loginctl list-sessions | grep 'user.*seat0.*tty1'
}

service_is() {
    [[ $(systemctl is-active kvq-modem-online) == "$1" ]]
}

nothing_is_left() {
    {
        find / -xdev -iname '*kvq*' -not -path '/check/*' -not -path '/var/cache/apt/*'
        grep -als kvq /proc/[0-9]*/cmdline || true
        systemctl list-units --all --plain --no-legend 'kvq*'
    } 2>/dev/null >/tmp/left
    [[ ! -s /tmp/left ]]
}

install() {
    apt-get install -y -qq --no-install-recommends /check/*.deb >/tmp/apt 2>&1 || fail "$(cat /tmp/apt)"
    say "installed: $(dpkg-query -W -f '${Package} ${Version}, ' ofono '*kvq*')"
    touch /check/installed
}

use() {
    until_within 60 "the user is logged in at the screen" sits_at_the_screen
    until_within 60 "the user reaches the network" answers user TAPI_RESULT_SUCC isCallWaiting
    as user PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq 0 5551234
    as user getVoiceCallsDivert no-reply

    as stranger isCallWaiting >/tmp/stranger || true
    cat /tmp/stranger
    grep -q '(TAPI_RESULT_ACCESS_DENIED)' /tmp/stranger || fail "who is logged in nowhere is let in"
    grep -q /etc/dbus-1/system.d/ofono.conf /tmp/stranger || fail "the policy is not named"
    # As docs/ofono.md says.
    echo '<busconfig><policy group="plugdev"><allow send_destination="org.ofono"/></policy></busconfig>' \
        >/etc/dbus-1/system.d/kvq.conf
    usermod -aG plugdev stranger
    systemctl reload dbus
    until_within 10 "who is let in by group reaches it" answers stranger TAPI_RESULT_SUCC isCallWaiting
    rm /etc/dbus-1/system.d/kvq.conf

    systemctl restart ofono
    until_within 60 "the daemon was restarted" answers user TAPI_RESULT_SUCC isCallWaiting
    systemctl kill -s KILL ofono
    until_within 10 "the daemon is dead" answers user TAPI_RESULT_SERVICE_DOWN isCallWaiting
    systemctl start ofono
    until_within 60 "the daemon was started again" answers user TAPI_RESULT_SUCC isCallWaiting
    until_within 10 "the service has done its work" service_is inactive

    busctl call org.ofono /phone org.ofono.Modem SetProperty sv Online b false
    sleep 5
    answers user TAPI_RESULT_MODEM_OFFLINE isCallWaiting || fail "what the user switched off did not stay off"
}

purge() {
    kvq-modem --tell /run/modem .card out
    systemctl restart ofono
    until_within 10 "the service waits for a card" service_is active
    systemctl stop modem
    apt-get purge -y -qq '*kvq*' >/tmp/apt 2>&1 || fail "$(cat /tmp/apt)"
    systemctl daemon-reload
    until_within 20 "nothing is left of the packages" nothing_is_left
}

trap 'systemctl poweroff' EXIT
if [[ -e /check/installed ]]; then
    use
    purge
    say "The phone is as it should be"
else
    install
    trap - EXIT
    systemctl reboot
fi
