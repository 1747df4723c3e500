# Folders: creates them, lets the user choose one, and asks when one cannot be created; with pictures.
example_targets+=(folders)
same_in_both+=(folders.txt)

run_folders() {
    local size=$1 folder=$2 status=0
    mkdir -p "$folder/folders"
    on_wine "$size" "build/$size/examples/folders/folders.exe" "$(windows_path "$folder/folders")" \
        >"$folder/folders.raw" ||
        status=$?
    tr -d '\r' <"$folder/folders.raw" >"$folder/folders.txt"
    if ((status)) || [[ $(tail -n 1 "$folder/folders.txt") != 'photothèque rangée' ]]; then
        cat "$folder/folders.txt" >&2
        fail "$size: examples/folders failed with status $status"
    fi
}

page_folders() {
    local pictures=${1#build/tour/}/folders
    cat <<END
<h2>Folders made and chosen</h2>
<p><img src="$pictures/folder.png" alt="The dialog in which a folder is chosen, with a button that makes one">
<img src="$pictures/files.png" alt="The same dialog with files, without that button"></p>
<p><img src="$pictures/message.png" alt="The message that a folder cannot be created">
<img src="$pictures/choice.png" alt="The dialog that follows the message"></p>
<pre>$(escaped <"$1/folders.txt")</pre>
END
}
