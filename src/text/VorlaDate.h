// VorlaDate: dates held as text from the storage order to the display order and back, and dates in words.
//
// The order year-month-day is called AMJ, day-month-year JMA. Days and months have two digits; no date is
// checked.
#pragma once

#include "frame/values/bstr.h"
#include "frame/values/scalars.h"

namespace vorla {

class VorlaDate {
public:
    /// `Dat`, year-month-day with any separator or none, as day, month and year, with the system's
    /// separator unless `Separateur` is False; see dayFirst(). Blank text is empty. Error 5 when fewer
    /// than 4 characters are left without the separator.
    Text DateAMJtoJMA(TextView Dat, bool Separateur);

    /// `Dat`, day-month-year, as year, month and day. Otherwise as DateAMJtoJMA; see yearFirst().
    Text DateJMAtoAMJ(TextView Dat, bool Separateur);

    /// Kept so that old hosts find it: shows which members replace it and returns the empty string.
    TextView Invd(TextView Dat, bool JMA);

    /// `Dt` in the system's long format or, with `UseSystemDate` False, in words by the order of French:
    /// "Dimanche 15 novembre 2026". Raises nothing; a date that has no text is empty.
    Bstr DateEnTexte(Date Dt, bool UseSystemDate);
};

}  // namespace vorla
