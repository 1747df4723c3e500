#include "misc/growth.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorla {
namespace {

constexpr Currency amount(std::int64_t whole) { return {whole * 10000}; }

TEST(Growth, IsInPercentOfTheFirstAmount) {
    EXPECT_EQ(50, growth(amount(100), amount(150)));
    EXPECT_EQ(-25, growth(amount(200), amount(150)));
    EXPECT_EQ(0, growth(amount(7), amount(7)));
    EXPECT_EQ(-200, growth(amount(100), amount(-100)));
    // From -100 up to 50 is a fall, since the first amount is negative.
    EXPECT_EQ(-150, growth(amount(-100), amount(50)));
    EXPECT_EQ(100, growth(Currency{1}, Currency{2}));
    EXPECT_DOUBLE_EQ(100.0 / 3, growth(amount(3), amount(4)));
}

TEST(Growth, IsZeroForAnAmountOfZero) {
    EXPECT_EQ(0, growth(amount(0), amount(150)));
    EXPECT_EQ(0, growth(amount(150), amount(0)));
    EXPECT_EQ(0, growth(amount(0), amount(0)));
}

TEST(Growth, DoesNotOverflow) {
    constexpr auto least = std::numeric_limits<std::int64_t>::min(),
                   most = std::numeric_limits<std::int64_t>::max();
    EXPECT_DOUBLE_EQ(-200, growth(Currency{most}, Currency{least}));
    EXPECT_DOUBLE_EQ(9.223372036854775807e20, growth(Currency{1}, Currency{most}));
}

}  // namespace
}  // namespace vorla
