# Compares the clients' answers with what the cases expect and with one another:
#     awk -f compare.awk cases.txt expectations client.answers...
# A client may leave out a case with a reason, but no case may be left out by all.

function client_of(path) {
    sub(/.*\//, "", path)
    sub(/\.answers$/, "", path)
    return path
}

FILENAME == ARGV[1] { written[FNR] = $0; next }

{
    number = $1
    sub(/^[0-9]+ ?/, "")
}

FILENAME == ARGV[2] { expected[number] = $0; order[++cases] = number; next }

{
    key = client_of(FILENAME) SUBSEP number
    # What is no answer to a case is a message of the client's: it fails the run.
    if (!(number in expected) || key in answer) {
        print client_of(FILENAME) " also says: " number " " $0
        failed++
    }
    answer[key] = $0
}

END {
    if (cases == 0 || ARGC < 4) {
        print "nothing to compare"
        exit 2
    }
    for (i = 1; i <= cases; i++) {
        number = order[i]
        agreed = 0
        wrong = ""
        # By the arguments: a client that answered nothing at all has left no line to be known by.
        for (c = 3; c < ARGC; c++) {
            client = client_of(ARGV[c])
            key = client SUBSEP number
            given = key in answer ? answer[key] : "(no answer)"
            if (given ~ /^skip: /)
                skipped["not for " client ": " substr(given, 7)]++
            else if (given == expected[number])
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
        printf "cases.txt:%d: %s\n    %-9s %s\n%s", number, written[number], "expected", expected[number], wrong
        if (agreed > 0) printf "    the other clients: as expected\n"
    }
    for (reason in skipped) printf "%s (%d cases)\n", reason, skipped[reason]
    printf "%d passed, %d failed\n", passed, failed
    exit failed > 0
}
