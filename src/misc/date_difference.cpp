#include "misc/date_difference.h"

namespace vorla {
namespace {

using namespace std::chrono;

template <class Unit>
std::int32_t boundaries(Moment from, Moment to) {
    return static_cast<std::int32_t>((floor<Unit>(to) - floor<Unit>(from)).count());
}

std::int32_t monthOf(Moment moment) {
    const year_month_day date(floor<days>(moment));
    return int{date.year()} * 12 + static_cast<std::int32_t>(unsigned{date.month()});
}

Moment monthsLater(Moment moment, std::int32_t count) {
    const auto midnight = floor<days>(moment);
    auto date = year_month_day(midnight) + months(count);
    if (!date.ok()) date = date.year() / date.month() / last;
    return sys_days(date) + (moment - midnight);
}

template <class Unit>
Moment unitsLater(Moment moment, std::int32_t count) {
    return moment + Unit(count);
}

// Moves `start` by whole units towards `end` and returns how many. `count` is how often the calendar passes
// to another unit on the way, which may be one more than fit.
std::int32_t walk(Moment& start, Moment end, std::int32_t count, Moment (*later)(Moment, std::int32_t)) {
    if (count > 0 && later(start, count) > end) --count;
    if (count < 0 && later(start, count) < end) ++count;
    start = later(start, count);
    return count;
}

Text counted(std::int32_t count, TextView words) {
    return count == 0 ? Text() : inDigits(count).append(words);
}

}  // namespace

DateDifference dateDifference(Moment from, Moment to) {
    const auto yearOf = [](Moment moment) { return int{year_month_day(floor<days>(moment)).year()}; };
    auto start = from;
    DateDifference result;
    result.years = walk(start, to, yearOf(to) - yearOf(start), unitsLater<days>);
    result.months = walk(start, to, monthOf(to) - monthOf(start), monthsLater);
    result.days = walk(start, to, boundaries<days>(start, to), unitsLater<days>);
    result.hours = walk(start, to, boundaries<hours>(start, to), unitsLater<hours>);
    result.minutes = walk(start, to, boundaries<minutes>(start, to), unitsLater<minutes>);
    result.seconds = static_cast<std::int32_t>((to - start).count());
    return result;
}

Text daysText(const DateDifference& difference) {
    return counted(difference.years, L" an(s), ") + counted(difference.months, L" mois, ") +
           counted(difference.days, L" jour(s) et ");
}

Text timeText(const DateDifference& difference) {
    return counted(difference.hours, L" heure(s), ") + counted(difference.minutes, L" minute(s), ") +
           counted(difference.seconds, L" seconde(s)");
}

}  // namespace vorla
