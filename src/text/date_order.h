// Dates as text, converted between storage order, year-month-day (AMJ), and display order, day-month-year
// (JMA). Days and months have two digits. Nothing checks whether the date exists.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// Whether one character by itself is a number by the system's rules.
using CharacterTest = bool (*)(wchar_t);

/// `date` with its separator removed everywhere. The separator is the first character that is not numeric by
/// itself.
Text withoutSeparator(TextView date, CharacterTest isNumeric);

/// The third character of today's date in the system's short format. It is the separator if the first element
/// has two digits, and another character if it has one. Old hosts rely on this.
TextView separatorOf(TextView shortDate);

/// Year-month-day as day, month, year. The last two characters are the day, the two before them the month,
/// and the rest the year. Error 5 for fewer than 4 characters.
Text dayFirst(TextView yearMonthDay, TextView separator);

/// Day-month-year as year, month, day, counted from the front. Error 5 for fewer than 4 characters.
Text yearFirst(TextView dayMonthYear, TextView separator);

}  // namespace vorla
