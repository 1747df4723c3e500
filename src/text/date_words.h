// A date in words.
#pragma once

#include <chrono>

#include "frame/values/text.h"

namespace vorla {

/// The day of the week counted from Monday, 1 to 7. It is computed from the calendar, because systems differ
/// about the weekday of a date that they have rounded up from the last instant of a day.
constexpr int weekdayFromMonday(int year, int month, int day) {
    using namespace std::chrono;
    const year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day)));
    return static_cast<int>(weekday(sys_days(date)).iso_encoding());
}

/// "dimanche 15 novembre 2026", from the names and numbers; the year has four digits.
Text dateInWords(TextView weekday, int day, TextView month, int year);

}  // namespace vorla
