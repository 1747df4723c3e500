#include "frame/values/leading_number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace vorla {
namespace {

// The leading characters that a number can consist of.
std::string numericCharacters(TextView text) {
    std::string result;
    for (const wchar_t character : text) {
        if (character == L' ' || character == L'\t' || character == L'\n') continue;
        if ((character >= L'0' && character <= L'9') || character == L'.' || character == L'+' ||
            character == L'-')
            result += static_cast<char>(character);
        else if (character == L'E' || character == L'e' || character == L'D' || character == L'd')
            result += 'e';
        else
            break;
    }
    return result;
}

// Whether a number outside the range of a double is too large rather than too small. That depends on the
// distance of its first digit from the point, and on the exponent.
bool isTooLarge(std::string_view number) {
    const auto mark = std::min(number.find('e'), number.size());
    const auto digits = number.substr(0, mark);
    const auto point = std::min(digits.find('.'), digits.size());
    const auto places =
        static_cast<std::int64_t>(point) - static_cast<std::int64_t>(digits.find_first_of("123456789"));
    if (mark == number.size()) return places > 0;
    auto exponent = number.substr(mark + 1);
    const bool negative = exponent.starts_with('-');
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    std::int64_t power = 0;
    const auto [stop, failure] = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    if (failure == std::errc::result_out_of_range) return !negative;
    return places + power > 0;
}

}  // namespace

double leadingNumber(TextView text) {
    const auto characters = numericCharacters(text);
    const auto end = characters.data() + characters.size();
    auto begin = characters.data();
    // The conversion accepts a minus sign only.
    if (characters.starts_with('+') && !characters.starts_with("+-")) ++begin;
    double value = 0;
    const auto [stop, failure] = std::from_chars(begin, end, value);
    if (failure != std::errc::result_out_of_range) return value;
    if (!isTooLarge({begin, static_cast<std::size_t>(stop - begin)})) return 0;
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    return *begin == '-' ? -infinity : infinity;
}

}  // namespace vorla
