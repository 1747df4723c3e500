#include "text/keys.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

struct Row {
    Text text;
    std::int16_t width;
    Outcome<Text> expected;
};

using Rule = Joined (*)(TextView, std::int16_t);

void expectKeys(const char* name, Rule rule, std::initializer_list<Row> rows) {
    for (const Row& row : rows)
        EXPECT_EQ(outcomeOf([&] { return rule(row.text, row.width); }), row.expected)
            << call(name, row.text, row.width);
}

void expectZeroFilled(std::initializer_list<Row> rows) { expectKeys("zeroFilled", zeroFilled, rows); }
void expectStored(std::initializer_list<Row> rows) { expectKeys("storedKey", storedKey, rows); }
void expectNext(std::initializer_list<Row> rows) { expectKeys("nextCode", nextCode, rows); }

Text run(std::size_t length, wchar_t character) { return Text(length, character); }

TEST(NumericKey, GetsLeadingZeros) {
    expectZeroFilled({
        {L"42", 6, L"000042"},
        {L"42", 3, L"042"},
        {L"42", 2, L"42"},
        {L"0", 3, L"000"},
        {L"7", 32767, run(32766, L'0') + L"7"},
    });
}

TEST(NumericKey, IsNeverCut) {
    expectZeroFilled({
        {L"1234567", 3, L"1234567"},
        {L"42", 1, L"42"},
        {L"42", 0, L"42"},
        {L"0", 0, L"0"},
        {L"-7", 0, L"-7"},
    });
}

// The width counts digits only, without the sign.
TEST(NumericKey, KeepsItsMinusSignInFrontOfTheZeros) {
    expectZeroFilled({
        {L"-42", 6, L"-000042"},
        {L"-42", 3, L"-042"},
        {L"-42", 2, L"-42"},
        {L"-42", 1, L"-42"},
        {L"-7", 32767, L"-" + run(32766, L'0') + L"7"},
    });
}

TEST(TextKey, IsFilledOrCutToItsWidth) {
    expectStored({
        {L" AB ", 4, L"AB  "},
        {L"ABCDEF", 3, L"ABC"},
        {L"ABC", 3, L"ABC"},
        {L"A B", 2, L"A "},
        {L"   A B   ", 5, L"A B  "},
        {L"AB", 0, L""},
        {L"\tA", 4, L"\tA  "},
        {L"\t", 2, L"\t "},
        {L"\u00C9T\u00C9", 4, L"\u00C9T\u00C9 "},
        {L"A\0B"s, 4, L"A\0B "s},
        {L"A\0B"s, 2, L"A\0"s},
        {L"A", 32767, L"A" + run(32766, L' ')},
        {run(40000, L'A'), 32767, run(32767, L'A')},
    });
}

TEST(TextKey, OfNothingIsZeros) {
    expectStored({
        {L"", 3, L"000"},
        {L"    ", 3, L"000"},
        {L"", 0, L""},
        {L"  ", 0, L""},
        {L"", 32767, run(32767, L'0')},
    });
}

TEST(NextCode, CountsInBase36) {
    expectNext({
        {L"A09", 0, L"A0A"},
        {L"00Z", 0, L"010"},
        {L"0Y", 0, L"0Z"},
        {L"0", 0, L"1"},
        {L"9", 0, L"A"},
        {L"Y", 0, L"Z"},
        {L"9Z", 0, L"A0"},
        {L"0ZZ", 0, L"100"},
        {L"YZZZ", 0, L"Z000"},
        {L"A9ZZ", 0, L"AA00"},
        {L"ZZ0", 0, L"ZZ1"},
        {L"Z0Z", 0, L"Z10"},
    });
}

TEST(NextCode, CountsThroughEveryCodeOfTwoDigits) {
    const TextView digits = L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const auto code = [&](std::size_t value) { return Text{digits[value / 36], digits[value % 36]}; };
    for (std::size_t value = 0; value + 1 < 36 * 36; ++value) expectNext({{code(value), 0, code(value + 1)}});
}

