# Makes a page for each subject of the exported headers: its introduction and its operations, linked.
# A subject is what a header puts between "@name" and "@}".
function finish_page() {
    if (page != "") close(page)
    page = ""
}
BEGIN { print "# Subjects {#subjects}\n" > (folder "/subjects.md") }
FNR == 1 { face = FILENAME; sub(/.*\//, "", face); sub(/\.h$/, "", face) }
/\/\*\* @name / {
    finish_page()
    title = $0
    sub(/.*@name /, "", title)
    id = face "_" title
    gsub(/[^A-Za-z0-9]/, "_", id)
    page = folder "/" id ".md"
    printf "# %s: %s {#%s}\n\n", face, title, id > page
    print "- @subpage " id > (folder "/subjects.md")
    introduction = 1
    next
}
page != "" && introduction {
    if (/@\{/) { introduction = 0; print "\n## Operations\n" > page; next }
    line = $0
    sub(/^ *\* ?/, "", line)
    gsub(/@e /, "", line)
    print line > page
    next
}
/@\} \*\// { finish_page() }
page != "" && match($0, /[A-Za-z0-9_]+\(/) && !/^ *(\*|\/\*)/ {
    name = substr($0, RSTART, RLENGTH - 1)
    if (name == face || seen[page, name]++) next
    printf "- %s%s()\n", (face ~ /WrapTapi/ ? "" : face "::"), name > page
}
