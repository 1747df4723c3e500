# The dual interface's slots, called from a compiled host.
example_targets+=(early_bound)

run_cpp() {
    local size=$1 folder=$2
    on_wine "$size" "build/$size/examples/cpp/early_bound.exe" | tr -d '\r' >"$folder/cpp.txt" ||
        fail "$size: the compiled example failed"
}

page_cpp() {
    cat <<END
<h2>Members called early-bound from C++</h2>
<pre>$(escaped <"$1/cpp.txt")</pre>
END
}
