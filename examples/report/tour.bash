# Report: what the library reports about the computer. The two word sizes run in Wine prefixes of their own,
# so their reports differ.

run_report() {
    local size=$1 folder=$2
    run_script "$size" "$folder" report 'rapport terminé' examples/report/report.vbs
}

page_report() {
    cat <<END
<h2>A report on the computer</h2>
<p>Drives, folders, settings, the Windows version and the programs of a few file types, for a program's window of
technical information. Nothing that was asked about is changed.</p>
<pre>$(escaped <"$1/report.txt")</pre>
END
}
