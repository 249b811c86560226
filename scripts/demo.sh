#!/usr/bin/env bash
# Builds the engine and plays a tour of it on the simulated phone. With -i it opens the prompt instead.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

case "${1-}" in
"" | -i) ;;
*)
    echo "usage: scripts/demo.sh [-i]" >&2
    exit 2
    ;;
esac

need_packages "${build_packages[@]}"
echo "== Building"
cmake --preset release -DKVQ_BUILD_TESTS=OFF -DKVQ_BUILD_QML=OFF -B build/demo >/dev/null
cmake --build build/demo -- --quiet

if [[ ${1-} == -i ]]; then
    exec build/demo/console/kvq-console
fi
settings=$(mktemp -d)
trap 'rm -rf "$settings"' EXIT
echo "== The tour"
build/demo/console/kvq-console --settings "$settings/settings.db" --script console/tour.kvq --echo
