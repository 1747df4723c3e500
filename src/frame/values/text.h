// Text as the library's rules see it: UTF-16 on Windows, whatever wchar_t holds elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vorla {

using Text = std::wstring;
using TextView = std::wstring_view;

/// The text without its leading and trailing spaces. Tabs and no-break spaces stay.
constexpr TextView trimmed(TextView text) {
    const auto first = text.find_first_not_of(L' ');
    if (first == TextView::npos) return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

/// A whole number in digits, "-" before a negative one's. (std::to_wstring would bring all of printf along.)
inline Text inDigits(std::int32_t number) {
    const auto digits = std::to_string(number);
    return Text(digits.begin(), digits.end());
}

}  // namespace vorla
