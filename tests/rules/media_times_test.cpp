#include "media/times.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "media/disc_tracks.h"
#include "outcome.h"

namespace vorla::media {
namespace {

TEST(MediaTimes, RoundHalvesToEvenSeconds) {
    const struct {
        std::int32_t milliseconds, seconds;
    } rows[] = {{0, 0},
                {499, 0},
                {500, 0},
                {501, 1},
                {1500, 2},
                {2500, 2},
                {3500, 4},
                {-500, 0},
                {-501, -1},
                {-1500, -2},
                {2147483647, 2147484},
                {-2147483647 - 1, -2147484}};
    for (const auto& row : rows) EXPECT_EQ(wholeSeconds(row.milliseconds), row.seconds) << row.milliseconds;
}

TEST(ClockText, HasTwoDigitsEach) {
    const struct {
        std::int32_t seconds;
        TextView full, minutes;
    } rows[] = {{0, L"00:00:00", L"00:00"},
                {59, L"00:00:59", L"00:59"},
                {125, L"00:02:05", L"02:05"},
                {3599, L"00:59:59", L"59:59"},
                {3600, L"01:00:00", L"01:00:00"},
                {3725, L"01:02:05", L"01:02:05"},
                {360000, L"100:00:00", L"100:00:00"},
                {2147483647, L"596523:14:07", L"596523:14:07"},
                {-5, L"-00:00:05", L"00:-05"},
                {-60, L"-00:01:00", L"-01:00"},
                {-125, L"-00:02:05", L"-02:-05"},
                {-3725, L"-01:02:05", L"-02:-05"},
                {-2147483647 - 1, L"-596523:14:08", L"-14:-08"}};
    for (const auto& row : rows) {
        EXPECT_EQ(clockText(row.seconds, false, L":"), row.full) << row.seconds;
        EXPECT_EQ(clockText(row.seconds, true, L":"), row.minutes) << row.seconds;
    }
}

TEST(ClockText, OfEverySecondOfADayCountsUp) {
    char expected[16];
    for (int seconds = 0; seconds < 86400; ++seconds) {
        std::snprintf(expected, sizeof expected, "%02d:%02d:%02d", seconds / 3600, seconds % 3600 / 60,
                      seconds % 60);
        const std::string text(expected);
        ASSERT_EQ(clockText(seconds, false, L":"), Text(text.begin(), text.end()));
        ASSERT_EQ(clockText(seconds, true, L":"), Text(text.begin() + (seconds < 3600 ? 3 : 0), text.end()));
    }
}

TEST(ClockText, TakesAnySeparator) {
    EXPECT_EQ(clockText(125, false, L""), L"000205");
    EXPECT_EQ(clockText(125, true, L" h "), L"02 h 05");
}

TEST(ClockText, IsNoIntegerUnlessItHasNoSeparator) {
    EXPECT_EQ(integerIn(L"0205"), 205);
    for (const TextView time : {L"02:05", L"02.05", L"02 05", L"", L"-0205"})
        EXPECT_EQ(outcomeOf([&] { return integerIn(time); }), Outcome<std::int32_t>(Raises(13)));
    EXPECT_EQ(outcomeOf([&] { return integerIn(L"5965231407"); }), Outcome<std::int32_t>(Raises(6)));
}

TEST(DiscTracks, AreNumberedAfterAPrefix) {
    EXPECT_EQ(trackLine(L"Piste ", 1), L"Piste 1");
    EXPECT_EQ(trackLine(L"", 12), L"12");
    EXPECT_EQ(withLength(L"Piste 1", L"03:25:10"), L"Piste 1 : 03:25:10");
    EXPECT_EQ(withLength(L"1", L""), L"1 : ");
}

TEST(DiscTracks, LoseEveryTrack) {
    EXPECT_EQ(withoutTrack(L"track05"), L"05");
    EXPECT_EQ(withoutTrack(L"track1track2"), L"12");
    EXPECT_EQ(withoutTrack(L"trtrackack7"), L"track7");
    EXPECT_EQ(withoutTrack(L"Track05"), L"Track05");
    EXPECT_EQ(withoutTrack(L"track"), L"");
    EXPECT_EQ(withoutTrack(L""), L"");
}

}  // namespace
}  // namespace vorla::media
