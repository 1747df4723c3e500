#include "media/times.h"

#include <gtest/gtest.h>

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

TEST(MediaTimes, AreNoIntegerUnlessItHasNoSeparator) {
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
