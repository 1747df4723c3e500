#include "text/VorlaDate.h"

#include "frame/host/message_box.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "text/date_order.h"
#include "text/date_words.h"

namespace vorla {
namespace {

bool isNumericCharacter(wchar_t character) {
    // The system is asked about the others.
    if (character >= L'0' && character <= L'9') return true;
    return isNumeric(TextView(&character, 1));
}

Text compact(TextView date) {
    return isNumeric(date) ? Text(date) : withoutSeparator(date, isNumericCharacter);
}

Text displaySeparator() {
    wchar_t today[80];
    const auto written = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, today, 80);
    if (written == 0) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return Text(separatorOf(TextView(today, static_cast<std::size_t>(written) - 1)));
}

// One conversion: the date, the new order, and whether the parts are separated.
Text reordered(TextView date, bool withSeparator, Text (*order)(TextView, TextView)) {
    if (trimmed(date).empty()) return {};
    const auto parts = compact(date);
    return order(parts, withSeparator ? displaySeparator() : Text());
}

SYSTEMTIME calendarDay(Date date) {
    SYSTEMTIME day;
    if (!VariantTimeToSystemTime(date.days, &day)) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return day;
}

// The day is counted from Monday but named from the system's first day of the week. Where the week starts on
// Sunday the name is therefore that of the day before. Old hosts rely on this.
Bstr weekdayName(const SYSTEMTIME& day) {
    constexpr int systemsFirstDay = 0;
    Bstr name;
    throwIfFailed(VarWeekdayName(weekdayFromMonday(day.wYear, day.wMonth, day.wDay), FALSE, systemsFirstDay,
                                 0, name.put()));
    return name;
}

Bstr monthName(const SYSTEMTIME& day) {
    Bstr name;
    throwIfFailed(VarMonthName(day.wMonth, FALSE, 0, name.put()));
    return name;
}

}  // namespace

Text VorlaDate::DateAMJtoJMA(TextView Dat, bool Separateur) { return reordered(Dat, Separateur, dayFirst); }

Text VorlaDate::DateJMAtoAMJ(TextView Dat, bool Separateur) { return reordered(Dat, Separateur, yearFirst); }

TextView VorlaDate::Invd(TextView, bool) {
    messageBox(L"Cette fonction est à remplacer par AMJToJMA ou JMAToAMJ");
    return {};
}

Bstr VorlaDate::DateEnTexte(Date Dt, bool UseSystemDate) {
    Bstr result;
    if (UseSystemDate) {
        step([&] { result = formattedValue(Variant(Dt).view(), L"Long Date"); });
        return result;
    }
    Text words;
    step([&] {
        const auto day = calendarDay(Dt);
        words = dateInWords(weekdayName(day).view(), day.wDay, monthName(day).view(), day.wYear);
    });
    step([&] { words.replace(0, 1, upperCased(TextView(words).substr(0, 1))); });
    step([&] { result = Bstr(TextView(words)); });
    return result;
}

}  // namespace vorla
