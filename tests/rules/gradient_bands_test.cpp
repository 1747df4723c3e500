#include "graphics/gradient_bands.h"

#include <gtest/gtest.h>

#include "graphics/colour_shift.h"

namespace vorla {
namespace {

TEST(GradientBand, GoesTowardsWhite) {
    constexpr GradientStart start{200, 0, 255};
    EXPECT_EQ(gradientBand(0, start, true), (GradientBand{0, 2, colourOf(200, 0, 255)}));
    EXPECT_EQ(gradientBand(1, start, true), (GradientBand{2, 4, colourOf(201, 1, 255)}));
    // Red arrives at step 55 and stays.
    EXPECT_EQ(gradientBand(54, start, true).colour, colourOf(254, 54, 255));
    EXPECT_EQ(gradientBand(55, start, true).colour, colourOf(255, 55, 255));
    EXPECT_EQ(gradientBand(56, start, true).colour, colourOf(255, 56, 255));
    EXPECT_EQ(gradientBand(255, start, true), (GradientBand{510, 512, 0xFFFFFF}));
}

TEST(GradientBand, GoesTowardsBlack) {
    constexpr GradientStart start{200, 0, 255};
    EXPECT_EQ(gradientBand(0, start, false), (GradientBand{0, 2, colourOf(200, 0, 255)}));
    EXPECT_EQ(gradientBand(1, start, false), (GradientBand{2, 4, colourOf(199, 0, 254)}));
    EXPECT_EQ(gradientBand(200, start, false), (GradientBand{400, 402, colourOf(0, 0, 55)}));
    EXPECT_EQ(gradientBand(201, start, false).colour, colourOf(0, 0, 54));
    EXPECT_EQ(gradientBand(255, start, false), (GradientBand{510, 512, 0}));
}

TEST(GradientBand, FollowsTheOneAbove) {
    for (std::int32_t i = 1; i < gradientBands; ++i)
        EXPECT_EQ(gradientBand(i, {}, true).top, gradientBand(i - 1, {}, true).bottom);
    EXPECT_EQ(gradientBand(gradientBands - 1, {}, true).bottom, gradientHeight);
}

}  // namespace
}  // namespace vorla
