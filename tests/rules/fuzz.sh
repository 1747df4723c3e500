#!/bin/sh
# Runs one fuzz target: the same 10,000 inputs every time, or for VORLA_FUZZ_SECONDS seconds when set.
# The longest call reads fewer than 96 bytes; -len_control=0 gives it all of them from the beginning.
set -eu

if [ -n "${VORLA_FUZZ_SECONDS:-}" ]; then
    exec "$1" "-max_total_time=$VORLA_FUZZ_SECONDS" -max_len=96 -len_control=0
fi
exec "$1" -runs=10000 -seed=1 -max_len=96 -len_control=0
