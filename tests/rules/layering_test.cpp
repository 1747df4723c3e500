#include "graphics/layering.h"

#include <gtest/gtest.h>

namespace vorla {
namespace {

using enum Layering::Action;

TEST(Layering, NeedsWindows2000) {
    for (int code = -1; code < 13; ++code) EXPECT_EQ(canLayer(static_cast<WinVer>(code)), code >= 8) << code;
}

TEST(Layering, OfAWindowThatIsNotLayered) {
    struct Row {
        LayeringWish wish;
        Layering expected;
    };
    const Row rows[] = {
        {{{}, {}}, {none, 0, 255, 0}},
        {{255, {}}, {none, 0, 255, 0}},
        {{254, {}}, {apply, 0, 254, 2}},
        {{0, {}}, {apply, 0, 0, 2}},
        {{{}, 0xFF00FF}, {apply, 0xFF00FF, 255, 1}},
        {{{}, 0}, {apply, 0, 255, 1}},
        {{255, 0xFF00FF}, {apply, 0xFF00FF, 255, 3}},
        {{100, 0xFF00FF}, {apply, 0xFF00FF, 100, 3}},
    };
    int number = 0;
    for (const auto& [wish, expected] : rows)
        EXPECT_EQ(layeringFor(wish, false), expected) << "row " << number++;
}

TEST(Layering, OfALayeredWindow) {
    struct Row {
        LayeringWish wish;
        Layering expected;
    };
    const Row rows[] = {
        {{{}, {}}, {remove, 0, 255, 0}},
        {{255, {}}, {remove, 0, 255, 0}},
        {{254, {}}, {apply, 0, 254, 2}},
        {{0, {}}, {apply, 0, 0, 2}},
        {{{}, 0xFF00FF}, {apply, 0xFF00FF, 255, 1}},
        {{255, 0xFF00FF}, {apply, 0xFF00FF, 255, 3}},
        {{100, 0xFF00FF}, {apply, 0xFF00FF, 100, 3}},
    };
    int number = 0;
    for (const auto& [wish, expected] : rows)
        EXPECT_EQ(layeringFor(wish, true), expected) << "row " << number++;
}

}  // namespace
}  // namespace vorla
