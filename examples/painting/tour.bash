# Painting: a toolbar with normal and disabled icons, and transparent sprites over a photograph.
example_targets+=(painting)
same_in_both+=(painting.txt)

run_painting() {
    local size=$1 folder=$2
    mkdir -p "$folder/painting"
    on_wine "$size" "build/$size/examples/painting/painting.exe" "$(windows_path "$folder/painting")" |
        tr -d '\r' >"$folder/painting.txt" || fail "$size: the example of painting failed"
    if [[ $(tail -n 1 "$folder/painting.txt") != 'images peintes' ]]; then
        cat "$folder/painting.txt" >&2
        fail "$size: the example of painting did not come to its end"
    fi
}

page_painting() {
    local pictures=${1#build/tour/}/painting
    cat <<END
<h2>Toolbar and sprites</h2>
<p><img src="$pictures/toolbar.png" alt="A toolbar: its icons as they are, and below them disabled"></p>
<p>The upper icons are painted without their magenta background. The lower ones are disabled: the dark parts of the
same pictures in the shadow's colour, and in the highlight's one pixel further.</p>
<p><img src="$pictures/sprites.png" alt="Balloons over a landscape"></p>
<pre>$(escaped <"$1/painting.txt")</pre>
END
}
