#!/usr/bin/env bash
# Makes the API reference in build/reference/html. A warning is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
need_packages doxygen
pages=build/reference-pages
rm -rf "$pages"
mkdir -p "$pages"
awk -v folder="$pages" -f scripts/subject_pages.awk include/PHONE_ENG_*.h
doxygen docs/Doxyfile
echo "build/reference/html/index.html"
