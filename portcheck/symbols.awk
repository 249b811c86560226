# Makes the table of what a platform library must define from what "nm -A --defined-only" tells of the skeleton's
# objects: {"TAPI_CS.h", "TAPI_CS_GetLine"}.
{
    header = $1
    sub(/:[0-9a-fA-F]*$/, "", header)
    sub(/.*\//, "", header)
    sub(/\.cpp\..*/, "", header)
    kind = $(NF - 1)
    symbol = $NF
    # Functions and data that others see; of a constructor and a destructor the complete one, which is what is called.
    if (kind !~ /^[TDB]$/ || symbol ~ /^__/ || symbol ~ /^_Z(GV|T[A-Z])/ || symbol ~ /(C2|D2|D0)E/) next
    printf "    {\"%s.h\", \"%s\"},\n", header, symbol
}
