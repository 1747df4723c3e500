#include "text/amounts.h"

#include <gtest/gtest.h>

#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

TEST(SystemSign, ReplacesTheFirstForeignCharacter) {
    const struct {
        Text amount, expected;
    } rows[] = {
        {L"12.50", L"12,50"},
        {L"-12.5", L"-12,5"},
        {L".5", L",5"},
        {L"12.", L"12,"},
        {L"1.2.3", L"1,2.3"},
        {L"12", L"12"},
        {L"-", L"-"},
        {L"1-2", L"1-2"},
        {L"", L""},
        {L"abc", L",bc"},
        {L"1 000.5", L"1,000.5"},
        {L"\u0661", L","},
        {L"1\0"
         L"2"s,
         L"1,2"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(given(withSystemSign(row.amount, L',')), row.expected) << shown(row.amount);
    EXPECT_EQ(given(withSystemSign(L"1.5", L'\u066B')), L"1\u066B5");
}

TEST(Point, ReplacesTheFirstSeparator) {
    EXPECT_EQ(given(withPoint(L"12,5", L',')), L"12.5");
    EXPECT_EQ(given(withPoint(L"1,2,3", L',')), L"1.2,3");
    EXPECT_EQ(given(withPoint(L"12.5", L'.')), L"12.5");
    EXPECT_EQ(given(withPoint(L"12;5", L',')), L"12;5");
    EXPECT_EQ(given(withPoint(L",", L',')), L".");
    EXPECT_EQ(given(withPoint(L"", L',')), L"");
}

}  // namespace
}  // namespace vorla
