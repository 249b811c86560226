# Reads platform headers and defines what each one declares: the skeleton of a port, a source a header.
# usage: awk -v folder=FOLDER -f declarations.awk HEADER...
# A header that declares no function has no source. What a function answers stands in answer_of().
# usage: awk -v names=1 -f declarations.awk HEADER...
# Lists the functions by name instead, for the table of a C++ source.

BEGIN {
    # Answers that are not plain "no": what the headers promise to a caller who is told nothing.
    body["UTIL_GetCallChargeType"] = "return -1; // none is cached"
    body["TAPI_CLIENT_GetSyncSocketFd"] = "return -1; // there is no client yet"
    body["TAPI_SECURITY_GetNumOfUsim"] = body["TAPI_SECURITY_GetUsimList"] = \
        "return static_cast<_TAPI_RESULT_E>(1); // the only failure that the engine knows here"
    body["getPTTActiveCallId"] = "return 255; // there is none"
    body["instance"] = "static PHONE_ENG_PTTCallManager manager = {};\n    return &manager;"
    body["getSettingInfo"] = "value = defaultValue;\n    return false;"
    body["setSettingInfo"] = body["flush"] = "errno = ENOSYS;\n    return false;"
    initializer["PHONE_Msg::PHONE_Msg"] = "\n    : QObject(parent)"
    include["SETUP_SET_Manager"] = "#include <cerrno>"
    include["LogModule"] = "#include <cstdio>"
}

function trimmed(text) {
    gsub(/[ \t\n]+/, " ", text)
    sub(/^ /, "", text)
    sub(/ $/, "", text)
    return text
}

function answer_of(type, name, scope) {
    if (type == "" || type == "void") return ""
    if (name in body) return body[name]
    # A request to the push-to-talk service that is not there is refused.
    if (scope == "KPTT_API_ReqDevice") return "return 1;"
    if (type == "_TAPI_RESULT_E") return "return TAPI_RESULT_NOT_SUPPORTED;"
    if (type == "bool") return "return false;"
    if (type ~ /\*$/) return "return nullptr;"
    return "return 0;"
}

function define(declaration, scope,    open, head, name, type, arguments, answer) {
    gsub(/\[\[[^]]*\]\]|static |virtual |explicit | override|extern "C"/, "", declaration)
    declaration = trimmed(declaration)
    open = index(declaration, "(")
    head = trimmed(substr(declaration, 1, open - 1))
    arguments = substr(declaration, open)
    match(head, /[~A-Za-z0-9_]+$/)
    name = substr(head, RSTART)
    type = trimmed(substr(head, 1, RSTART - 1))
    if (names) {
        printf "\"%s\",\n", scope == "" || substr(name, length(name) - length(scope) + 1) == scope ? name : scope "::" name
        return
    }
    answer = answer_of(type, name, scope)
    if (scope != "") name = scope "::" name
    definitions = definitions "\n" type (type == "" || type ~ /\*$/ ? "" : " ") name arguments initializer[name] \
        "\n{\n" (answer == "" ? "" : "    " answer "\n") "}\n"
}

function finish(    file) {
    if (header == "" || definitions == "") return
    file = folder "/" header ".cpp"
    printf "// What %s.h declares. Every function says no until you write it.\n#include \"%s.h\"\n", header, header > file
    if (header in include) printf "\n%s\n", include[header] > file
    printf "%s", definitions > file
    close(file)
}

# One statement of a header, or the head of a block.
function statement(text, ending,    scope) {
    text = trimmed(text)
    while (match(text, /^(public|private|protected): ?/)) {
        hidden[depth] = text !~ /^public/
        text = substr(text, RLENGTH + 1)
    }
    if (ending == "{") {
        depth++
        scopes[depth] = ""
        hidden[depth] = hidden[depth - 1]
        if (text ~ /^(class|struct) /) {
            scope = text
            sub(/^(class|struct) (\[\[[^]]*\]\] )?/, "", scope)
            sub(/[^A-Za-z0-9_].*/, "", scope)
            scopes[depth] = scope
            hidden[depth] = text ~ /^class/
        } else if (text !~ /^extern "C"$|^namespace/) {
            hidden[depth] = 1 # enumerators and bodies
        }
    } else if (ending == "}") {
        depth--
    } else if (hidden[depth] || text ~ /^(static_assert|typedef|using|constexpr|friend)/ || text ~ /= (delete|default)$/) {
        return
    } else if (text ~ /\(/) {
        define(text, scopes[depth])
    } else if (text ~ /^extern /) {
        sub(/^extern /, "", text)
        definitions = definitions "\n" text " = nullptr;\n"
    }
}

function parse(    position, character, text) {
    gsub(/\/\*([^*]|\*+[^*\/])*\*+\//, " ", source)
    depth = 0
    scopes[0] = ""
    hidden[0] = 0
    for (position = 1; position <= length(source); position++) {
        character = substr(source, position, 1)
        if (character ~ /[;{}]/) {
            statement(text, character)
            text = ""
        } else {
            text = text character
        }
    }
}

FNR == 1 {
    if (NR > 1) { parse(); finish() }
    header = FILENAME
    sub(/.*\//, "", header)
    sub(/\.h$/, "", header)
    source = definitions = ""
}
{ sub(/\/\/.*/, "") }
!/^ *#/ { source = source $0 "\n" }
END { parse(); finish() }
