# Puts files into a table of names and texts, to be included by a C++ source. A file whose path ends in ".h" goes into
# the folder "platform".
FNR == 1 {
    if (NR > 1) print ")file\"},"
    name = FILENAME
    sub(/.*\//, "", name)
    printf "    {\"%s\", R\"file(", (name ~ /\.h$/ ? "platform/" : "") name
}
{ print }
END { print ")file\"}," }
