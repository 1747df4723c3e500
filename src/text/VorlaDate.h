// VorlaDate: converts dates as text between storage order and display order, and writes dates in words.
//
// The order year-month-day is called AMJ, day-month-year JMA. Days and months have two digits. No member
// checks whether the date exists.
#pragma once

#include "frame/values/bstr.h"
#include "frame/values/scalars.h"

namespace vorla {

class VorlaDate {
public:
    /// `Dat`, year-month-day with any separator or none, as day, month and year. They are joined by the
    /// system's separator unless `Separateur` is False; see dayFirst(). Blank text gives an empty text. Error
    /// 5 when fewer than 4 characters are left without the separator.
    Text DateAMJtoJMA(TextView Dat, bool Separateur);

    /// `Dat`, day-month-year, as year, month and day. Otherwise as DateAMJtoJMA; see yearFirst().
    Text DateJMAtoAMJ(TextView Dat, bool Separateur);

    /// Kept for old hosts: tells the user which members replace it, and returns an empty string.
    TextView Invd(TextView Dat, bool JMA);

    /// `Dt` in the system's long format. With `UseSystemDate` False, in words in French order: "Dimanche 15
    /// novembre 2026". Raises no error: a date that has no text is empty.
    Bstr DateEnTexte(Date Dt, bool UseSystemDate);
};

}  // namespace vorla
