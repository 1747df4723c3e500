#include "graphics/rotated_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

using Position = std::pair<std::int32_t, std::int32_t>;

Position after(Position position, float degrees, float lineHeight) {
    advanceLine(position.first, position.second, degrees, lineHeight);
    return position;
}

TEST(AdvanceLine, DependsOnTheQuadrant) {
    struct Row {
        float degrees;
        Position expected;
    };
    // From (100, 200), by 12.
    const Row rows[] = {
        {0, {100, 212}},
        {-0.0F, {100, 212}},
        {0.1F, {112, 212}},
        {45, {112, 212}},
        {89.99F, {112, 212}},
        {90, {112, 200}},
        {90.01F, {106, 188}},
        {135, {106, 188}},
        {179.99F, {106, 188}},
        {180, {100, 188}},
        {180.01F, {88, 188}},
        {225, {88, 188}},
        {269.99F, {88, 188}},
        {270, {88, 200}},
        {270.01F, {88, 212}},
        {315, {88, 212}},
        {359.99F, {88, 212}},
        {360, {100, 200}},
        {405, {100, 200}},
        {-0.01F, {100, 200}},
        {-90, {100, 200}},
        {std::numeric_limits<float>::infinity(), {100, 200}},
        {std::numeric_limits<float>::quiet_NaN(), {100, 200}},
    };
    for (const auto& [degrees, expected] : rows)
        EXPECT_EQ(after({100, 200}, degrees, 12), expected) << degrees;
}

TEST(AdvanceLine, RoundsHalvesToEven) {
    EXPECT_EQ(after({0, 0}, 0, 0.5F), Position(0, 0));
    EXPECT_EQ(after({0, 1}, 0, 0.5F), Position(0, 2));
    EXPECT_EQ(after({0, 0}, 0, 1.5F), Position(0, 2));
    EXPECT_EQ(after({0, 0}, 45, -2.5F), Position(-2, -2));
    // Half of 13 is 6.5.
    EXPECT_EQ(after({0, 0}, 135, 13), Position(6, -13));
    EXPECT_EQ(after({1, 0}, 135, 13), Position(8, -13));
    EXPECT_EQ(after({5, 7}, 30, 0), Position(5, 7));
}

TEST(AdvanceLine, FailsPast32Bits) {
    constexpr auto most = std::numeric_limits<std::int32_t>::max(),
                   least = std::numeric_limits<std::int32_t>::min();
    struct Row {
        Position from;
        float degrees;
        Position left;
    };
    const Row rows[] = {
        {{5, most}, 0, {5, most}},     {{5, least}, 180, {5, least}},
        {{most, 5}, 90, {most, 5}},    {{most, 5}, 45, {most, 6}},  // y moves first
        {{least, 5}, 270, {least, 5}},
    };
    for (auto [position, degrees, left] : rows) {
        try {
            advanceLine(position.first, position.second, degrees, 1);
            ADD_FAILURE() << degrees;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), ErrorNumber::overflow);
        }
        EXPECT_EQ(position, left) << degrees;
    }
    // What does not move cannot fail.
    EXPECT_EQ(after({most, most}, -1, 1), Position(most, most));
}

TEST(TenthsOfDegree, AreRoundedToEven) {
    EXPECT_EQ(tenthsOfDegree(90), 900);
    EXPECT_EQ(tenthsOfDegree(-45), -450);
    EXPECT_EQ(tenthsOfDegree(0.25F), 2);
    EXPECT_EQ(tenthsOfDegree(0.75F), 8);
    EXPECT_EQ(tenthsOfDegree(33.33F), 333);
    EXPECT_EQ(tenthsOfDegree(200000000), 2000000000);
    for (const float degrees : {220000000.0F, -220000000.0F, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_THROW(tenthsOfDegree(degrees), RuntimeError) << degrees;
}

TEST(TextLine, EndsWithCrLf) {
    EXPECT_EQ(textLine(L"a\r\nb", 1), L"a");
    EXPECT_EQ(textLine(L"a\r\nb", 2), L"b");
    EXPECT_EQ(textLine(L"a\r\nb", 3), L"");
    EXPECT_EQ(textLine(L"a\r\n\r\nb", 2), L"");
    EXPECT_EQ(textLine(L"a\nb\rc", 1), L"a\nb\rc");
    EXPECT_EQ(textLine(L"\r\nb", 1), L"");
    EXPECT_EQ(textLine(L"", 1), L"");
}

// The CR LF that is put in front of the text counts, and the one after the line begins behind both.
TEST(TextLine, FailsPast16Bits) {
    const Text line(32764, L'x');
    EXPECT_EQ(textLine(line + L"\r\ny", 1), line);
    EXPECT_THROW(textLine(line + L"x\r\ny", 1), RuntimeError);
    // A single line of any length is no field of anything.
    EXPECT_EQ(textLine(line + line, 1), line + line);
}

}  // namespace
}  // namespace vorla