TEST(NextCode, StartsAnEmptyCodeAtOne) {
    expectNext({
        {L"", 4, L"0001"},
        {L"", 3, L"001"},
        {L"", 1, L"1"},
        {L"", 0, L""},
        {L"", 32767, run(32766, L'0') + L"1"},
    });
}

TEST(NextCode, TakesNoWidthButForAnEmptyCode) {
    expectNext({{L"A09", 10, L"A0A"}, {L"A09", 1, L"A0A"}, {L"Z", 3, L"1"}, {L"a", 3, L"a"}});
}

TEST(NextCode, CarriesOutOfTheFirstDigitIntoTheLast) {
    expectNext({
        {L"Z", 0, L"1"},
        {L"ZZ", 0, L"01"},
        {L"ZZZ", 0, L"001"},
        {run(32767, L'Z'), 0, run(32766, L'0') + L"1"},
        {L"1" + run(32766, L'Z'), 0, L"2" + run(32766, L'0')},
    });
}

TEST(NextCode, LetsOtherCharactersAbsorbTheCarry) {
    expectNext({
        {L"aZ", 0, L"a0"},
        {L"aZZ", 0, L"a00"},
        {L"9aZ", 0, L"9a0"},
        {L"ZaZ", 0, L"Za0"},
        {L"-Z", 0, L"-0"},
        {L" Z", 0, L" 0"},
        {L"\u00E9Z", 0, L"\u00E90"},
        {L"\0Z"s, 0,
         L"\0"
         L"0"s},
    });
}

TEST(NextCode, LeavesACodeUnchangedThatEndsInNoDigit) {
    expectNext({
        {L"a", 0, L"a"},
        {L"12a", 0, L"12a"},
        {L"z", 0, L"z"},
        {L" ", 0, L" "},
        {L"1 ", 0, L"1 "},
        {L"Z ", 0, L"Z "},
        {L"\u00E9", 0, L"\u00E9"},
        // A full-width 1 and a Greek capital alpha look like digits but are not.
        {L"\uFF11", 0, L"\uFF11"},
        {L"\u0391", 0, L"\u0391"},
        {L"1\0"s, 0, L"1\0"s},
        // The neighbours of the two ranges of digits.
        {L"1/", 0, L"1/"},
        {L"1:", 0, L"1:"},
        {L"1@", 0, L"1@"},
        {L"1[", 0, L"1["},
    });
}

TEST(NextCode, CountsOnAcrossOtherCharactersInFront) {
    expectNext({{L"a9", 0, L"aA"},
                {L"A-09", 0, L"A-0A"},
                {L"a0Z", 0, L"a10"},
                {L"\0"
                 L"0Z"s,
                 0,
                 L"\0"
                 L"10"s}});
}

TEST(NextCode, LongerThanTheLastPositionRaisesOverflow) {
    expectNext({
        {run(32767, L'0'), 0, run(32766, L'0') + L"1"},
        {run(32768, L'0'), 0, Raises(6)},
        {run(32768, L'Z'), 0, Raises(6)},
        {run(32768, L'a'), 0, Raises(6)},
    });
}

TEST(Keys, OfNegativeWidthRaiseInvalidProcedureCall) {
    for (const auto width : std::initializer_list<std::int16_t>{-1, -32768}) {
        expectZeroFilled({{L"42", width, Raises(5)}, {L"-42", width, Raises(5)}});
        expectStored({{L"AB", width, Raises(5)}, {L"", width, Raises(5)}, {L"  ", width, Raises(5)}});
        expectNext({{L"A09", width, Raises(5)},
                    {L"", width, Raises(5)},
                    {L"a", width, Raises(5)},
                    {L"Z", width, Raises(5)}});
    }
}

}  // namespace
}  // namespace vorla
