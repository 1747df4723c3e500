# Turns the files of cases into one of
#   -v target=vbs        the calls as VBScript statements, in UTF-8
#   -v target=js         the calls as JScript statements
#   -v target=expected   the expected answers, as every client writes them, each before a tab and its case
# for the cases of -v language=fr or en. Plain awk, bytes throughout: run it with LC_ALL=C.

function fail(what) {
    printf "%s:%d: %s\n", FILENAME, FNR, what > "/dev/stderr"
    failed = 1
    exit 2
}

# --- reading ---

# `rest` is the unread part of the line; each reading function removes its match from it.
function skip_blanks() { sub(/^[ ]+/, "", rest) }

function take(pattern,    found) {
    skip_blanks()
    if (!match(rest, "^" pattern)) return 0
    taken = substr(rest, 1, RLENGTH)
    rest = substr(rest, RLENGTH + 1)
    return 1
}

function need(pattern) {
    if (!take(pattern)) fail("expected " pattern " before: " rest)
}

# A text consists of pieces: piece[i] is the text between the quotes, repeated times[i].
function take_text() {
    pieces = 0
    do {
        need("\"([^\"\\\\]|\\\\.)*\"")
        piece[++pieces] = substr(taken, 2, length(taken) - 2)
        times[pieces] = take("\\*[0-9]+") ? substr(taken, 2) + 0 : 1
    } while (take("\\+"))
}

