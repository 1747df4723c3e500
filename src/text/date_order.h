// Dates held as text, from the storage order year-month-day (AMJ) to the display order day-month-year
// (JMA) and back. Days and months have two digits; no date is checked.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// Whether one character by itself is a number by the system's rules.
using CharacterTest = bool (*)(wchar_t);

/// `date` without its separator, wherever that stands: the first character that is not numeric by itself.
Text withoutSeparator(TextView date, CharacterTest isNumeric);

/// The separator in today's date in the system's short format: its third character, which follows a first
/// element of two digits. After one digit it is another one; old hosts know it so.
TextView separatorOf(TextView shortDate);

/// Year-month-day as day, month, year. The last two characters are the day, the two before the month, all
/// that is left the year. Error 5 for fewer than 4 characters.
Text dayFirst(TextView yearMonthDay, TextView separator);

/// Day-month-year as year, month, day, counted from the front. Error 5 for fewer than 4 characters.
Text yearFirst(TextView dayMonthYear, TextView separator);

}  // namespace vorla
