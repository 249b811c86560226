#!/usr/bin/env bash
# Asks the scripts' need_packages on machines of several kinds, played by stand-ins for dpkg and apt-get.
# usage: packages_script.sh PACKAGES_SCRIPT
set -euo pipefail
script=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The machine: its packages stand in a file, "NAME STATUS ARCHITECTURE" a line.
stand_in() {
    printf '#!/bin/sh\n%s\n' "$2" >"$scratch/$1"
    chmod +x "$scratch/$1"
}
# shellcheck disable=SC2016
{
    stand_in dpkg-query 'for name; do :; done
        sed -n "s/^$name //p" "$MACHINE" | grep . || { echo "no packages found matching $name" >&2; exit 1; }'
    stand_in dpkg 'case $1 in
        --print-architecture) echo amd64 ;;
        --add-architecture) echo "add $2" >>"$DONE" ;;
        esac'
    stand_in apt-get 'case $1 in install) shift; echo "$*" | sed "s/.*recommends //" >>"$DONE" ;; esac'
    stand_in sudo 'exec "$@"'
}

# expect WHAT_IS_DONE NAME... : on the machine that standard input describes
expect() {
    local done
    cat >"$scratch/machine"
    : >"$scratch/done"
    PATH=$scratch:$PATH MACHINE=$scratch/machine DONE=$scratch/done \
        bash -euo pipefail -c 'source "$0"; need_packages "$@"' "$script" "${@:2}" >/dev/null
    done=$(paste -sd, "$scratch/done")
    [[ $done == "$1" ]] || {
        echo "asked for ${*:2}, expected \"$1\" to be done but \"$done\" was, on" >&2
        cat "$scratch/machine" >&2
        exit 1
    }
}

expect "" one tools <<<$'one installed amd64\ntools installed all'
expect "three" one three <<<"one installed amd64"
expect "" one <<<$'one installed amd64\none installed arm64'
expect "one" one <<<"one installed arm64"
expect "one" one <<<$'one config-files amd64\none installed arm64'
expect "" one:arm64 one <<<$'one installed arm64\none installed amd64'
expect "add arm64,one:arm64" one one:arm64 <<<"one installed amd64"
echo "asks for what is missing"
