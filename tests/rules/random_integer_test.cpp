#include "misc/random_integer.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace vorla {
namespace {

constexpr auto least = std::numeric_limits<std::int32_t>::min(),
               most = std::numeric_limits<std::int32_t>::max();
constexpr double almostOne = 1 - std::numeric_limits<double>::epsilon() / 2;

std::int32_t drawn(std::int32_t from, std::int32_t to, double random) {
    return randomBetween(from, to, [random] { return random; });
}

TEST(RandomBetween, DividesTheRangeEvenly) {
    EXPECT_EQ(1, drawn(1, 6, 0));
    EXPECT_EQ(1, drawn(1, 6, 0.16));
    EXPECT_EQ(2, drawn(1, 6, 0.17));
    EXPECT_EQ(6, drawn(1, 6, 0.84));
    EXPECT_EQ(6, drawn(1, 6, 0.999999));
    EXPECT_EQ(-3, drawn(-3, -1, 0));
    EXPECT_EQ(-2, drawn(-3, -1, 0.5));
    EXPECT_EQ(-1, drawn(-3, -1, 0.999999));
    EXPECT_EQ(0, drawn(-1, 1, 0.5));
}

TEST(RandomBetween, ReachesBothEndsOfTheWholeRange) {
    EXPECT_EQ(least, drawn(least, most, 0));
    EXPECT_EQ(most, drawn(least, most, almostOne));
    EXPECT_EQ(0, drawn(least, most, 0.5));
    EXPECT_EQ(most, drawn(most - 1, most, 0.75));
    EXPECT_EQ(least, drawn(least, least + 1, 0));
}

TEST(RandomBetween, AsksAgainForANumberOutsideTheRange) {
    const std::vector<double> numbers = {1.0, -0.5, 0.5};
    std::size_t asked = 0;
    EXPECT_EQ(4, randomBetween(1, 6, [&] { return numbers.at(asked++); }));
    EXPECT_EQ(3u, asked);
}

TEST(RandomNumbers, LieFromZeroToBelowOneAndSpreadEvenly) {
    RandomNumbers numbers(12345);
    constexpr int count = 60000;
    int faces[6] = {};
    for (int i = 0; i < count; ++i) {
        const double number = numbers.next();
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 1);
        ++faces[static_cast<int>(number * 6)];
    }
    // Each face is expected 10,000 times, with a standard deviation of 91.
    for (const int face : faces) EXPECT_NEAR(count / 6, face, 500);
}

TEST(RandomNumbers, FollowFromTheSeed) {
    EXPECT_EQ(RandomNumbers(7).next(), RandomNumbers(7).next());
    // The first numbers of neighbouring seeds have nothing to do with one another.
    double sum = 0;
    for (std::uint64_t seed = 0; seed < 10000; ++seed) sum += RandomNumbers(seed << 32).next();
    EXPECT_NEAR(0.5, sum / 10000, 0.02);
}

}  // namespace
}  // namespace vorla
