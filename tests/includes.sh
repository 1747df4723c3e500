#!/usr/bin/env bash
# Checks that includes run one way only. Prints each include that does not.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../src"

wrong=0
# allow FOLDER FILES PATTERN: the files of the folder may include their own folder and what the pattern
# matches.
allow() {
    local found
    found=$(find "$1" -type f -name "$2" ! -name "${4:-}" -exec grep -HE '^#include "' {} + | grep -vE "\"($1|$3)/") || return 0
    printf '%s\n' "$found"
    wrong=1
}
readonly below='frame/values|frame/contract|frame/host'
allow frame/values '*' none
allow frame/contract '*' frame/values
allow frame/host '*' frame/values
allow frame/shared '*' "$below"
allow frame/com '*' "$below"
for family in text language system misc media graphics; do
    allow "$family" '*' "$below|frame/shared$([[ $family != graphics ]] || echo '|system')" '*.publication.cpp'
    allow "$family" '*.publication.cpp' 'frame/com'
done
# Windows' own declarations come through one header, which undefines macros with the names of members.
! grep -rnE '#include <(windows|oaidl|ocidl|olectl|shellapi)\.h>' . | grep -v '^./frame/values/winapi.h:' || wrong=1
((wrong == 0)) && echo '1 passed, 0 failed'
