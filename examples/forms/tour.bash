# Forms: one picture for each member of VorlaGraphique that can be seen.
example_targets+=(forms)
same_in_both+=(forms.txt)

run_forms() {
    local size=$1 folder=$2
    mkdir -p "$folder/forms"
    on_wine "$size" "build/$size/examples/forms/forms.exe" "$(windows_path "$folder/forms")" |
        tr -d '\r' >"$folder/forms.txt" || fail "$size: the example of forms failed"
    if [[ $(tail -n 1 "$folder/forms.txt") != 'all forms shown' ]]; then
        cat "$folder/forms.txt" >&2
        fail "$size: the example of forms did not come to its end"
    fi
}

page_forms() {
    local picture
    cat <<END
<h2>Forms in other shapes and colours</h2>
<table>
END
    while IFS='|' read -r picture text; do
        printf '<tr><td><img src="%s/forms/%s.png" alt="%s"></td><td>%s</td></tr>\n' \
            "${1#build/tour/}" "$picture" "$picture" "$text"
    done <<'END'
degrade-noir|<code>FormDegrade</code>: 256 bands from a blue to black
degrade-blanc|<code>FormDegrade</code> towards white
arrondie|<code>FormArrondie</code>: round corners with an outline
texte|<code>TextRotate</code>: one text in eight directions around a point
couleurs|<code>ShiftColor</code>: one colour, in eight steps added to, blended and multiplied
END
    cat <<END
</table>
<details><summary>What cannot be seen</summary>
<pre>$(escaped <"$1/forms.txt")</pre>
</details>
END
}
