#include "misc/date_difference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <compare>
#include <random>

namespace vorla {
namespace {

// A calendar that knows nothing but how many days a month has, and is moved on one day at a time.
struct Calendar {
    int year, month, day;
    int second = 0;  // of the day

    auto operator<=>(const Calendar&) const = default;

    static int daysIn(int year, int month) {
        if (month == 2) return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : 28;
        return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
    }

    void nextDay() {
        if (++day <= daysIn(year, month)) return;
        day = 1;
        if (++month <= 12) return;
        month = 1;
        ++year;
    }
    void previousDay() {
        if (--day >= 1) return;
        if (--month < 1) month = 12, --year;
        day = daysIn(year, month);
    }

    Calendar movedByDays(int count) const {
        auto moved = *this;
        for (; count > 0; --count) moved.nextDay();
        for (; count < 0; ++count) moved.previousDay();
        return moved;
    }
    Calendar movedByMonths(int count) const {
        auto moved = *this;
        for (; count > 0; --count)
            if (++moved.month > 12) moved.month = 1, ++moved.year;
        for (; count < 0; ++count)
            if (--moved.month < 1) moved.month = 12, --moved.year;
        moved.day = std::min(day, daysIn(moved.year, moved.month));
        return moved;
    }
    Calendar movedBySeconds(int count) const {
        auto moved = *this;
        moved.second += count;
        for (; moved.second >= 86400; moved.second -= 86400) moved.nextDay();
        for (; moved.second < 0; moved.second += 86400) moved.previousDay();
        return moved;
    }
};

Moment momentOf(const Calendar& at) {
    using namespace std::chrono;
    return sys_days(year(at.year) / static_cast<int>(at.month) / at.day) + seconds(at.second);
}

// Moves by one unit more as long as that does not pass the end.
template <class Moved>
int wholeUnits(Calendar& start, const Calendar& end, Moved moved) {
    const int direction = start <= end ? 1 : -1;
    int count = 0;
    const auto passes = [&](int units) {
        const auto at = moved(start, units);
        return direction > 0 ? at > end : at < end;
    };
    while (!passes(count + direction)) count += direction;
    start = moved(start, count);
    return count;
}

DateDifference walked(Calendar start, const Calendar& end) {
    DateDifference result;
    // The years of the calendar, less one when as many days pass the end; the walk moves by these days.
    result.years = end.year - start.year;
    const auto moved = start.movedByDays(result.years);
    if (result.years > 0 && moved > end) --result.years;
    if (result.years < 0 && moved < end) ++result.years;
    start = start.movedByDays(result.years);
    const auto bySeconds = [](int unit) {
        return [unit](const Calendar& from, int count) { return from.movedBySeconds(count * unit); };
    };
    result.months =
        wholeUnits(start, end, [](const Calendar& from, int count) { return from.movedByMonths(count); });
    result.days =
        wholeUnits(start, end, [](const Calendar& from, int count) { return from.movedByDays(count); });
    result.hours = wholeUnits(start, end, bySeconds(3600));
    result.minutes = wholeUnits(start, end, bySeconds(60));
    result.seconds = wholeUnits(start, end, bySeconds(1));
    return result;
}

std::string shown(const Calendar& at) {
    return std::to_string(at.year) + "-" + std::to_string(at.month) + "-" + std::to_string(at.day) + " " +
           std::to_string(at.second);
}

void expectWalked(const Calendar& from, const Calendar& to) {
    const auto expected = walked(from, to), found = dateDifference(momentOf(from), momentOf(to));
    EXPECT_EQ(expected, found) << shown(from) << " to " << shown(to) << ": " << found.years << ' '
                               << found.months << ' ' << found.days << ' ' << found.hours << ' '
                               << found.minutes << ' ' << found.seconds;
}

class RandomCalendar {
public:
    Calendar between(int firstYear, int lastYear) {
        Calendar at{draw(firstYear, lastYear), draw(1, 12), 1};
        const int days = Calendar::daysIn(at.year, at.month);
        // Half of them lie at the end of a month, where the lengths of months matter.
        at.day = draw(0, 1) ? draw(1, days) : draw(28, days);
        at.second = draw(0, 3) ? draw(0, 86399) : 0;
        return at;
    }
    int draw(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }

private:
    std::mt19937 random_{20261121};
};

TEST(DateDifference, AgreesWithAWalkUnitByUnit) {
    RandomCalendar random;
    for (int i = 0; i < 4000; ++i) {
        const auto one = random.between(1990, 2030), other = random.between(1990, 2030);
        expectWalked(one, other);
        expectWalked(other, one);
    }
}

TEST(DateDifference, AgreesWithinAFewDays) {
    RandomCalendar random;
    for (int i = 0; i < 4000; ++i) {
        const auto one = random.between(1999, 2001);
        const auto other = one.movedByDays(random.draw(-40, 40)).movedBySeconds(random.draw(-86400, 86400));
        expectWalked(one, other);
        expectWalked(other, one);
    }
}

TEST(DateDifference, AgreesAtTheEndsOfTheCalendar) {
    RandomCalendar random;
    for (int i = 0; i < 200; ++i) {
        const auto first = random.between(100, 110), last = random.between(9990, 9999);
        expectWalked(first, {100, 1, 1});
        expectWalked({100, 1, 1}, first);
        expectWalked(last, {9999, 12, 31, 86399});
        expectWalked({9999, 12, 31, 86399}, last);
    }
    // 9,899 years move to 8 February 127: 27 years of 365 days, 6 leap days (104 to 124), 38 days.
    // 118,474 months later it is 8 December 9999. 23 days are left.
    EXPECT_EQ((DateDifference{9899, 118474, 23, 23, 59, 59}),
              dateDifference(momentOf({100, 1, 1}), momentOf({9999, 12, 31, 86399})));
}

TEST(DateDifference, CountsTheSpanOfTheYearsAgainInMonths) {
    const auto between = [](const Calendar& from, const Calendar& to) {
        return dateDifference(momentOf(from), momentOf(to));
    };
    EXPECT_EQ((DateDifference{2, 25, 26}), between({2000, 1, 1}, {2002, 3, 1}));
    // Two years back move to 27 February 2002: from there 25 months back to 27 January 2000, then 26 days.
    EXPECT_EQ((DateDifference{-2, -25, -26}), between({2002, 3, 1}, {2000, 1, 1}));
    EXPECT_EQ((DateDifference{1, 0, 1}), between({2000, 12, 31}, {2001, 1, 2}));
    // One day does not fit, so there is no year.
    EXPECT_EQ((DateDifference{0, 0, 0, 2}), between({2000, 12, 31, 82800}, {2001, 1, 1, 3600}));
    EXPECT_EQ((DateDifference{0, 0, 0, -2}), between({2001, 1, 1, 3600}, {2000, 12, 31, 82800}));
}

TEST(DateDifference, AMonthEndsOnItsLastDay) {
    const auto between = [](const Calendar& from, const Calendar& to) {
        return dateDifference(momentOf(from), momentOf(to));
    };
    EXPECT_EQ((DateDifference{0, 1}), between({2001, 1, 31}, {2001, 2, 28}));
    EXPECT_EQ((DateDifference{0, 1}), between({2000, 1, 31}, {2000, 2, 29}));
    EXPECT_EQ((DateDifference{0, 0, 28}), between({2000, 1, 31}, {2000, 2, 28}));
    EXPECT_EQ((DateDifference{0, 1, 1}), between({2001, 1, 31}, {2001, 3, 1}));
    EXPECT_EQ((DateDifference{0, -1}), between({2001, 3, 31}, {2001, 2, 28}));
    EXPECT_EQ((DateDifference{0, 0, 0, 2, 30}), between({2026, 5, 4, 36000}, {2026, 5, 4, 45000}));
    EXPECT_EQ(DateDifference(), between({2026, 5, 4, 36000}, {2026, 5, 4, 36000}));
}

TEST(DateDifference, PartsThatAreZeroHaveNoWords) {
    EXPECT_EQ(L"2 an(s), 25 mois, 26 jour(s) et ", daysText({2, 25, 26, 1, 1, 1}));
    EXPECT_EQ(L"1 mois, ", daysText({0, 1, 0, 1}));
    EXPECT_EQ(L"-3 jour(s) et ", daysText({0, 0, -3}));
    EXPECT_EQ(L"", daysText({}));
    EXPECT_EQ(L"2 heure(s), 30 minute(s), 5 seconde(s)", timeText({1, 1, 1, 2, 30, 5}));
    EXPECT_EQ(L"2 heure(s), 30 minute(s), ", timeText({0, 0, 0, 2, 30}));
    EXPECT_EQ(L"-59 seconde(s)", timeText({0, 0, 0, 0, 0, -59}));
    EXPECT_EQ(L"", timeText({1, 1, 1}));
}

}  // namespace
}  // namespace vorla
