#include "text/date_words.h"

namespace vorla {

Text dateInWords(TextView weekday, int day, TextView month, int year) {
    const auto digits = inDigits(year);
    Text result(weekday);
    result.append(L" ").append(inDigits(day)).append(L" ").append(month).append(L" ");
    return result.append(digits.size() < 4 ? 4 - digits.size() : 0, L'0').append(digits);
}

}  // namespace vorla
