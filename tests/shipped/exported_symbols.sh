#!/usr/bin/env bash
# Holds what a library exports against the list of its documented symbols, all bound to one version.
# usage: exported_symbols.sh LIBRARY LIST [--update]
set -euo pipefail
library=$1 list=$2

exported=$(nm -D --defined-only --with-symbol-versions "$library" | awk '$3 != "VERSION" { print $3 }' |
    c++filt | sed 's/QStringList/QList<QString>/' | LC_ALL=C sort -u) # one type in two generations of the toolkit
if [[ ${3-} == --update ]]; then
    printf '%s\n' "$exported" >"$list"
    exit
fi
diff -u "$list" <(printf '%s\n' "$exported") || {
    echo "The exported symbols differ from $list. If that is meant, run this script with --update." >&2
    exit 1
}
if grep -v '@@VERSION$' <<<"$exported"; then
    echo "These symbols are not bound to VERSION." >&2
    exit 1
fi
