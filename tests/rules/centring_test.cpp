#include "graphics/centring.h"

#include <gtest/gtest.h>

namespace vorla {
namespace {

constexpr records::RectSise screen{-1024, -200, 2304, 968};

TEST(OnScreen, ComparesWithSizesAndSums) {
    struct Row {
        records::Rect parent;
        bool isOnScreen;
    };
    const Row rows[] = {
        {{0, 0, 640, 480}, true},
        // The edges' sum: -924 - 100 is the screen's start.
        {{-924, 0, -100, 480}, true},
        {{-925, 0, -100, 480}, false},
        {{0, -150, 640, -50}, true},
        {{0, -150, 640, -51}, false},
        // The left edge against the width, as if the screen began at 0.
        {{2304, 0, 2944, 480}, true},
        {{2305, 0, 2945, 480}, false},
        {{0, 968, 640, 1448}, true},
        {{0, 969, 640, 1449}, false},
        // Sums past 32 bits.
        {{2304, 968, INT32_MAX, INT32_MAX}, true},
        {{INT32_MIN, 0, INT32_MIN, 480}, false},
        {{0, INT32_MIN, 640, INT32_MIN}, false},
    };
    for (const auto& [parent, expected] : rows)
        EXPECT_EQ(isOnScreen(parent, screen), expected) << parent.Left << " " << parent.Top;
}

TEST(CentredOnParent, StaysOnTheScreen) {
    struct Row {
        std::int32_t start, end;
        double length, expected;
    };
    const Row rows[] = {
        {100, 500, 200, 200},                // 100 + (400 - 200) / 2
        {100, 501, 200, 200.5},              // halves stay
        {100, 300, 400, 0},                  // longer than its parent: 100 - 100
        {-1000, -900, 400, -1024},           // -1150 is before the screen
        {2200, 2300, 400, 1904},             // 2050 is past 2304 - 400
        {0, 100, 3000, -1024},               // -1450 is before the screen; 2304 - 3000 = -696 is after -1024
        {0, 100, 4000, -1696},               // 2304 - 4000, although that is before the screen
        {INT32_MIN, INT32_MAX, 100, -50.5},  // nothing wraps: -2^31 + (2^32 - 1 - 100) / 2
    };
    for (const auto& [start, end, length, expected] : rows)
        EXPECT_DOUBLE_EQ(centredOnParent(start, end, length, screen.Left, screen.Width), expected) << start;
}

TEST(CentredOnScreen, StaysOnTheVirtualScreen) {
    EXPECT_DOUBLE_EQ(centredOnScreen(15360, 4800, 0), 5280);
    EXPECT_DOUBLE_EQ(centredOnScreen(15360, 4801, 0), 5279.5);
    EXPECT_DOUBLE_EQ(centredOnScreen(15360, 4800, 6000), 6000);
    // A virtual screen that begins too far to the right: the end counts more.
    EXPECT_DOUBLE_EQ(centredOnScreen(15360, 4800, 12000), 10560);
    // Longer than the screen: -4800 from centring is raised to 0, then lowered to 15360 - 24960.
    EXPECT_DOUBLE_EQ(centredOnScreen(15360, 24960, 0), -9600);
    EXPECT_DOUBLE_EQ(centredOnScreen(15360, 24960, -15360), -9600);
}

}  // namespace
}  // namespace vorla
