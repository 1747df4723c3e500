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

TEST(Theme, WhatDecidesOnTheColourOfAControl) {
    EXPECT_EQ(Colouring::themed, colouringOf(L"", false));
    EXPECT_EQ(Colouring::none, colouringOf(L"", true));
    EXPECT_EQ(Colouring::none, colouringOf(L"x**C**", false));
    EXPECT_EQ(Colouring::tab, colouringOf(L"**SmartTab**", false));
    EXPECT_EQ(Colouring::none, colouringOf(L"**SmartTab**", true));
    EXPECT_EQ(Colouring::none, colouringOf(L"**SmartTab****C**", false));
    for (const auto* tag : {L" **SmartTab**", L"**SmartTab** ", L"**SMARTTAB**", L"**c**"})
        EXPECT_EQ(Colouring::themed, colouringOf(tag, false));
}

TEST(Theme, ColoursOfThemedControls) {
    EXPECT_EQ(Colour(back), themedColour(applied, marked));
    EXPECT_EQ(Colour(buttonFace), themedColour(unapplied, marked));
    EXPECT_EQ(kept, themedColour(applied, other));
    EXPECT_EQ(kept, themedColour(unapplied, other));
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
