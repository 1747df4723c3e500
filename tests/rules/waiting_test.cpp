#include "frame/shared/waiting.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorla {
namespace {

TEST(Waiting, IsOverWhenItsTimeHasPassed) {
    EXPECT_FALSE(isWaitOver(1000, 1000, 20));
    EXPECT_FALSE(isWaitOver(1000, 1019, 20));
    EXPECT_TRUE(isWaitOver(1000, 1020, 20));
    EXPECT_TRUE(isWaitOver(1000, 5000, 20));
    EXPECT_TRUE(isWaitOver(1000, 1000, 0));
    EXPECT_TRUE(isWaitOver(1000, 1000, -1));
    EXPECT_TRUE(isWaitOver(0, 0, std::numeric_limits<std::int32_t>::min()));
}

TEST(Waiting, IsOverWhenTheCounterStartsOver) {
    EXPECT_TRUE(isWaitOver(1000, 999, 20));
    EXPECT_TRUE(isWaitOver(4294967280u, 5, 1000));
    // The wait would end after the counter starts over, so it ends when that happens.
    EXPECT_FALSE(isWaitOver(4294967280u, 4294967295u, 1000));
    EXPECT_FALSE(isWaitOver(4294967280u, 4294967295u, std::numeric_limits<std::int32_t>::max()));
    // The middle of the counter's range is not special.
    EXPECT_FALSE(isWaitOver(2147483640u, 2147483650u, 20));
    EXPECT_TRUE(isWaitOver(2147483640u, 2147483660u, 20));
}

}  // namespace
}  // namespace vorla
