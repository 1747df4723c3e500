#!/usr/bin/env bash
# Registers and unregisters the component in a fresh prefix and compares the whole registry before and
# after, key by key: registration.sh x86|x64 DLL [DLL of the other word size]
#
# With both DLLs, each must keep working while the other is unregistered.
set -euo pipefail

word_size=$1
dll=$2
other=${3:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
on_wine() { "$here/../../tools/on-wine" "$word_size" "$@"; }

scratch=$(mktemp -d)
trap 'WINEPREFIX=$VORLA_PREFIX /usr/lib/wine/wineserver -k 2>/dev/null || true; rm -rf "$scratch"' EXIT
export VORLA_PREFIX=$scratch/prefix

passed=0
failed=0
verdict() {
    if "${@:2}"; then
        passed=$((passed + 1))
        echo "ok      $1"
    else
        failed=$((failed + 1))
        echo "FAILED  $1"
    fi
}

# Steps that must succeed before the next check means anything.
first_of_all() {
    "$@" && return
    echo "FAILED  with $?: $*"
    exit 1
}

windows_path() { echo "Z:${1//\//\\}"; }
regsvr32=regsvr32
other_regsvr32='C:\windows\syswow64\regsvr32.exe'

# The whole registry as text: the server writes it out when it ends. Left out are the times of
# changes and the display driver's date, which each start of the server sets anew.
snapshot() {
    WINEPREFIX=$VORLA_PREFIX /usr/lib/wine/wineserver -k || true
    WINEPREFIX=$VORLA_PREFIX /usr/lib/wine/wineserver -w
    sed -e 's/^\(\[.*\]\) [0-9]*$/\1/' -e '/^#time=/d' -e '/^"DriverDateData"=/d' \
        "$VORLA_PREFIX/system.reg" "$VORLA_PREFIX/user.reg" \
        >"$scratch/$1.txt"
}

same_registry() { diff "$scratch/before.txt" "$scratch/$1.txt" >"$scratch/$1.diff" || { head -n 40 "$scratch/$1.diff"; return 1; }; }
registry_has() { grep -q "$1" "$scratch/$2.txt"; }
registry_lacks() { ! grep -q "$1" "$scratch/$2.txt"; }
all_classes_answer() { on_wine cscript //nologo "$(windows_path "$here/all_classes.js")" | tr -d '\r' | grep -qx '12 created'; }

# The first run of each program writes settings of its own.
on_wine cscript //nologo "$(windows_path "$here/all_classes.js")" >/dev/null 2>&1 || true
on_wine $regsvr32 /s "$(windows_path "$scratch/absent.dll")" >/dev/null 2>&1 || true
snapshot warm
snapshot before

verdict "registering succeeds" on_wine $regsvr32 /s "$(windows_path "$dll")"
snapshot registered
verdict "the server's path is absolute and unquoted" registry_has '^@="Z:.*Vorla6\.dll"$' registered
verdict "the threading model is Apartment" registry_has '^"ThreadingModel"="Apartment"$' registered
verdict "every class is created by its name" all_classes_answer
verdict "registering again succeeds" on_wine $regsvr32 /s "$(windows_path "$dll")"
snapshot again
verdict "registering again changes nothing" cmp -s "$scratch/registered.txt" "$scratch/again.txt"
verdict "unregistering succeeds" on_wine $regsvr32 /s /u "$(windows_path "$dll")"
snapshot after
verdict "the registry is as it was" same_registry after
verdict "unregistering what is not registered succeeds" on_wine $regsvr32 /s /u "$(windows_path "$dll")"
snapshot twice
verdict "and changes nothing" same_registry twice

if [ -n "$other" ]; then
    for first in this other; do
        first_of_all on_wine $regsvr32 /s "$(windows_path "$dll")"
        first_of_all on_wine "$other_regsvr32" /s "$(windows_path "$other")"
        if [ "$first" = this ]; then
            first_of_all on_wine $regsvr32 /s /u "$(windows_path "$dll")"
            snapshot half
            verdict "unregistering x64 leaves the x86 server" registry_has '^@="Z:.*x86.*Vorla6\.dll"$' half
            verdict "and the type library for it" registry_has '57AB0001-.*\\win32\]' half
            first_of_all on_wine "$other_regsvr32" /s /u "$(windows_path "$other")"
        else
            first_of_all on_wine "$other_regsvr32" /s /u "$(windows_path "$other")"
            verdict "unregistering x86 leaves x64 in working order" all_classes_answer
            first_of_all on_wine $regsvr32 /s /u "$(windows_path "$dll")"
        fi
        snapshot both
        verdict "after both, the registry is as it was ($first first)" same_registry both
    done
fi

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