# Reads one value; sets kind and, unless it is a text, value.
function take_value() {
    skip_blanks()
    value = ""
    if (substr(rest, 1, 1) == "\"") {
        kind = "text"
        take_text()
    } else if (take("-?[0-9]+(\\.[0-9]+)?[%&!#@b]?")) {
        value = taken
        kind = "%"
        if (match(value, /[%&!#@b]$/)) {
            kind = substr(value, RSTART)
            value = substr(value, 1, RSTART - 1)
        }
    } else if (take("D[0-9]+-[0-9]+-[0-9]+")) {
        kind = "date"
        value = substr(taken, 2)
    } else if (take("(True|False|Empty|Null|Nothing)")) {
        kind = taken
    } else {
        fail("no value: " rest)
    }
}

# The next unit of a piece from position i: one character or one escape.
function unit_at(text, i,    c) {
    c = substr(text, i, 1)
    if (c != "\\") return c
    c = substr(text, i + 1, 1)
    if (c == "u") return substr(text, i, 6)
    if (c == "\\" || c == "\"") return substr(text, i, 2)
    fail("no such escape: " substr(text, i, 2))
}

function number_of(hexadecimal,    i, result) {
    result = 0
    for (i = 1; i <= length(hexadecimal); i++)
        result = result * 16 + index("0123456789abcdef", tolower(substr(hexadecimal, i, 1))) - 1
    return result
}

# The character code of a unit.
function code_of(unit) {
    if (length(unit) == 6) return number_of(substr(unit, 3))
    return index(printable, substr(unit, length(unit))) + 31
}

# --- writing ---

function utf8(code) {
    if (code < 128) return sprintf("%c", code)
    if (code < 2048) return sprintf("%c%c", 192 + int(code / 64), 128 + code % 64)
    return sprintf("%c%c%c", 224 + int(code / 4096), 128 + int(code / 64) % 64, 128 + code % 64)
}

# A text as the clients write it: runs of more than 9 equal characters are counted.
function canonical_text(    i, j, n, result, unit, last, run) {
    result = "\""
    last = ""
    run = 0
    for (i = 1; i <= pieces; i++)
        for (n = 0; n < times[i]; n++)
            for (j = 1; j <= length(piece[i]); j += length(unit)) {
                unit = unit_at(piece[i], j)
                if (unit == last) {
                    run++
                } else {
                    result = result run_of(last, run)
                    last = unit
                    run = 1
                }
            }
    return result run_of(last, run) "\""
}

function run_of(unit, count,    result) {
    if (count > 9) return unit "\\*" count ";"
    result = ""
    while (count-- > 0) result = result unit
    return result
}

function vbs_text(    i, result) {
    result = ""
    for (i = 1; i <= pieces; i++) {
        if (i > 1) result = result " & "
        if (times[i] == 1)
            result = result vbs_literal(piece[i])
        else
            result = result "Repeat(" vbs_literal(piece[i]) ", " times[i] ")"
    }
    return result
}

# Control characters have no literal.
function vbs_literal(text,    i, unit, code, result, quoted) {
    result = ""
    quoted = 0
    for (i = 1; i <= length(text); i += length(unit)) {
        unit = unit_at(text, i)
        code = code_of(unit)
        if (code < 32) {
            if (quoted) result = result "\""
            result = result (i > 1 ? " & " : "") "Chr(" code ")"
            quoted = 0
        } else {
            if (!quoted) result = result (i > 1 ? " & \"" : "\"")
            result = result (code == 34 ? "\"\"" : utf8(code))
            quoted = 1
        }
        if (code > 255 && !index(windows_1252, sprintf("%04x", code)))
            inexpressible = "its files are read in Windows-1252, which lacks a character"
    }
    if (text == "") return "\"\""
    return result (quoted ? "\"" : "")
}

function vbs_value(    parts) {
    if (kind == "text") return vbs_text()
    if (kind == "%") return "CInt(" value ")"
    if (kind == "&") return "CLng(" value ")"
    if (kind == "!") return "CSng(" value ")"
    if (kind == "#") return "CDbl(" value ")"
    if (kind == "@") return "CCur(" value ")"
    if (kind == "b") return "CByte(" value ")"
    if (kind == "date") {
        split(value, parts, "-")
        return "DateSerial(" parts[1] + 0 ", " parts[2] + 0 ", " parts[3] + 0 ")"
    }
    return kind
}

function js_text(    i, result) {
    result = ""
    for (i = 1; i <= pieces; i++) {
        if (i > 1) result = result " + "
        if (times[i] == 1)
            result = result "\"" piece[i] "\""
        else
            result = result "repeat(\"" piece[i] "\", " times[i] ")"
    }
    return result
}

function js_value() {
    if (kind == "text") return js_text()
    if (kind == "%" || kind == "&" || kind == "#" || kind == "b") return value
    if (kind == "True" || kind == "False") return tolower(kind)
    if (kind == "Empty") return "undefined"
    if (kind == "Null") return "null"
    if (kind == "!") inexpressible = "the language has no singles"
    if (kind == "@") inexpressible = "the language has no currency"
    if (kind == "date") inexpressible = "the engine hands out no automation dates"
    if (kind == "Nothing") inexpressible = "null is Null, there is no Nothing"
    return "null"
}

function literal() { return target == "vbs" ? vbs_value() : js_value() }

# How the case uses the member: use is call, get or put.
function statement(    called) {
    called = target == "vbs" ? "o." member : "o[\"" member "\"]"
    if (use == "put") return called " = " arguments
    if (use == "call") called = called "(" arguments ")"
    return (target == "vbs" ? "r = " : "return ") called
}

# Reads the arguments of a call; the variables and their values go to variable and held.
function take_arguments(    count, separator, by_reference, written) {
    need("\\(")
    for (count = 0; !take("\\)"); count++) {
        if (count > 0) need(",")
        separator = count > 0 ? ", " : ""
        skip_blanks()
        if (rest ~ /^,/) {
            if (target == "js") inexpressible = "the language has no argument left out but at the end"
            arguments = arguments separator
            continue
        }
        by_reference = take("ref ")
        take_value()
        if (target == "expected") continue
        written = literal()
        if (by_reference) {
            variable[++variables] = written
            held[variables] = canonical_variable()
            written = target == "vbs" ? "v" variables : "v[" variables - 1 "]"
        }
        arguments = arguments separator written
    }
}

# Reads the expected result: a value, or the number of a failure.
function take_answer() {
    if (take("error [0-9]+")) {
        answer = taken
        return
    }
    if (use == "put") fail("writing gives no value: " rest)
    take_value()
    answer = canonical_result()
    if (target == "js" && (kind == "@" || kind == "date"))
        inexpressible = "the engine takes neither currency nor dates"
}

# A call with its variables named v1, v2, ...
function emit(    place, separator, i) {
    if (inexpressible != "") {
        printf target == "vbs" ? "Skip \"%s\", \"%s\"\n" : "skip(\"%s\", \"%s\");\n", place_of_case(), inexpressible
    } else if (target == "vbs") {
        for (i = 1; i <= variables; i++) printf "v%d = %s\n", i, variable[i]
        printf "r = Empty\n%s\nAnswer \"%s\", r, %d\n", statement(), place_of_case(), variables
    } else {
        printf "answer(\"%s\", function (v) { %s; }, [", place_of_case(), statement()
        for (i = 1; i <= variables; i++) printf "%s%s", (i > 1 ? ", " : ""), variable[i]
        printf "]);\n"
    }
}

# The value of a variable, whatever its type.
function canonical_variable() {
    if (kind == "text") return canonical_text()
    if (kind == "date") return "D" value
    return value == "" ? kind : value
}

# A result has a type as well.
function canonical_result() { return canonical_variable() (kind ~ /^[%&!#@b]$/ ? kind : "") }

# A name in VBScript; in JScript its escapes are kept.
function plain_name(name,    i, unit, result) {
    if (target != "vbs") return name
    result = ""
    for (i = 1; i <= length(name); i += length(unit)) {
        unit = unit_at(name, i)
        result = result utf8(code_of(unit))
    }
    return result
}

function emit_class(name) {
    if (target == "vbs") printf "Set o = Nothing\nSet o = CreateObject(\"Vorla6.%s\")\n", name
    if (target == "js") printf "o = new ActiveXObject(\"Vorla6.%s\");\n", name
}

# The current case by its file and line.
function place_of_case(    file) {
    file = FILENAME
    sub(/.*\//, "", file)
    sub(/\.txt$/, "", file)
    return file ":" FNR
}

BEGIN {
    for (i = 32; i < 127; i++) printable = printable sprintf("%c", i)
    # The characters of the codes 0x80 to 0x9f in Windows-1252.
    windows_1252 = "20ac 201a 0192 201e 2026 2020 2021 02c6 2030 0160 2039 0152 017d 2018 2019 201c " \
                   "201d 2022 2013 2014 02dc 2122 0161 203a 0153 017e 0178"
}

FNR == 1 { class = "" }

/^ *(#|$)/ { next }

{ rest = $0 }

take("class ") {
    need("[A-Za-z\\\\][A-Za-z0-9\\\\]*")
    class = taken
    if (rest != "") fail("left over: " rest)
    emit_class(plain_name(class))
    next
}

{
    if (class == "") fail("a file begins with its class")
    need("[A-Za-z\\\\][A-Za-z0-9_\\\\]*")
    member = plain_name(taken)
    inexpressible = ""
    arguments = ""
    variables = 0
    use = take(":=") ? "put" : rest ~ /^ *\(/ ? "call" : "get"
    if (use == "call") take_arguments()
    if (use == "put") {
        take_value()
        if (target != "expected") arguments = literal()
        answer = "Empty"
    }
    # Writing has no result unless it fails.
    if (use != "put" || rest ~ /^ *=/) {
        need("=")
        take_answer()
    }
    for (count = 1; take("ref "); count++) {
        take_value()
        answer = answer " ref " canonical_variable()
        if (target == "js" && canonical_variable() != held[count])
            inexpressible = "the language passes values, no variables"
    }
    wanted = 1
    while (take("\\[(fr|en)\\]")) wanted = taken == "[" language "]"
    skip_blanks()
    if (rest != "") fail("left over: " rest)
    if (!wanted) next
    if (target == "expected")
        printf "%s %s\t%s\n", place_of_case(), answer, $0
    else
        emit()
}

END { if (failed) exit 2 }
