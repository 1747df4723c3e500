# Languages: shows one form in three languages, with pictures.
example_targets+=(languages)
same_in_both+=(languages.txt)

run_languages() {
    local size=$1 folder=$2
    mkdir -p "$folder/languages"
    on_wine "$size" "build/$size/examples/languages/languages.exe" "$(windows_path examples/languages)" \
        "$(windows_path "$folder/languages")" | tr -d '\r' >"$folder/languages.txt" ||
        fail "$size: the example of languages failed"
    if [[ $(tail -n 1 "$folder/languages.txt") != 'trois langues montrées' ]]; then
        cat "$folder/languages.txt" >&2
        fail "$size: the example of languages did not come to its end"
    fi
}

page_languages() {
    local code
    cat <<END
<h2>A form in three languages</h2>
<p>The form was designed in French and its texts were saved as the first language file; the other two are
translators' files. Option buttons and check boxes are as wide as their captions, the theme colours all but the
notice, which keeps out of it.</p>
<p>
END
    for code in FRA ENG DEU; do
        printf '<img src="%s/languages/languages-%s.png" alt="The form, %s">\n' "${1#build/tour/}" "$code" "$code"
    done
    cat <<END
</p>
<details><summary>Captions, widths and messages</summary>
<pre>$(escaped <"$1/languages.txt")</pre>
</details>
END
}
