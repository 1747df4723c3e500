#include "text/date_order.h"

#include <gtest/gtest.h>

#include "outcome.h"
#include "text/date_words.h"

namespace vorla {
namespace {

bool isDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

TEST(DateSeparator, IsTheFirstCharacterThatIsNoNumberAndGoesEverywhere) {
    EXPECT_EQ(withoutSeparator(L"2026-11-15", isDigit), L"20261115");
    EXPECT_EQ(withoutSeparator(L"2026-11/15", isDigit), L"202611/15");
    EXPECT_EQ(withoutSeparator(L" 2026-11", isDigit), L"2026-11");
    EXPECT_EQ(withoutSeparator(L"--1--2--", isDigit), L"12");
    EXPECT_EQ(withoutSeparator(L"20261115", isDigit), L"20261115");
    EXPECT_EQ(withoutSeparator(L"----", isDigit), L"");
    EXPECT_EQ(withoutSeparator(L"", isDigit), L"");
    // The system says what is numeric.
    EXPECT_EQ(withoutSeparator(L"1-2/3", [](wchar_t c) { return c != L'/'; }), L"1-23");
}

TEST(DateSeparator, OfTheSystemIsTheThirdCharacterOfToday) {
    EXPECT_EQ(separatorOf(L"15/11/2026"), L"/");
    EXPECT_EQ(separatorOf(L"15.11.26"), L".");
    // After a single digit it is not the separator.
    EXPECT_EQ(separatorOf(L"2/3/2026"), L"3");
    EXPECT_EQ(separatorOf(L"15/"), L"/");
    EXPECT_EQ(separatorOf(L"15"), L"");
    EXPECT_EQ(separatorOf(L""), L"");
}

TEST(DateOrder, CountsDayAndMonthFromTheirEnd) {
    const struct {
        Text date, separator;
        Outcome<Text> dayFirst, yearFirst;
    } rows[] = {
        {L"20261115", L"/", L"15/11/2026", L"1115/26/20"},
        {L"20261115", L"", L"15112026", L"11152620"},
        {L"15112026", L"/", L"26/20/1511", L"2026/11/15"},
        {L"261115", L"/", L"15/11/26", L"15/11/26"},
        {L"1115", L"/", L"15/11/", L"/15/11"},
        {L"11151", L"-", L"51-11-1", L"1-15-11"},
        {L"111", L"/", Raises(5), Raises(5)},
        {L"", L"", Raises(5), Raises(5)},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(outcomeOf([&] { return dayFirst(row.date, row.separator); }), row.dayFirst)
            << shown(row.date);
        EXPECT_EQ(outcomeOf([&] { return yearFirst(row.date, row.separator); }), row.yearFirst)
            << shown(row.date);
    }
}

TEST(Weekday, IsCountedFromMonday) {
    EXPECT_EQ(weekdayFromMonday(2026, 11, 15), 7);
    EXPECT_EQ(weekdayFromMonday(2026, 11, 16), 1);
    EXPECT_EQ(weekdayFromMonday(1899, 12, 30), 6);
    EXPECT_EQ(weekdayFromMonday(2000, 2, 29), 2);
}

TEST(DateInWords, HasAYearOfFourDigits) {
    EXPECT_EQ(dateInWords(L"dimanche", 15, L"novembre", 2026), L"dimanche 15 novembre 2026");
    EXPECT_EQ(dateInWords(L"lundi", 1, L"mai", 100), L"lundi 1 mai 0100");
    EXPECT_EQ(dateInWords(L"", 1, L"", 9999), L" 1  9999");
}

}  // namespace
}  // namespace vorla
