// The rules for DateDiffDaysAndTime: the time between two moments, counted unit by unit, and its French text.
#pragma once

#include <chrono>
#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// A moment of the calendar, to the second.
using Moment = std::chrono::sys_seconds;

/// None of the numbers has another sign than the others: all go towards the second moment.
struct DateDifference {
    std::int32_t years = 0;
    std::int32_t months = 0;
    std::int32_t days = 0;
    std::int32_t hours = 0;
    std::int32_t minutes = 0;
    std::int32_t seconds = 0;

    bool operator==(const DateDifference&) const = default;
};

/// Walks from one moment towards another: as many whole years as fit, then months, days, hours, minutes and
/// seconds. A month later than the 31st is the last day of a shorter month.
///
/// Each year moves the walk by one day only. The months therefore count nearly the whole span again: from 1
/// January 2000 to 1 March 2002 there are 2 years, 25 months and 26 days. Old hosts rely on this.
DateDifference dateDifference(Moment from, Moment to);

/// "2 an(s), 25 mois, 26 jour(s) et ". A number that is 0 is left out with its word, the separators stay.
Text daysText(const DateDifference& difference);

/// "2 heure(s), 30 minute(s), 5 seconde(s)", in the same way.
Text timeText(const DateDifference& difference);

}  // namespace vorla
