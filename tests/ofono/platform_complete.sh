#!/usr/bin/env bash
# Compares what two platform libraries define: every platform function of the first must be in the second, and the
# second must export nothing else.
#
# platform_complete.sh FIRST SECOND
set -euo pipefail

platform='^(TAPI_|UTIL_|libaplog_)|^(vtable for |typeinfo for |typeinfo name for )?(KPTT_API_ReqDevice|PHONE_ENG_PTTCallManager|PHONE_Msg|QCopChannel|SETUP_SET_Manager|SETUP_Utility|UTIL_Language|ZKbConfig)'

symbols() {
    nm -DC --defined-only "$1" | cut -d' ' -f3- | sort -u
}

missing=$(comm -23 <(symbols "$1" | grep -E "$platform") <(symbols "$2"))
extra=$(symbols "$2" | grep -Ev "$platform" || true)
[[ -z $missing && -z $extra ]] && exit 0
[[ -z $missing ]] || printf '%s lacks:\n%s\n' "$2" "$missing"
[[ -z $extra ]] || printf '%s exports besides:\n%s\n' "$2" "$extra"
exit 1
