#!/usr/bin/env bash
# Draws every page of the settings application to PNG, without a display: light and dark, on a phone and on a large
# screen; as it is, while the phone takes its time, and when requests fail. The folder is build/screenshots unless
# another one is given, the language is English unless another one is.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

language=en
if [[ ${1-} == --language && $# -ge 2 ]]; then
    language=$2
    shift 2
fi
if (($# > 1)) || [[ ${1-} == -* ]]; then
    echo "usage: scripts/screenshots.sh [--language CODE] [FOLDER]" >&2
    exit 2
fi
folder=${1:-build/screenshots}
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)

need_packages "${build_packages[@]}" "${qml_packages[@]}"
echo "== Building"
cmake --preset demo -DKVQ_BUILD_QML=ON >/dev/null
cmake --build --preset demo --target kvq-settings kvqcallsetupqmlplugin -- --quiet

# The application's settings, its run-time folder and its fonts are its own, so that a picture does not depend on who
# draws it.
private=$(mktemp -d)
trap 'rm -rf "$private"' EXIT
mkdir -m 700 "$private/run"
cat >"$private/fonts.conf" <<'EOF'
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <include>/etc/fonts/fonts.conf</include>
  <match><test name="family"><string>sans-serif</string></test>
    <edit name="family" mode="prepend" binding="strong"><string>Noto Sans</string></edit></match>
  <match><test name="family"><string>monospace</string></test>
    <edit name="family" mode="prepend" binding="strong"><string>DejaVu Sans Mono</string></edit></match>
</fontconfig>
EOF
export QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software QT_SCALE_FACTOR=${SCALE:-1} LC_ALL=C.UTF-8 \
    XDG_RUNTIME_DIR=$private/run XDG_DATA_HOME=$private/data XDG_CONFIG_HOME=$private/config \
    FONTCONFIG_FILE=$private/fonts.conf KVQ_LOG=$private/phone.log

# draw NAME ARGUMENTS...: one picture in both themes and both sizes
draw() {
    local name=$1 theme size job
    local jobs=()
    shift
    for theme in light dark; do
        for size in 320x568 1280x800; do
            build/demo/settings/kvq-settings --no-desk --reduced-motion --language "$language" --theme "$theme" \
                --size "$size" --screenshot "$folder/$name-$theme-$size.png" "$@" 2>>"$private/$name" &
            jobs+=($!)
        done
    done
    for job in "${jobs[@]}"; do
        wait "$job" || {
            cat "$private/$name" >&2
            echo "error: $name was not drawn" >&2
            exit 1
        }
    done
}

# draw_one NAME ARGUMENTS...: one picture, as the arguments say
draw_one() {
    local name=$1
    shift
    build/demo/settings/kvq-settings --no-desk --reduced-motion --language "$language" --theme light \
        --screenshot "$folder/$name.png" "$@" 2>"$private/$name" || {
        cat "$private/$name" >&2
        echo "error: $name was not drawn" >&2
        exit 1
    }
}

pages=(calls preferences speed-dial video forwarding caller-id costs lines security own-numbers networks preferred about)
incoming=(--phone "ring +491715550100")
many_networks=$(printf '262%02d,' {1..12})

echo "== Drawing into $folder"
draw list
for page in "${pages[@]}"; do
    draw "$page" --page "$page"
    draw "$page-busy" --page "$page" --phone "delay 20000" --screenshot-after 1500
    draw "$page-failed" --page "$page" --phone "fail TAPI_* 0x8000"
done
draw calls-incoming --page calls "${incoming[@]}"
draw calls-held --page calls "${incoming[@]}" --press answer
draw calls-many --page calls "${incoming[@]}" --phone "ring +491715550101" --phone "ring +491715550102"
draw calls-service-code --page calls --press "key:*" --press "key:#" --press key:2 --press key:1 --press "key:#" --press dial
draw calls-tones --page calls "${incoming[@]}" --press answer --press keypad --press key:1
draw calls-add --page calls "${incoming[@]}" --press answer --press add-call
draw incoming-elsewhere --page costs "${incoming[@]}"
draw forwarding-number --page forwarding --press no-reply
draw caller-id-choice --page caller-id --press restriction
draw caller-id-refused --page caller-id --phone "fail TAPI_CS_SetVoiceWaitingStatus 0x8000" --press waiting
draw costs-limit --page costs --press limit
draw security-pin --page security --press change-pin
draw speed-dial-number --page speed-dial --press slot2
draw own-number --page own-numbers --press number1
draw networks-found --page networks --press search
draw preferred-many --page preferred --phone "prefer $many_networks"
draw preferred-add --page preferred --press add
draw costs-price --page costs --press price
draw list-no-sim --phone "fail TAPI_SECURITY_* 0x800A"
draw list-lacking --phone "fail TAPI_* 0x9000"
draw costs-pin2 --page costs --phone "fail TAPI_CS_ResetCallMeter 0x9007" --press reset-costs --press confirm
# A telephone that lies on its side, the smallest one, large letters, and a language from right to left.
for size in 568x320 320x480; do
    draw_one "forwarding-number-$size" --size "$size" --page forwarding --press no-reply
    draw_one "security-pin-$size" --size "$size" --page security --press change-pin
    draw_one "calls-tones-$size" --size "$size" --page calls "${incoming[@]}" --press answer --press keypad --press key:1
done
for page in calls preferences security; do
    draw_one "$page-mirrored" --size 320x568 --page "$page" --language ar
    draw_one "$page-mirrored-wide" --size 1280x800 --page "$page" --language ar
done
draw_one preferred-found --size 320x568 --page networks --press search --press back --press page:preferred --press add
draw_one list-glance --size 320x568 --page forwarding --press back --press page:security --press back
draw_one costs-4k --size 3840x2160 --page costs
for size in 440x800 1280x800; do
    build/demo/settings/kvq-settings --language "$language" --size "$size" --screenshot-of desk \
        --screenshot "$folder/desk-$size.png" 2>/dev/null
done
echo "$(find "$folder" -name '*.png' | wc -l) pictures"
