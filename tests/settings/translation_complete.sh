#!/usr/bin/env bash
# Every text of the application is translated.
# usage: translation_complete.sh LUPDATE SETTINGS_FOLDER
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp "$2"/translations/*.ts "$scratch"
for file in "$scratch"/*.ts; do
    "$1" -silent -recursive "$2" -locations none -no-obsolete -ts "$file"
    if grep -B 3 'type="unfinished"' "$file"; then
        echo "error: $(basename "$file") lacks these texts" >&2
        exit 1
    fi
done
