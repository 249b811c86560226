#!/usr/bin/env bash
# Compares what two programs load: the same engine, but a platform of their own.
#
# same_engine.sh FIRST SECOND
set -euo pipefail

# loaded PROGRAM LIBRARY: the file that the program finds for it
loaded() {
    ldd "$1" | awk -v name="$2" '$1 == name { print $3 }' | xargs readlink -f
}

cmp "$(loaded "$1" libkvqcallsetupengine.so.1)" "$(loaded "$2" libkvqcallsetupengine.so.1)"
first=$(loaded "$1" libkvqplatform.so.1)
second=$(loaded "$2" libkvqplatform.so.1)
if [[ $first == "$second" ]]; then
    echo "both load $first"
    exit 1
fi
