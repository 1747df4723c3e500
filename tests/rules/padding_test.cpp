#include "text/padding.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

struct Row {
    Text text;
    std::int16_t width;
    Outcome<Text> left;
    Outcome<Text> right;
};

Text fill(std::size_t length) { return Text(length, L'x'); }
Text blanks(std::size_t length) { return Text(length, L' '); }

void expectColumn(const Row& row) {
    EXPECT_EQ(outcomeOf([&] { return leftAligned(row.text, row.width); }), row.left)
        << call("leftAligned", row.text, row.width);
    EXPECT_EQ(outcomeOf([&] { return rightAligned(row.text, row.width); }), row.right)
        << call("rightAligned", row.text, row.width);
}

TEST(Columns, AreFilledWithBlanks) {
    const Row rows[] = {
        {L"12.5", 6, L"12.5  ", L"  12.5"},
        {L"abc", 4, L"abc ", L" abc"},
        {L"abc", 3, L"abc", L"abc"},
        {L"", 3, L"   ", L"   "},
        {L"     ", 3, L"   ", L"   "},
        {L"a", 1, L"a", L"a"},
        {L"", 0, L"", L""},
        {L"a b", 5, L"a b  ", L"  a b"},
    };
    for (const Row& row : rows) expectColumn(row);
}

TEST(Columns, CutWhatDoesNotFit) {
    const Row rows[] = {
        {L"abcdef", 3, L"abc", L"def"}, {L"abcdef", 5, L"abcde", L"bcdef"}, {L"abcdef", 0, L"", L""},
        {L"a b", 2, L"a ", L" b"},      {fill(40000), 3, L"xxx", L"xxx"},
    };
    for (const Row& row : rows) expectColumn(row);
}

TEST(Columns, LoseSurroundingSpacesBeforeAnythingElse) {
    const Row rows[] = {
        {L"  abc  ", 2, L"ab", L"bc"},
        {L"  abc  ", 5, L"abc  ", L"  abc"},
        {L" 12.5", 6, L"12.5  ", L"  12.5"},
        {L"abc ", 3, L"abc", L"abc"},
        // Tabs, line ends and no-break spaces do not count as spaces.
        {L"\tab\t", 6, L"\tab\t  ", L"  \tab\t"},
        {L" \t ", 2, L"\t ", L" \t"},
        {L"\u00A0a", 3, L"\u00A0a ", L" \u00A0a"},
        {L"a\r\n", 4, L"a\r\n ", L" a\r\n"},
    };
    for (const Row& row : rows) expectColumn(row);
}

TEST(Columns, HoldAnyCharacter) {
    const Row rows[] = {
        {L"a\0b"s, 5, L"a\0b  "s, L"  a\0b"s},
        {L"a\0b"s, 2, L"a\0"s, L"\0b"s},
        {L"\0"s, 2, L"\0 "s, L" \0"s},
        {L"\u00E9t\u00E9\u20AC", 3, L"\u00E9t\u00E9", L"t\u00E9\u20AC"},
        {L"\u20AC", 2, L"\u20AC ", L" \u20AC"},
    };
    for (const Row& row : rows) expectColumn(row);
}

TEST(Columns, AreUpToTheLargestWidth) {
    const Row rows[] = {
        {L"a", 32767, L"a" + blanks(32766), blanks(32766) + L"a"},
        {L"", 32767, blanks(32767), blanks(32767)},
        {L"a" + fill(32766), 32767, L"a" + fill(32766), L"a" + fill(32766)},
        {L"a" + fill(32766) + L"b", 32767, L"a" + fill(32766), fill(32766) + L"b"},
    };
    for (const Row& row : rows) expectColumn(row);
}

TEST(Columns, OfNegativeWidthRaiseInvalidProcedureCall) {
    for (const auto width : std::initializer_list<std::int16_t>{-1, -32768})
        for (const auto* text : {L"", L" ", L"abc"}) expectColumn({text, width, Raises(5), Raises(5)});
}

}  // namespace
}  // namespace vorla
