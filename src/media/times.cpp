#include "media/times.h"

#include <cstdlib>

#include "frame/values/leading_number.h"
#include "frame/values/rounding.h"

namespace vorla::media {
namespace {

// A number of at least two digits.
Text twoDigits(std::int32_t number) {
    Text text = inDigits(std::abs(number));
    if (text.size() < 2) text.insert(0, 1, L'0');
    if (number < 0) text.insert(0, 1, L'-');
    return text;
}

}  // namespace

std::int32_t wholeSeconds(std::int32_t milliseconds) { return roundedToInt32(milliseconds / 1000.0); }

Text clockText(std::int32_t seconds, bool minutesOnly, TextView separator) {
    const std::int32_t s = seconds % 60, m = seconds / 60 % 60, h = seconds / 3600;
    Text text;
    if (minutesOnly && h < 1) return text.append(twoDigits(m)).append(separator).append(twoDigits(s));
    if (seconds < 0) text = L"-";
    text.append(twoDigits(std::abs(h))).append(separator);
    text.append(twoDigits(std::abs(m))).append(separator);
    return text.append(twoDigits(std::abs(s)));
}

std::int32_t integerIn(TextView time) {
    if (time.empty() || time.find_first_not_of(L"0123456789") != TextView::npos)
        throw RuntimeError(ErrorNumber::typeMismatch);
    return roundedToInt32(leadingNumber(time));
}

}  // namespace vorla::media
