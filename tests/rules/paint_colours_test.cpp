#include "graphics/paint_colours.h"

#include <gtest/gtest.h>

namespace vorla::graphics {
namespace {

constexpr Colour marked(Colour colour) { return colour | 0x02000000; }

TEST(PaintColours, APalettesMarkMakesNoOtherColour) {
    EXPECT_TRUE(isSameColour(white, white));
    EXPECT_TRUE(isSameColour(marked(white), white));
    EXPECT_TRUE(isSameColour(white, marked(white)));
    EXPECT_TRUE(isSameColour(marked(red), marked(red)));
    EXPECT_FALSE(isSameColour(marked(red), blue));
    // The entry of a palette is not a colour: entry 255 is not red.
    EXPECT_FALSE(isSameColour(0x010000FF, red));
    EXPECT_TRUE(isSameColour(0x010000FF, 0x010000FF));
}

TEST(PaintColours, TheKeyIsNeitherOfTwoColours) {
    struct Row {
        Colour shadow, highlight, key;
    };
    constexpr Colour grey = 0x808080;
    const Row rows[] = {{grey, white, black}, {black, white, red}, {white, black, red}, {black, black, red},
                        {red, black, blue},   {black, red, blue},  {red, white, black}, {blue, red, black},
                        {blue, black, red},   {black, blue, red},  {red, blue, black}};
    for (const Row& row : rows) {
        EXPECT_EQ(row.key, keyColour(keyColours, row.shadow, row.highlight)) << row.shadow;
        const std::array throughPalette{marked(black), marked(red), marked(blue)};
        EXPECT_EQ(marked(row.key), keyColour(throughPalette, row.shadow, row.highlight)) << row.shadow;
        EXPECT_EQ(marked(row.key), keyColour(throughPalette, marked(row.shadow), row.highlight))
            << row.shadow;
    }
}

}  // namespace
}  // namespace vorla::graphics
