#!/usr/bin/env bash
# Reads in every file that a build ships how it is protected, and holds the engine's size. The files are those that are
# packed: installed, a component for each package, and stripped.
# usage: hardening.sh BUILD_FOLDER
set -euo pipefail
build=$1
shipped=$(mktemp -d)
trap 'rm -rf "$shipped"' EXIT
export LC_ALL=C

# What is shipped, and what can be seen in it: canaries where a function has a buffer, checked copies where it fills one
# from outside. The first five protections of the table hold for all.
expected='
kvq-console/kvq-console                                canaries checked
kvq-modem/kvq-modem                                    canaries checked
kvq-port-check/kvq-port-check                          canaries checked
kvq-port-check/kvq-port-conformance                    canaries checked
kvq-port-check/libkvq-port-fallback.so                 -        -
kvq-settings/kvq-settings                              canaries checked
libkvqcallsetupengine-dev/libkvqplatform.so            -        -
libkvqcallsetupengine1/libkvqcallsetupengine.so        canaries checked
libkvqcallsetupworker1/libkvqcallsetupworker.so        canaries -
libkvqplatform1-ofono/libkvqplatform.so                canaries checked
libkvqplatform1-simulator/libkvqplatform.so            canaries checked
qml6-module-kvq-callsetup/libkvqcallsetupqml.so        canaries -
qml6-module-kvq-callsetup/libkvqcallsetupqmlplugin.so  -        -
'

while read -r component; do
    DESTDIR=$shipped/$component cmake --install "$build" --prefix /usr --component "$component" --strip >/dev/null
done <"$build/packages.txt"

faults=0
fault() {
    echo "error: $*"
    faults=$((faults + 1))
}

# has WHAT FILE TEXT PATTERN: notes a fault when the text has no such line
has() {
    grep -Eq "$4" <<<"$3" && return
    fault "$2: $1"
}

count() { # FILE BYTES: how often they stand in it
    (grep -aobP "$2" "$1" || true) | wc -l
}

format='%-27s %-27s %8s  %-8s %s\n'
# shellcheck disable=SC2059
printf "$format" package file bytes machine marks
seen=""
while read -r path; do
    header=$(readelf -hW "$path" 2>/dev/null) || continue
    [[ $(grep Type: <<<"$header") == *REL\ * ]] && continue
    file=$(basename "${path%%.so*}")
    [[ $path == *.so* ]] && file+=.so
    package=${path#"$shipped"/}
    package=${package%%/*}
    machine=$(sed -n 's/^ *Machine: *//p' <<<"$header" | sed 's/.* //')
    marks=$(readelf -nW "$path" 2>/dev/null | sed -n 's/.*\(x86\|AArch64\) feature: *//p' | sed 's/, x86 ISA.*//')
    size=$(stat -c %s "$path")
    # shellcheck disable=SC2059
    printf "$format" "$package" "$file" "$size" "$machine" "$marks"
    seen+="$file"$'\n'

    segments=$(readelf -lW "$path")
    dynamic=$(readelf -dW "$path")
    symbols=$(readelf --dyn-syms -W "$path")
    has "it is not loaded at a place of its own" "$file" "$header" 'Type: +DYN'
    has "its tables stay writable" "$file" "$segments" '^ +GNU_RELRO '
    has "symbols are bound lazily" "$file" "$dynamic" '\(FLAGS(_1)?\).*NOW'
    has "its stack can be executed" "$file" "$segments" '^ +GNU_STACK .* RW +0x'
    ! grep -E '^ +LOAD .* RWE +0x' <<<"$segments" || fault "$file: a segment can be written and executed"
    ! grep TEXTREL <<<"$dynamic" || fault "$file: its code is changed at loading"
    ! grep -E '(RPATH|RUNPATH)' <<<"$dynamic" | grep -Fv '[$ORIGIN]' || fault "$file: it looks for libraries elsewhere"
    wanted=$(grep -E "^$package/$file " <<<"$expected") || fault "$package/$file is shipped, and not in this table"
    [[ $wanted != *canaries* ]] || has "no canaries" "$file" "$symbols" ' __stack_chk_(fail|guard)'
    [[ $wanted != *checked* ]] || has "no checked copies" "$file" "$symbols" ' __[a-z]+_chk(@|$| )'
    # A file is marked for landing pads only where the C library's start files are, so the pads themselves are looked for.
    # The start files bring fewer than ten. On ARM, what signs its return needs no other pad, and what calls nobody has no
    # return to sign.
    case $machine in
    X86-64)
        has "no shadow stack" "$file" "$marks" SHSTK
        (($(count "$path" '\xf3\x0f\x1e\xfa') > 10)) || fault "$file: no landing pads"
        ;;
    AArch64)
        signed=$(count "$path" '\x3f\x23\x03\xd5')
        [[ $wanted != *canaries* ]] || ((signed > 10)) || fault "$file: returns are not signed"
        ((signed + $(count "$path" '\x5f\x24\x03\xd5') > 10)) || fault "$file: no landing pads"
        ;;
    esac

    if [[ $file == libkvqcallsetupengine.so ]]; then
        limit=$((144 * 1024))
        [[ $machine != AArch64 ]] || limit=$((160 * 1024))
        ((size <= limit)) || fault "$file has $size bytes; its limit is $limit"
    fi
done < <(find "$shipped" -type f | sort)

grep -qx libkvqcallsetupengine.so <<<"$seen" || fault "the engine is missing"
((faults == 0))
