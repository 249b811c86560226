#!/usr/bin/env bash
# Makes the API reference in build/reference/html. A warning is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
need_packages doxygen
pages=build/reference-pages
rm -rf "$pages" build/reference
mkdir -p "$pages"
awk -v folder="$pages" -f scripts/subject_pages.awk include/PHONE_ENG_*.h
doxygen docs/Doxyfile
# A page of text is no file of declarations: the file list leads to headers only.
html=build/reference/html
sed -i '/^<tr.*md\(_source\)\?\.html/d; /^<tr.*[/>]\(docs\|build\|reference-pages\)</d; /^<tr.*\.md<\/\(a\|b\|span\)*>/d' "$html"/files.html
rm -f "$html"/*_8md.html "$html"/*_8md_source.html
grep -lE '<title>[^<]*: (docs|build|build/reference-pages) Directory' "$html"/dir_*.html | xargs -r rm
echo "build/reference/html/index.html"
