#include "frame/shared/clock_text.h"

namespace vorla {
namespace {

Text twoDigits(std::int32_t number) {
    auto digits = inDigits(number < 0 ? -number : number);
    if (digits.size() < 2) digits.insert(0, 1, L'0');
    return number < 0 ? L"-" + digits : digits;
}

Text withoutSign(std::int32_t number) { return twoDigits(number < 0 ? -number : number); }

}  // namespace

Text clockText(std::int32_t seconds, bool withoutHours, TextView separator) {
    // Division and remainder cut towards zero, so each of the three has the sign of the whole or is 0.
    const auto s = seconds % 60;
    const auto m = seconds / 60 % 60;
    const auto h = seconds / 3600;
    if (withoutHours && h < 1) return twoDigits(m).append(separator) + twoDigits(s);
    Text result(seconds < 0 ? L"-" : L"");
    result.append(withoutSign(h)).append(separator).append(withoutSign(m)).append(separator);
    return result + withoutSign(s);
}

}  // namespace vorla
