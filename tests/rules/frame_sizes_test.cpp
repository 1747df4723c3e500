#include "graphics/frame_sizes.h"

#include <gtest/gtest.h>

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

TEST(FrameMetric, DependsOnTheBorder) {
    struct Row {
        std::int32_t style;
        std::optional<std::int32_t> title, border;
    };
    const Row rows[] = {{0, {}, {}}, {1, 4, 8},  {2, 4, 32},  {3, 4, 8},         {4, 4, 6},
                        {5, 4, 33},  {6, 4, {}}, {-1, 4, {}}, {INT32_MAX, 4, {}}};
    for (const auto& [style, title, border] : rows) {
        EXPECT_EQ(frameMetric(WS_Flags::wsTitleHeight, style), title) << style;
        EXPECT_EQ(frameMetric(WS_Flags::wsBorderHeight, style), border) << style;
        for (const int other : {0, 3, 5, 32, 34, -1})
            EXPECT_EQ(frameMetric(static_cast<WS_Flags>(other), style), std::nullopt) << other;
    }
}

bool overflows(std::int16_t lines, std::int32_t lineHeight, std::int32_t fieldHeight) try {
    comboHeight(lines, lineHeight, fieldHeight);
    return false;
} catch (const RuntimeError& error) {
    return error.number() == ErrorNumber::overflow;
}

TEST(ComboHeight, HasOneLineMoreThanAsked) {
    EXPECT_EQ(comboHeight(0, 13, 15), 28);
    EXPECT_EQ(comboHeight(7, 13, 15), 119);
    EXPECT_EQ(comboHeight(-1, 13, 15), 15);
    EXPECT_EQ(comboHeight(-3, 13, 15), -11);
    EXPECT_EQ(comboHeight(32767, 13, 15), 425999);
    EXPECT_EQ(comboHeight(-32768, 13, 15), -425956);
    // The system's answer for what is no combo box.
    EXPECT_EQ(comboHeight(7, -1, -1), -9);
}

TEST(ComboHeight, FailsPast32Bits) {
    EXPECT_EQ(comboHeight(32767, 65535, 32767), INT32_MAX);
    EXPECT_TRUE(overflows(32767, 65535, 32768));
    EXPECT_TRUE(overflows(32767, 65536, 0));
    // The list alone does not fit, though the sum would.
    EXPECT_TRUE(overflows(32767, 65536, -1));
    EXPECT_EQ(comboHeight(32767, -65536, 0), INT32_MIN);
    EXPECT_TRUE(overflows(32767, -65536, -1));
}

}  // namespace
}  // namespace vorla
