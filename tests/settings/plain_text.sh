#!/usr/bin/env bash
# Every text of the screens is plain: it is shown by PlainText, and what is read aloud has gone through Plain.
# usage: plain_text.sh SOURCE_FOLDER
set -euo pipefail
cd "$1"
mapfile -t files < <(find settings docs -name '*.qml' -not -path 'docs/example/*' | sort)

# lint FILES...: tells what breaks the rule, each on a line
lint() {
    awk '
    FNR == 1 { depth = 0 }
    {
        line = $0
        sub(/^ *\/\/.*/, "", line)
        place = FILENAME ":" FNR ": "
        words = line
        gsub(/"([^"\\]|\\.)*"/, "\"\"", words)

        if (FILENAME !~ /\/PlainText\.qml$/ && words ~ /(^|[^A-Za-z.])(T\.|Controls\.)?(Text|Label|TextEdit|TextArea) *\{/)
            print place "use PlainText, which takes no markup"
        if (FILENAME !~ /\/PlainText\.qml$/ && words ~ /textFormat/)
            print place "the format of text is for PlainText to say"
        if (words ~ /^ *text:/ && kind[depth] ~ /^(PlainText|DeskText)$/)
            print place "give PlainText its words, not its text"
        if (words ~ /Accessible\.(name|description):/ && words !~ /Plain\.shown\(/ \
            && words !~ /Accessible\.(name|description): qsTr\(""\)$/ \
            && !(words ~ /: text$/ && kind[depth] ~ /^(PlainText|DeskText)$/))
            print place "what is read aloud goes through Plain.shown()"

        opened = words ~ /[A-Z][A-Za-z]* \{$/ ? words : ""
        sub(/ \{$/, "", opened)
        sub(/.*[ .]/, "", opened)
        for (at = 1; at <= length(words); ++at) {
            character = substr(words, at, 1)
            if (character == "{")
                kind[++depth] = opened
            else if (character == "}")
                --depth
        }
    }' "$@"
}

# The rule itself catches what it is for.
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cat >"$scratch/Bad.qml" <<'QML'
Item {
    Text {
        text: caller.number
    }
    contentItem: Label { text: "" }
    PlainText {
        text: caller.number
        textFormat: Text.RichText
    }
    Accessible.name: caller.number
    Accessible.description: qsTr("%1 calls").arg(caller.number)
}
QML
found=$(lint "$scratch/Bad.qml" | wc -l)
((found == 6)) || {
    echo "the rule found $found of 6 faults:"
    lint "$scratch/Bad.qml"
    exit 1
}

failures=$(lint "${files[@]}")
# An example of a shell of its own has no PlainText. There each text says its format itself.
for example in docs/example/*.qml; do
    (($(grep -cE '(^|[ :])Text \{' "$example") == $(grep -c 'textFormat: Text.PlainText' "$example"))) ||
        failures+="$example: each Text says textFormat: Text.PlainText"
done
if [[ -n $failures ]]; then
    echo "$failures"
    exit 1
fi
echo "${#files[@]} files"
((${#files[@]} > 50))
