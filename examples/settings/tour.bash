# Settings: keeps a user's choices between two runs.
same_in_both+=(settings.txt settings.ini)

run_settings() {
    local size=$1 folder=$2
    run_script "$size" "$folder" settings 'réglages relus' examples/settings/settings.vbs \
        "$(windows_path "$folder")"
}

page_settings() {
    cat <<END
<h2>A program's settings, kept in the registry and in an INI file</h2>
<pre>$(escaped <"$1/settings.txt")</pre>
END
}
