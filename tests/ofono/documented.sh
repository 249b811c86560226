#!/usr/bin/env bash
# Compares the table of docs/ofono.md with what the library exports: each has all that the other has.
#
# documented.sh LIBRARY DOCUMENT
set -euo pipefail

diff <(nm -DC --defined-only "$1" | cut -d' ' -f3- | grep -Eo '^(TAPI_|UTIL_|libaplog_)[A-Za-z0-9_]+' | sort -u) \
    <(sed -n '/^## Every function/,$p' "$2" | grep '^|' | cut -d'|' -f2 \
        | grep -Eo '`(TAPI_|UTIL_|libaplog_)[A-Za-z0-9_]+`' | tr -d '`' | sort -u)
