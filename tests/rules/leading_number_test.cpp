#include "frame/values/leading_number.h"

#include <gtest/gtest.h>

#include <limits>

#include "frame/values/rounding.h"
#include "outcome.h"

namespace vorla {
namespace {

constexpr auto infinity = std::numeric_limits<double>::infinity();

TEST(LeadingNumber, IsTheLongestNumericPrefix) {
    const struct {
        Text text;
        double expected;
    } rows[] = {
        {L"25", 25},
        {L"25x", 25},
        {L"x25", 0},
        {L"", 0},
        {L"-7", -7},
        {L"+7", 7},
        {L"+-7", 0},
        {L"-+7", 0},
        {L"--7", 0},
        {L"7-", 7},
        {L"12.5", 12.5},
        {L"12,5", 12},
        {L".5", 0.5},
        {L"5.", 5},
        {L"1.2.3", 1.2},
        {L"1E3", 1000},
        {L"1e-1", 0.1},
        {L"1d2", 100},
        {L"1D+2", 100},
        {L"1E", 1},
        {L"1E+", 1},
        {L"E3", 0},
        {L".", 0},
        {L"-", 0},
        {L"+", 0},
        {L"  25", 25},
        {L"30 002", 30002},
        {L"1\t2\n3", 123},
        {L"1\u00A02", 1},
        {L"\uFF11", 0},
        {L"007", 7},
        {L"&H1F", 0},
        {L"1/2", 1},
        {L"inf", 0},
        {L"nan", 0},
        {L"1E400", infinity},
        {L"-1E400", -infinity},
        {L"1E-400", 0},
        {Text(400, L'9'), infinity},
        // All digits together with the exponent decide whether a number is too large or too small.
        {Text(400, L'9') + L"E-5", infinity},
        {Text(400, L'9') + L"E-", infinity},
        {L"-" + Text(400, L'9') + L"E-5", -infinity},
        {Text(400, L'9') + L"E-800", 0},
        {L"." + Text(400, L'0') + L"1", 0},
        {L"." + Text(400, L'0') + L"1E+5", 0},
        {L"." + Text(400, L'0') + L"1E800", infinity},
        {L"1E99999999999999999999", infinity},
        {L"1E-99999999999999999999", 0},
        {L"0x1F", 0},
    };
    for (const auto& row : rows) EXPECT_EQ(leadingNumber(row.text), row.expected) << shown(row.text);
}

TEST(Rounding, GoesToTheNearestAndFromHalvesToTheEven) {
    const auto rounded = [](double value) {
        return outcomeOf([&] { return std::to_wstring(roundedToInt32(value)); });
    };
    EXPECT_EQ(rounded(0.5), L"0");
    EXPECT_EQ(rounded(1.5), L"2");
    EXPECT_EQ(rounded(2.5), L"2");
    EXPECT_EQ(rounded(-0.5), L"0");
    EXPECT_EQ(rounded(-1.5), L"-2");
    EXPECT_EQ(rounded(-2.5), L"-2");
    EXPECT_EQ(rounded(2.4999), L"2");
    EXPECT_EQ(rounded(2.5001), L"3");
    EXPECT_EQ(rounded(0.49999999999999994), L"0");
    EXPECT_EQ(rounded(2147483647.4), L"2147483647");
    EXPECT_EQ(rounded(2147483647.5), Raises(6));
    EXPECT_EQ(rounded(-2147483648.5), L"-2147483648");
    EXPECT_EQ(rounded(-2147483648.6), Raises(6));
    EXPECT_EQ(rounded(infinity), Raises(6));
    EXPECT_EQ(rounded(-infinity), Raises(6));
    EXPECT_EQ(rounded(std::numeric_limits<double>::quiet_NaN()), Raises(6));
}

}  // namespace
}  // namespace vorla
