#include "frame/values/leading_number.h"

#include <charconv>
#include <limits>
#include <string>

namespace vorla {
namespace {

// The characters that a number may consist of, up to the first that belongs to none.
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

}  // namespace

double leadingNumber(TextView text) {
    const auto characters = numericCharacters(text);
    const auto end = characters.data() + characters.size();
    auto begin = characters.data();
    // The conversion knows a minus only.
    if (characters.starts_with('+') && !characters.starts_with("+-")) ++begin;
    double value = 0;
    const auto [stop, failure] = std::from_chars(begin, end, value);
    if (failure != std::errc::result_out_of_range) return value;
    // Too small or too large, which only the exponent tells, or the digits when there is none.
    const auto exponent = characters.find('e');
    if (exponent != std::string::npos && characters.compare(exponent + 1, 1, "-") == 0) return 0;
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    return *begin == '-' ? -infinity : infinity;
}

}  // namespace vorla
