#!/usr/bin/env bash
# qmllint finds nothing in the settings application but delegates that use an id of the file they stand in.
# usage: qml_lint.sh CMAKE BUILD_FOLDER
set -euo pipefail
findings=$("$1" --build "$2" --target kvq_settings_qmllint kvq_settings_controls_qmllint kvq_desk_qmllint 2>&1 || true)

failures=$(grep -E '^(Warning|Error):' <<<"$findings" || true)
looked=0
while IFS=: read -r _ file line column _; do
    looked=$((looked + 1))
    word=$(sed -n "${line}p" "${file# }" | cut -c "$column-" | grep -oE '^[[:alnum:]_]+')
    grep -qE "^ *id: $word\$" "${file# }" || failures+=$'\n'"${file# }:$line:$column: $word is no id of this file"
done < <(grep -E '^Info: .*: Unqualified access' <<<"$findings")

if [[ -n $failures ]]; then
    echo "$failures"
    exit 1
fi
echo "$looked uses of what stands around a delegate"
((looked > 0)) # else the linter says it in other words by now
