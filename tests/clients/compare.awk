# Compares the clients' answers with the expected ones and with one another:
#     awk -f compare.awk expectations client.answers...
# A client may skip a case with a reason, but at least one client must answer it.

function client_of(path) {
    sub(/.*\//, "", path)
    sub(/\.answers$/, "", path)
    return path
}

# A language with a single numeric type answers "6?" for a 6 of any type.
function fits(given, wanted) {
    if (given ~ /^-?[0-9][^ "]*\?/) {
        sub(/\?/, "", given)
        sub(/[%&!#@b]/, "", wanted)
    }
    return given == wanted
}

{
    name = $1
    sub(/^[^ ]* ?/, "")
}

FILENAME == ARGV[1] {
    split($0, parts, "\t")
    expected[name] = parts[1]
    written[name] = parts[2]
    order[++cases] = name
    next
}

{
    key = client_of(FILENAME) SUBSEP name
    # A line that answers no case is a message from the client: it fails the run.
    if (!(name in expected) || key in answer) {
        print client_of(FILENAME) " also says: " name " " $0
        failed++
    }
    answer[key] = $0
}

END {
    if (cases == 0 || ARGC < 3) {
        print "nothing to compare"
        exit 2
    }
    for (i = 1; i <= cases; i++) {
        name = order[i]
        agreed = 0
        wrong = ""
        # Taken from the arguments, because a client that answers nothing has no lines.
        for (c = 2; c < ARGC; c++) {
            client = client_of(ARGV[c])
            key = client SUBSEP name
            given = key in answer ? answer[key] : "(no answer)"
            if (given ~ /^skip: /)
                skipped["not for " client ": " substr(given, 7)]++
            else if (fits(given, expected[name]))
                agreed++
            else
                wrong = wrong sprintf("    %-9s %s\n", client, given)
        }
        if (wrong == "" && agreed == 0) wrong = "    no client made the call\n"
        if (wrong == "") {
            passed++
            continue
        }
        failed++
        printf "%s: %s\n    %-9s %s\n%s", name, written[name], "expected", expected[name], wrong
        if (agreed > 0) printf "    the other clients: as expected\n"
    }
    for (reason in skipped) printf "%s (%d cases)\n", reason, skipped[reason]
    printf "%d passed, %d failed\n", passed, failed
    exit failed > 0
}
