#include "graphics/screen_size.h"

#include <gtest/gtest.h>

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

TEST(VirtualScreen, IsMissingBeforeWindows98And2000) {
    for (int code = -1; code < 13; ++code)
        EXPECT_EQ(hasVirtualScreen(static_cast<WinVer>(code)),
                  code != 1 && code != 2 && code != 3 && code != 7)
            << code;
}

TEST(InUnit, TwipsAreRoundedToEven) {
    EXPECT_EQ(inUnit(1024, eUnit::euPixels, 15), 1024);
    EXPECT_EQ(inUnit(1024, eUnit::euTwips, 15), 15360);
    EXPECT_EQ(inUnit(-1024, eUnit::euTwips, 15), -15360);
    EXPECT_EQ(inUnit(1, eUnit::euTwips, 12.5F), 12);
    EXPECT_EQ(inUnit(3, eUnit::euTwips, 12.5F), 38);
    EXPECT_EQ(inUnit(-1, eUnit::euTwips, 12.5F), -12);
    EXPECT_EQ(inUnit(1920, eUnit::euTwips, 11.25F), 21600);
    // Any other unit is pixels.
    EXPECT_EQ(inUnit(1024, static_cast<eUnit>(2), 15), 1024);
    EXPECT_EQ(inUnit(1024, static_cast<eUnit>(-1), 15), 1024);
    EXPECT_EQ(inUnit(INT32_MAX, eUnit::euPixels, 15), INT32_MAX);
    EXPECT_THROW(inUnit(INT32_MAX, eUnit::euTwips, 15), RuntimeError);
    EXPECT_THROW(inUnit(INT32_MIN, eUnit::euTwips, 15), RuntimeError);
}

TEST(RoundedToInt16, FailsPast16Bits) {
    EXPECT_EQ(roundedToInt16(14.5), 14);
    EXPECT_EQ(roundedToInt16(15.5), 16);
    EXPECT_EQ(roundedToInt16(-14.5), -14);
    EXPECT_EQ(roundedToInt16(32767.4), 32767);
    EXPECT_EQ(roundedToInt16(-32768.5), -32768);
    for (const double value : {32767.5, 32768.0, -32769.0, 1e10, -1e10})
        EXPECT_THROW(roundedToInt16(value), RuntimeError) << value;
}

}  // namespace
}  // namespace vorla
