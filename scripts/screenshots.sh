#!/usr/bin/env bash
# Draws every page of the settings application to PNG, without a display: light and dark, on a phone and on a large
# screen. The folder is build/screenshots unless another one is given.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

if (($# > 1)) || [[ ${1-} == -* ]]; then
    echo "usage: scripts/screenshots.sh [FOLDER]" >&2
    exit 2
fi
folder=${1:-build/screenshots}
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)

need_packages "${build_packages[@]}" "${qml_packages[@]}"
echo "== Building"
cmake --preset release -DKVQ_BUILD_TESTS=OFF -DKVQ_BUILD_QML=ON -B build/demo >/dev/null
cmake --build build/demo --target kvq-settings kvqcallsetupqmlplugin -- --quiet

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
    local name=$1 theme size
    shift
    for theme in light dark; do
        for size in 320x568 1280x800; do
            build/demo/settings/kvq-settings --no-desk --reduced-motion --theme "$theme" --size "$size" \
                --screenshot "$folder/$name-$theme-$size.png" "$@" 2>"$private/log" || {
                cat "$private/log" >&2
                echo "error: $name was not drawn" >&2
                exit 1
            }
        done
    done
}

echo "== Drawing into $folder"
draw list
for page in calls preferences speed-dial video forwarding caller-id costs lines security own-numbers networks \
    preferred about; do
    draw "$page" --page "$page"
done
draw calls-incoming --page calls --phone "ring +491715550100"
draw incoming-elsewhere --page costs --phone "ring +491715550100"
draw busy --page forwarding --phone "delay 20000" --screenshot-after 1500
draw failed --page forwarding --phone "fail TAPI_CS_GetDivertStatus 0x8000"
draw choice --page caller-id --press restriction
draw pin --page security --press change-pin
draw number --page forwarding --press no-reply
for theme in light dark; do
    build/demo/settings/kvq-settings --theme "$theme" --screenshot-of desk --screenshot "$folder/desk-$theme.png" \
        2>/dev/null
done
echo "$(find "$folder" -name '*.png' | wc -l) pictures"
