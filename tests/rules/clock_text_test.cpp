#include "frame/shared/clock_text.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <limits>

namespace vorla {
namespace {

constexpr auto least = std::numeric_limits<std::int32_t>::min(),
               most = std::numeric_limits<std::int32_t>::max();

// A clock with three wheels, moved on by one second at a time.
struct Clock {
    int hours = 0, minutes = 0, seconds = 0;

    void tick() {
        if (++seconds < 60) return;
        seconds = 0;
        if (++minutes < 60) return;
        minutes = 0;
        ++hours;
    }
};

Text shown(const wchar_t* format, int one, int two, int three = 0) {
    wchar_t text[40];
    std::swprintf(text, 40, format, one, two, three);
    return text;
}

TEST(ClockText, FollowsAClockThroughFourDays) {
    Clock clock;
    for (std::int32_t seconds = 0; seconds < 4 * 86400; ++seconds, clock.tick()) {
        const auto whole = shown(L"%02d:%02d:%02d", clock.hours, clock.minutes, clock.seconds);
        ASSERT_EQ(whole, clockText(seconds, false, L":")) << seconds;
        ASSERT_EQ(clock.hours == 0 ? shown(L"%02d:%02d", clock.minutes, clock.seconds) : whole,
                  clockText(seconds, true, L":"))
            << seconds;
        if (seconds == 0) continue;
        ASSERT_EQ(L"-" + whole, clockText(-seconds, false, L":")) << -seconds;
        const auto part = [](int number) {
            const auto digits = shown(L"%02d", number, 0);
            return number == 0 ? digits : L"-" + digits;
        };
        ASSERT_EQ(part(clock.minutes) + L":" + part(clock.seconds), clockText(-seconds, true, L":"))
            << -seconds;
    }
}

TEST(ClockText, AtTheEndsOfTheRange) {
    // 2,147,483,647 seconds are 596,523 hours, 14 minutes and 7 seconds.
    EXPECT_EQ(L"596523:14:07", clockText(most, false, L":"));
    EXPECT_EQ(L"596523:14:07", clockText(most, true, L":"));
    EXPECT_EQ(L"-596523:14:08", clockText(least, false, L":"));
    EXPECT_EQ(L"-14:-08", clockText(least, true, L":"));
    EXPECT_EQ(L"100:00:00", clockText(360000, false, L":"));
}

TEST(ClockText, TakesAnySeparator) {
    EXPECT_EQ(L"01.02.05", clockText(3725, false, L"."));
    EXPECT_EQ(L"01 h 02 h 05", clockText(3725, false, L" h "));
    EXPECT_EQ(L"010205", clockText(3725, false, L""));
    EXPECT_EQ(L"0205", clockText(125, true, L""));
}

}  // namespace
}  // namespace vorla
