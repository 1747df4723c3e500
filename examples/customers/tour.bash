# Customers: converts a delimited file into records of fixed width with new keys.
same_in_both+=(customers.dat)

run_customers() {
    local size=$1 folder=$2
    run_script "$size" "$folder" customers 'control totals agree' examples/customers/convert.vbs \
        "$(windows_path examples/customers/customers.csv)" "$(windows_path "$folder")"
}

# Makes table rows from records of fixed width. They have one byte for each character, and are converted at
# the very end.
record_rows() {
    tr '\000' ' ' <"$1" | LC_ALL=C awk -v count=12 '
        function cell(from, width, class,    text) {
            text = substr($0, from, width)
            gsub(/^ +| +$/, "", text)
            printf "<td%s>%s</td>", class, text
        }
        { line[NR] = $0 }
        END {
            for (i = 0; i < count; i++) {
                $0 = line[1 + int(i * (NR - 1) / (count - 1))]
                printf "<tr>"
                cell(1, 5); cell(6, 6); cell(12, 3); cell(15, 26); cell(41, 20)
                cell(61, 12, " class=n"); cell(73, 10); cell(83, 8, " class=n")
                print "</tr>"
            }
        }' | iconv -f WINDOWS-1252 -t UTF-8
}

page_customers() {
    cat <<END
<h2>Customers, converted by a script host</h2>
<table>
<tr><th>key<th>code<th>dep.<th>name<th>town<th class=n>balance<th>since<th class=n>invoice</tr>
$(record_rows "$1/customers.dat")
</table>
<details><summary>What the conversion printed</summary>
<pre>$(escaped <"$1/customers.txt")</pre>
</details>
END
}
