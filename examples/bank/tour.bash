# Bank: checks keys of accounts, and converts dates and amounts between display and storage forms.
same_in_both+=(bank.txt)

run_bank() {
    local size=$1 folder=$2
    run_script "$size" "$folder" bank 'comptes et opérations concordent' examples/bank/bank.vbs \
        "$(windows_path examples/bank/accounts.csv)" "$(windows_path examples/bank/operations.csv)"
}

page_bank() {
    cat <<END
<h2>Bank accounts checked, operations in two forms</h2>
<p>A few hundred bank accounts, some with letters, some mistyped, with the right key of those that are refused;
then dates and amounts as they were typed, for people, and for storage. The script proves both by arithmetic of
its own.</p>
<pre>$(escaped <"$1/bank.txt")</pre>
END
}
