#include "text/date_order.h"

#include <algorithm>

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

Text separated(TextView first, TextView second, TextView third, TextView separator) {
    Text result;
    result.reserve(first.size() + second.size() + third.size() + 2 * separator.size());
    return result.append(first).append(separator).append(second).append(separator).append(third);
}

// The number of characters besides day and month.
std::size_t lengthOfYear(TextView date) {
    if (date.size() < 4) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return date.size() - 4;
}

}  // namespace

Text withoutSeparator(TextView date, CharacterTest isNumeric) {
    Text result(date);
    const auto separator = std::find_if_not(date.begin(), date.end(), isNumeric);
    if (separator != date.end()) std::erase(result, *separator);
    return result;
}

TextView separatorOf(TextView shortDate) {
    return shortDate.size() < 3 ? TextView() : shortDate.substr(2, 1);
}

Text dayFirst(TextView yearMonthDay, TextView separator) {
    const auto year = lengthOfYear(yearMonthDay);
    return separated(yearMonthDay.substr(year + 2), yearMonthDay.substr(year, 2),
                     yearMonthDay.substr(0, year), separator);
}

Text yearFirst(TextView dayMonthYear, TextView separator) {
    lengthOfYear(dayMonthYear);
    return separated(dayMonthYear.substr(4), dayMonthYear.substr(2, 2), dayMonthYear.substr(0, 2), separator);
}

}  // namespace vorla
