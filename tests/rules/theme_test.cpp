#include "language/theme.h"

#include <gtest/gtest.h>

namespace vorla::language {
namespace {

using Colour = std::optional<std::int32_t>;

constexpr std::int32_t back = 10, tab = 20, marked = 30, other = 40;
constexpr Theme applied{true, back, tab, marked}, unapplied{false, back, tab, marked};
const Colour kept;

TEST(Theme, TheButtonColourIsTheSystems) { EXPECT_EQ(0x8000000Fu, static_cast<std::uint32_t>(buttonFace)); }

TEST(Theme, ColoursOfForms) {
    EXPECT_EQ(Colour(back), formColour(applied, marked, L""));
    EXPECT_EQ(kept, formColour(applied, other, L""));
    EXPECT_EQ(Colour(buttonFace), formColour(applied, marked, L"a**C**"));
    EXPECT_EQ(kept, formColour(applied, other, L"**C**"));
    EXPECT_EQ(Colour(back), formColour(applied, marked, L"**c**"));
    EXPECT_EQ(Colour(back), formColour(applied, marked, L"**SmartTab**"));
    EXPECT_EQ(Colour(buttonFace), formColour(unapplied, marked, L""));
    EXPECT_EQ(Colour(buttonFace), formColour(unapplied, marked, L"**C**"));
    EXPECT_EQ(kept, formColour(unapplied, other, L""));
}

TEST(Theme, ColoursOfControls) {
    EXPECT_EQ(Colour(back), controlColour(applied, marked, L"", false));
    EXPECT_EQ(Colour(buttonFace), controlColour(unapplied, marked, L"", false));
    EXPECT_EQ(kept, controlColour(applied, other, L"", false));
    EXPECT_EQ(kept, controlColour(applied, marked, L"x**C**", false));
    EXPECT_EQ(kept, controlColour(applied, marked, L"", true));
    EXPECT_EQ(kept, controlColour(applied, marked, L"**SmartTab**", true));
    for (const Theme& theme : {applied, unapplied}) {
        for (const auto present : {marked, other}) {
            EXPECT_EQ(Colour(tab), controlColour(theme, present, L"**SmartTab**", false));
            EXPECT_EQ(kept, controlColour(theme, present, L"**SmartTab****C**", false));
        }
        EXPECT_EQ(kept, controlColour(theme, other, L" **SmartTab**", false));
        EXPECT_EQ(kept, controlColour(theme, other, L"**SMARTTAB**", false));
    }
    EXPECT_EQ(Colour(back), controlColour(applied, marked, L"**SmartTab** ", false));
}

TEST(Theme, WidthsThatStay) {
    EXPECT_TRUE(keepsWidth(L"**L**"));
    EXPECT_TRUE(keepsWidth(L"a**L**b"));
    EXPECT_FALSE(keepsWidth(L""));
    EXPECT_FALSE(keepsWidth(L"**l**"));
    EXPECT_FALSE(keepsWidth(L"*L*"));
}

}  // namespace
}  // namespace vorla::language
