#!/usr/bin/env bash
# Holds the binary interface of a library against the stored description of version 1.
# usage: abi_description.sh LIBRARY DESCRIPTION [--update]
set -euo pipefail
library=$1 description=$2

if [[ ${3-} == --update ]]; then
    abidw --no-corpus-path --no-comp-dir-path --no-show-locs --exported-interfaces-only "$library" \
        >"$description"
    exit
fi
abidiff --no-corpus-path --no-architecture "$description" "$library" || {
    echo "The binary interface differs from $description." >&2
    exit 1
}
echo "the binary interface is that of version 1"
