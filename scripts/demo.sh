#!/usr/bin/env bash
# Builds the engine and plays a tour of it on the simulated phone. With -i it opens the prompt instead.
# With --ofono the phone is the one of the telephony daemon: a private bus, the simulated modem and the real daemon
# are started for as long as it takes; -i then opens the console on them with the modem's prompt beside it.
# With --screen it opens the settings application, with the panel for the desk beside it; with --ofono too, the
# application of a phone whose modem the daemon runs.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

ofono=false
interactive=false
screen=false
for option in "$@"; do
    case $option in
    --ofono) ofono=true ;;
    -i) interactive=true ;;
    --screen) screen=true ;;
    *)
        echo "usage: scripts/demo.sh [--ofono] [-i | --screen]" >&2
        exit 2
        ;;
    esac
done

need_packages "${build_packages[@]}"
! $screen || need_packages "${qml_packages[@]}" qt6-wayland
! $ofono || need_packages "${desk_packages[@]}"
echo "== Building"
cmake --preset demo -DKVQ_BUILD_QML=$($screen && echo ON || echo OFF) >/dev/null
if [[ -t 1 ]]; then
    NINJA_STATUS='[%f of %t] ' cmake --build --preset demo
else
    # A line a tenth of the work, and whatever the compiler says.
    NINJA_STATUS='%f %t ' cmake --build --preset demo |
        awk '!/^[0-9]+ [0-9]+ / { if (!/^ninja: no work/) print; next }
             $1 > 0 && $1 * 10 >= $2 * step { printf "   %d of %d\n", $1, $2; fflush(); step = int($1 * 10 / $2) + 1 }'
fi

desk=(scripts/desk.sh run --online --modem build/demo/modem/kvq-modem)
if $screen && $ofono; then
    # The desk has a run-time folder of its own, in which no display is looked for by its name alone.
    if [[ ${WAYLAND_DISPLAY-/} != /* ]]; then
        export WAYLAND_DISPLAY=${XDG_RUNTIME_DIR-}/$WAYLAND_DISPLAY
    fi
    # shellcheck disable=SC2016
    exec "${desk[@]}" -- bash -c 'echo "The prompt of the modem, in a second terminal:"
        echo "    $KVQ_MODEM_PROGRAM --tell $KVQ_DESK/modem.control"
        LD_LIBRARY_PATH=build/demo/ofono exec build/demo/settings/kvq-settings'
elif $screen; then
    exec build/demo/settings/kvq-settings
fi
case $ofono,$interactive in
true,true)
    "${desk[@]}" -- scripts/desk-console.sh build/demo
    ;;
true,false)
    echo "== The tour"
    "${desk[@]}" -- scripts/desk-tour.sh build/demo
    ;;
false,true)
    exec build/demo/console/kvq-console
    ;;
*)
    settings=$(mktemp -d)
    trap 'rm -rf "$settings"' EXIT
    echo "== The tour"
    build/demo/console/kvq-console --settings "$settings/settings.cbor" --script console/tour.kvq --echo
    ;;
esac
