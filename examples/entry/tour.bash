# Entry: a form whose keys are filtered, whose criteria are put in order, and whose frames are disabled.
example_targets+=(entry)
same_in_both+=(entry.txt fields.txt)

run_entry() {
    local size=$1 folder=$2
    mkdir -p "$folder/entry"
    on_wine "$size" "build/$size/examples/entry/entry.exe" "$(windows_path "$folder/entry")" |
        tr -d '\r' >"$folder/entry.txt" ||
        fail "$size: the example of an entry form failed"
    if [[ $(tail -n 1 "$folder/entry.txt") != 'saisie montrée' ]]; then
        cat "$folder/entry.txt" >&2
        fail "$size: the example of an entry form did not come to its end"
    fi
    run_script "$size" "$folder" fields 'champs relus' examples/entry/fields.vbs
}

page_entry() {
    local pictures=${1#build/tour/}/entry
    cat <<END
<h2>An entry form</h2>
<p>Keys are filtered as they are typed. The two criteria of the range were not in order, so a message says that they are
swapped, labels included. Then the frame is disabled with all it holds, and the form is cleared.</p>
<p><img src="$pictures/typed.png" alt="The form with what the filters have kept">
<img src="$pictures/message.png" alt="The message that the criteria are not in order"></p>
<p><img src="$pictures/disabled.png" alt="The form with its frame disabled and its criteria in order">
<img src="$pictures/cleared.png" alt="The form, cleared"></p>
<pre>$(escaped <"$1/entry.txt")</pre>
<details><summary>The same members with the objects of a script</summary>
<pre>$(escaped <"$1/fields.txt")</pre>
</details>
END
}
