#include "text/keys.h"

#include <algorithm>

#include "frame/values/runtime_error.h"
#include "text/padding.h"

namespace vorla {

Joined zeroFilled(TextView number, std::int16_t width) {
    const auto digits = checkedLength(width);
    const auto sign = number.substr(0, number.substr(0, 1) == L"-" ? 1 : 0);
    number.remove_prefix(sign.size());
    return {sign, Piece(L'0', digits - std::min(digits, number.size())), number};
}

Joined storedKey(TextView upperCased, std::int16_t width) {
    const auto key = trimmed(upperCased);
    if (key.empty()) return Piece(L'0', checkedLength(width));
    return leftAligned(key, width);
}

namespace {

bool isDigitOfCode(wchar_t character) {
    return (character >= L'0' && character <= L'9') || (character >= L'A' && character <= L'Z');
}

// Not for Z, which has no successor.
wchar_t successor(wchar_t digit) { return digit == L'9' ? L'A' : static_cast<wchar_t>(digit + 1); }

}  // namespace

Joined nextCode(TextView code, std::int16_t width) {
    const auto zeros = checkedLength(width);
    if (code.empty()) {
        if (zeros == 0) return {};
        return {Piece(L'0', zeros - 1), TextView(L"1")};
    }
    checkedPosition(code.size());

    const auto last = code.find_last_not_of(L'Z');
    // All Z: every character has become 0, and the carry is back at the last one.
    if (last == TextView::npos) return {Piece(L'0', code.size() - 1), TextView(L"1")};
    const auto carried = code.size() - 1 - last;
    if (!isDigitOfCode(code[last])) return {code.substr(0, last + 1), Piece(L'0', carried)};
    return {code.substr(0, last), Piece(successor(code[last]), 1), Piece(L'0', carried)};
}

}  // namespace vorla
