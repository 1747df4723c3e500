#include "graphics/colour_shift.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

constexpr auto add = eXpColorShift::Add, blend = eXpColorShift::Multiply,
               multiply = eXpColorShift::MultiplyOnly;

TEST(Colours, HaveComponents) {
    EXPECT_EQ(redOf(0x00336699), 0x99);
    EXPECT_EQ(greenOf(0x00336699), 0x66);
    EXPECT_EQ(blueOf(0x00336699), 0x33);
    // A number in the highest byte belongs to no component.
    EXPECT_EQ(blueOf(0x7F336699), 0x33);
    EXPECT_EQ(colourOf(0x99, 0x66, 0x33), 0x00336699);
    for (std::int32_t i = 0; i < 256; ++i) {
        EXPECT_EQ(redOf(colourOf(i, 255 - i, 0)), i);
        EXPECT_EQ(greenOf(colourOf(0, i, 255)), i);
        EXPECT_EQ(blueOf(colourOf(255, 0, i)), i);
    }
}

struct Row {
    std::int32_t colour;
    ColourShift shift;
    eXpColorShift operation;
    std::int32_t expected;
};

void expectShifts(std::initializer_list<Row> rows) {
    int number = 0;
    for (const auto& [colour, shift, operation, expected] : rows)
        EXPECT_EQ(shiftedColour(colour, shift, operation), expected) << "row " << number++;
}

TEST(ShiftedColour, Adds) {
    expectShifts({
        {0x0A141E, {0, 0, 0}, add, 0x0A141E},
        {colourOf(30, 20, 10), {1, 2, 3}, add, colourOf(31, 22, 13)},
        {colourOf(30, 20, 10), {300, -300, -10}, add, colourOf(255, 0, 0)},
        // Halves to even: 30.5, 21.5, 10.5.
        {colourOf(30, 20, 10), {0.5, 1.5, 0.5}, add, colourOf(30, 22, 10)},
        // As a single, 31.4999999999 is 31.5.
        {colourOf(31, 0, 0), {0.4999999999, 0, 0}, add, colourOf(32, 0, 0)},
        {colourOf(254, 0, 0), {0.6, 0.4, 0.6}, add, colourOf(255, 0, 1)},
    });
}

TEST(ShiftedColour, BlendsAcross) {
    expectShifts({
        // Red and blue land crossed.
        {0, {10, 20, 30}, blend, colourOf(30, 20, 10)},
        // 0 + (255 * 100) \ 255 and so on.
        {colourOf(100, 150, 200), {0, 0, 0}, blend, colourOf(100, 150, 200)},
        // r = 50 + (155 * 100) \ 255 = 50 + 60, g = 0 + 150, b = 100 + (205 * 200) \ 255 = 100 + 160.
        {colourOf(100, 150, 200), {100, 0, 50}, blend, colourOf(110, 150, 255)},
        // The quotient is truncated towards 0: 300 gives (255 - 300) * 100 = -4500, -4500 \ 255 = -17.
        {colourOf(100, 100, 0), {300, 0, 20}, blend, colourOf(3, 100, 255)},
        // The product is rounded before it is divided: 254.5 * 1 gives 254, 254 \ 255 = 0; 254.6 gives 255.
        {colourOf(1, 0, 0), {0.5, 0, 0}, blend, colourOf(0, 0, 0)},
        {colourOf(1, 0, 0), {0.4, 0, 0}, blend, colourOf(1, 0, 0)},
    });
}

TEST(ShiftedColour, Multiplies) {
    expectShifts({
        {colourOf(10, 20, 30), {2, 0.5, 100}, multiply, colourOf(20, 10, 255)},
        {colourOf(10, 20, 30), {-1, 0, 1}, multiply, colourOf(0, 0, 30)},
        // 1.5 and 2.5 to even.
        {colourOf(3, 5, 0), {0.5, 0.5, 7}, multiply, colourOf(2, 2, 0)},
    });
}

TEST(ShiftedColour, StaysForAnUnknownOperation) {
    EXPECT_EQ(shiftedColour(0x336699, {1, 2, 3}, static_cast<eXpColorShift>(3)), 0x336699);
    EXPECT_EQ(shiftedColour(0x336699, {1, 2, 3}, static_cast<eXpColorShift>(-1)), 0x336699);
}

TEST(ShiftedColour, FailsForWhatDoesNotFit) {
    const auto failure = [](double value, std::int32_t colour, eXpColorShift operation) {
        try {
            return std::to_string(shiftedColour(colour, {value, 0, 0}, operation));
        } catch (const RuntimeError& error) {
            return "error " + std::to_string(static_cast<int>(error.number()));
        }
    };
    EXPECT_EQ(failure(1e39, 1, add), "error 6");
    EXPECT_EQ(failure(-1e39, 1, multiply), "error 6");
    EXPECT_EQ(failure(1e38, 255, multiply), "error 6");
    EXPECT_EQ(failure(std::numeric_limits<double>::infinity(), 1, add), "error 6");
    EXPECT_EQ(failure(std::numeric_limits<double>::quiet_NaN(), 1, add), "error 6");
    // 255 * -10,000,000 is past 32 bits, 255 * -8,000,000 is not.
    EXPECT_EQ(failure(10000255, 255, blend), "error 6");
    // Red: 0 + (255 - 8000255) * 255 \ 255, below 0. Blue has red's summand: above 255.
    EXPECT_EQ(failure(8000255, 255, blend), std::to_string(colourOf(0, 0, 255)));
}

}  // namespace
}  // namespace vorla
