# Makes the table behind .help from the documentation of the exported headers:
# {"PHONE_ENG_Setup", "setLineNo", 1, "what it does", "name\ttext\n...", "result", "platform", "subject"}.
# The number counts the declarations of one name. A setter without a sentence of its own is told with its getter.
# usage: awk -f help.awk HEADER...

function clean(text) {
    gsub(/@(p|e|c) /, "", text)
    gsub(/[`#]/, "", text)
    gsub(/[ \t]+/, " ", text)
    sub(/^ /, "", text)
    sub(/ $/, "", text)
    return text
}

function literal(text) {
    return "R\"help(" text ")help\""
}

# Takes a comment apart: sentence, parameters, result, platform.
function take(comment,    parts, count, part, text, name) {
    own = parameters = result = platform = ""
    gsub(/@param/, "\001P", comment)
    gsub(/@return/, "\001R", comment)
    gsub(/@platform/, "\001A", comment)
    count = split(comment, parts, "\001")
    own = clean(parts[1])
    for (part = 2; part <= count; part++) {
        text = clean(substr(parts[part], 2))
        if (parts[part] ~ /^R/) result = text
        else if (parts[part] ~ /^A/) platform = text
        else {
            sub(/^\[[a-z,]*\] /, "", text)
            name = text
            sub(/ .*/, "", name)
            parameters = parameters name "\t" substr(text, length(name) + 2) "\n"
        }
    }
}

# "Line" of setLine, isLine, getLine and currentLine.
function thing_of(name) {
    sub(/^(set|is|get|current)/, "", name)
    return name
}

function declared(text,    name, type, sentence) {
    gsub(/PHONE_ENG_API |static |virtual |explicit |Q_OBJECT/, "", text)
    if (text !~ /\(/ || text ~ /^ *(using|static_assert)/) return
    type = clean(substr(text, 1, index(text, "(") - 1))
    match(type, /~?[A-Za-z0-9_]+$/)
    name = substr(type, RSTART)
    type = clean(substr(type, 1, RSTART - 1))
    if (comment != "") take(comment)
    sentence = own
    if (comment == "" || own == "" || own == "Guarded.") {
        if (name ~ /^set[A-Z]/ && previous !~ /^set/ && thing_of(name) == thing_of(previous))
            sentence = clean("With " previous "(): " told (comment == "" ? "" : " " own))
        if (comment == "") { result = ""; platform = "" }
    } else {
        told = own
        previous = name
    }
    if (result == "" && type ~ /TAPI_RESULT_E$/) result = "the platform's result"
    if (result == "" && type == "bool" && face ~ /NtInterface/) result = "true when the platform answered 0"
    if (result == "" && type == "bool" && name ~ /^set/) result = "whether it was stored durably"
    printf "    {%s, %s, %d, %s, %s, %s, %s, %s},\n", literal(face), literal(name), ++seen[face, name],
        literal(sentence), literal(parameters), literal(result), literal(platform), literal(subject)
    comment = ""
}

FNR == 1 { face = subject = comment = declaration = previous = "" }

/^ *\/\*\*/ { inside = 1; text = "" }
inside {
    line = $0
    ended = line ~ /\*\//
    sub(/^ *\/\*\*/, "", line)
    sub(/\*\/.*/, "", line)
    sub(/^ *\* ?/, "", line)
    if (line ~ /@name /) line = line ":" # a heading
    text = text " " line
    if (!ended) next
    inside = 0
    if (text ~ /@name /) {
        subject = text
        sub(/.*@name /, "", subject)
        sub(/@\{.*/, "", subject)
        subject = clean(subject)
        sub(/:$/, "", subject)
        previous = ""
    } else if (text ~ /@file|@\}/) {
        comment = ""
    } else {
        comment = text
    }
    next
}
/^class .*\{/ { face = $3; sub(/:.*/, "", face); comment = ""; next }
/^\};/ { face = subject = comment = ""; next }
/^ *(\/\/|#)|^ *$|:$|^[{}]|extern "C" \{/ { next }
{
    declaration = declaration " " $0
    sub(/ *\/\/.*/, "", declaration)
    if (declaration !~ /[;{}]/) next
    if (declaration ~ /;/) declared(declaration)
    declaration = ""
}
