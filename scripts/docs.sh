#!/usr/bin/env bash
# Makes the API reference in build/reference/html. A warning is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
need_packages doxygen
mkdir -p build
doxygen docs/Doxyfile
echo "build/reference/html/index.html"
