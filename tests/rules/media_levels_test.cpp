#include "media/levels.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace vorla::media {
namespace {

using Levels = std::vector<std::int32_t>;
constexpr auto slowly = eMMCloseStyle::emmcsSlowly, normal = eMMCloseStyle::emmcsNormal,
               fast = eMMCloseStyle::emmcsFast, unknown = static_cast<eMMCloseStyle>(7);

Levels fade(std::int16_t from, eMMCloseStyle style) {
    Levels levels;
    fadeOut(from, style, [&](std::int32_t level) { levels.push_back(level); });
    return levels;
}

Levels ramped(std::int32_t from, std::int32_t to, const RampSteps& steps, eMMCloseStyle style) {
    Levels levels;
    ramp(from, to, steps, style, [&](std::int32_t level) { levels.push_back(level); });
    return levels;
}

TEST(Fade, GoesDownToTheLastLevelThatIsNotNegative) {
    EXPECT_EQ(fade(10, slowly), (Levels{10, 6, 2}));
    EXPECT_EQ(fade(8, slowly), (Levels{8, 4, 0}));
    EXPECT_EQ(fade(20, normal), (Levels{20, 12, 4}));
    EXPECT_EQ(fade(20, unknown), (Levels{20, 12, 4}));
    EXPECT_EQ(fade(0, slowly), Levels{0});
    EXPECT_EQ(fade(-1, slowly), Levels{});
    EXPECT_EQ(fade(-32768, normal), Levels{});
}

TEST(Fade, OfFullLevelHas251StepsSlowlyAnd126Otherwise) {
    EXPECT_EQ(fade(1000, slowly).size(), 251u);
    EXPECT_EQ(fade(1000, normal).size(), 126u);
    EXPECT_EQ(fade(1000, slowly).back(), 0);
    EXPECT_EQ(fade(1000, normal).back(), 0);
    EXPECT_EQ(fade(32767, normal).size(), 4096u);
    EXPECT_EQ(fade(32767, normal).back(), 7);
}

TEST(Ramp, OfADeviceHasTheStepsOfItsStyle) {
    EXPECT_EQ(ramped(0, 30, deviceSteps, slowly), (Levels{0, 10, 20, 30}));
    EXPECT_EQ(ramped(30, 0, deviceSteps, slowly), (Levels{30, 20, 10, 0}));
    EXPECT_EQ(ramped(0, 100, deviceSteps, normal), (Levels{0, 40, 80}));
    EXPECT_EQ(ramped(100, 0, deviceSteps, unknown), (Levels{100, 60, 20}));
    EXPECT_EQ(ramped(0, 1000, deviceSteps, fast), (Levels{0, 400, 800}));
    EXPECT_EQ(ramped(1000, 200, deviceSteps, fast), (Levels{1000, 600, 200}));
}

TEST(Ramp, OfADiscHasLargerSteps) {
    EXPECT_EQ(ramped(0, 1000, discSteps, slowly), (Levels{0, 500, 1000}));
    EXPECT_EQ(ramped(3000, 0, discSteps, normal), (Levels{3000, 1800, 600}));
    EXPECT_EQ(ramped(0, 9601, discSteps, fast), (Levels{0, 4800, 9600}));
    // The fade of a disc at full volume: 65535 / 1200 = 54.6.
    EXPECT_EQ(ramped(65535, 0, discSteps, normal).size(), 55u);
    EXPECT_EQ(ramped(65535, 0, discSteps, normal).back(), 735);
}

TEST(Ramp, WithoutAWayToGoHasOneLevel) {
    for (const auto style : {slowly, normal, fast})
        EXPECT_EQ(ramped(500, 500, deviceSteps, style), Levels{500});
}

TEST(Ramp, StopsAtTheEndsOf32Bits) {
    constexpr auto most = std::numeric_limits<std::int32_t>::max(),
                   least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(ramped(most - 10, most, discSteps, slowly), Levels{most - 10});
    EXPECT_EQ(ramped(least + 10, least, discSteps, fast), Levels{least + 10});
}

}  // namespace
}  // namespace vorla::media
