# Files: lists a folder's files by kind, with their sizes in words.
same_in_both+=(files.txt)

run_files() {
    local size=$1 folder=$2
    run_script "$size" "$folder" files 'fichiers classés' examples/files/files.vbs "$(windows_path "$folder")"
}

page_files() {
    cat <<END
<h2>The files of a folder by kind</h2>
<pre>$(escaped <"$1/files.txt")</pre>
END
}
