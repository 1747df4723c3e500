#include "frame/shared/fields.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

struct Row {
    Text text;
    std::int16_t rank;
    Text separator;
    Outcome<Text> expected;
};

void expectFields(bool fromEnd, std::initializer_list<Row> rows) {
    for (const Row& row : rows)
        EXPECT_EQ(outcomeOf([&] { return ExtraitChamp(row.text, row.rank, row.separator, fromEnd); }),
                  row.expected)
            << call("ExtraitChamp", row.text, row.rank, row.separator, fromEnd);
}

void expectFromStart(std::initializer_list<Row> rows) { expectFields(false, rows); }
void expectFromEnd(std::initializer_list<Row> rows) { expectFields(true, rows); }

// Filler of a length that puts what follows it near the 16-bit limit.
Text fill(std::size_t length) { return Text(length, L'x'); }

TEST(Fields, CountFromTheStart) {
    expectFromStart({
        {L"a;b;c", 1, L";", L"a"},
        {L"a;b;c", 2, L";", L"b"},
        {L"a;b;c", 3, L";", L"c"},
        {L"un;deux;trois", 2, L";", L"deux"},
        {L"a;", 1, L";", L"a"},
        {L";a", 1, L";", L"a"},
        {L";a;b;", 1, L";", L"a"},
        {L";a;b;", 2, L";", L"b"},
    });
}

TEST(Fields, CountFromTheEnd) {
    expectFromEnd({
        {L"a;b;c", 1, L";", L"c"},
        {L"a;b;c", 2, L";", L"b"},
        {L"a;b;c", 3, L";", L"a"},
        {L"a;b;c", 4, L";", L""},
        {L"a;b;c", 32767, L";", L""},
        {L"un;deux;trois", 2, L";", L"deux"},
        {L";a;b;", 1, L";", L"b"},
        {L";a;b;", 2, L";", L"a"},
        {L";a;b;", 3, L";", L""},
    });
}

TEST(Fields, TakeRanksBelowOneAsOne) {
    for (const auto rank : std::initializer_list<std::int16_t>{0, -1, -32768}) {
        expectFromStart({{L"a;b;c", rank, L";", L"a"}, {L"abc", rank, L";", L"abc"}});
        expectFromEnd({{L"a;b;c", rank, L";", L"c"}, {L"abc", rank, L";", L"abc"}});
    }
}

TEST(Fields, OfATextWithoutSeparatorAreTheWholeTextAtRankOne) {
    for (const bool fromEnd : {false, true})
        expectFields(fromEnd, {
                                  {L"abc", 1, L";", L"abc"},
                                  {L"abc", 2, L";", L""},
                                  {L"abc", 32767, L";", L""},
                                  {L"", 1, L";", L""},
                                  {L"", 2, L";", L""},
                                  {L"a:b", 1, L"::", L"a:b"},
                                  // No position is kept, so the length does not matter.
                                  {fill(40000), 1, L";", fill(40000)},
                                  {fill(40000), 2, L";", L""},
                              });
}

TEST(Fields, SplitOnTabsForAnEmptySeparator) {
    expectFromStart({{L"a\tb", 2, L"", L"b"}, {L"a;b", 1, L"", L"a;b"}, {L"a b", 2, L"", L""}});
    expectFromEnd({{L"a\tb", 2, L"", L"a"}, {L"a;b", 1, L"", L"a;b"}});
}

TEST(Fields, MayBeEmpty) {
    expectFromStart({
        {L"a;;c", 1, L";", L"a"},
        {L"a;;c", 2, L";", L""},
        {L"a;;c", 3, L";", L"c"},
        {L";;a", 1, L";", L""},
        {L";;a", 2, L";", L"a"},
        {L";", 1, L";", L""},
        {L";", 2, L";", L""},
        {L";;", 1, L";", L""},
        {L";;", 2, L";", L""},
    });
    expectFromEnd({
        {L"a;;c", 1, L";", L"c"},
        {L"a;;c", 2, L";", L""},
        {L"a;;c", 3, L";", L"a"},
        {L"a;;c", 4, L";", L""},
        {L";", 1, L";", L""},
        {L";", 2, L";", L""},
        {L";;", 1, L";", L""},
        {L";;", 2, L";", L""},
    });
}

// The framed text ";a;b;" has separators at 1, 3 and 5; a fourth search fails and a fifth starts over.
TEST(Fields, WrapAroundPastTheLastRank) {
    expectFromStart({
        {L";a;b;", 3, L";", L""},
        {L";a;b;", 4, L";", L""},
        {L";a;b;", 5, L";", L"a"},
        {L";a;b;", 6, L";", L"b"},
        {L";a;b;", 7, L";", L""},
        {L";a;b;", 8, L";", L""},
        {L";a;b;", 9, L";", L"a"},
        // 32,764 is a multiple of the four ranks.
        {L"a;b", 32765, L";", L"a"},
        {L"a;b", 32766, L";", L"b"},
        {L"a;b", 32767, L";", L""},
        // Three fields wrap every five ranks, and 32,765 is a multiple of five.
        {L"a;b;c", 32766, L";", L"a"},
        {L"a;b;c", 32767, L";", L"b"},
        // ";" is framed already and wraps every two ranks: never a field.
        {L";", 3, L";", L""},
        {L";", 32767, L";", L""},
    });
}

TEST(Fields, CompareByCharacterCode) {
    expectFromStart({
        {L"axbXc", 2, L"X", L"c"},
        {L"axbXc", 1, L"X", L"axb"},
        {L"\u00E9\u00A7\u00FC\u00A7\u20AC", 2, L"\u00A7", L"\u00FC"},
        {L"\u00E9\u00A7\u00FC\u00A7\u20AC", 3, L"\u00A7", L"\u20AC"},
        {L"eEe\u00E9f", 2, L"\u00E9", L"f"},
    });
}

TEST(Fields, KeepAndSplitOnNul) {
    expectFromStart({
        {L"a\0b;c"s, 1, L";", L"a\0b"s},
        {L"a\0b;c"s, 2, L";", L"c"},
        {L"a\0b\0c"s, 2, L"\0"s, L"b"},
        {L"a;\0b;\0c"s, 2, L";\0"s, L"b"},
    });
    expectFromEnd({{L"a\0b\0c"s, 1, L"\0"s, L"c"}, {L"a;b\0c"s, 1, L";", L"b\0c"s}});
}

TEST(Fields, SplitOnSeparatorsOfSeveralCharacters) {
    expectFromStart({
        {L"a::b::c", 1, L"::", L"a"},
        {L"a::b::c", 2, L"::", L"b"},
        {L"a::b::c", 3, L"::", L"c"},
        {L"a::b::c", 4, L"::", L""},
        {L"a::b::c", 5, L"::", L""},
        {L"a::b::c", 6, L"::", L"a"},
        {L"un<->deux", 2, L"<->", L"deux"},
    });
    expectFromEnd({
        {L"a::b", 1, L"::", L"b"},
        {L"a::b", 2, L"::", L"a"},
        {L"a::b", 3, L"::", L""},
    });
}

// "::a::" is framed all the same: "::::a::::", with separators at 1, 2, 3, 6, 7 and 8.
TEST(Fields, FrameWithALongSeparatorEvenWhereOneStands) {
    expectFromStart({
        {L"::a::", 1, L"::", L""},
        {L"::a::", 2, L"::", L""},
        {L"::a::", 3, L"::", L"a"},
        {L"::a::", 4, L"::", L""},
        {L"::a::", 7, L"::", L""},
        {L"::a::", 8, L"::", L""},
        {L"::a::", 10, L"::", L"a"},
    });
    expectFromEnd({
        {L"::a::", 1, L"::", L""},
        {L"::a::", 2, L"::", L"a"},
        {L"::a::", 3, L"::", L""},
        {L"::a::", 4, L"::", L""},
    });
}

// "aaabaabaa", framed from "abaab", has separators at 1, 2, 5 and 8. From the end the search meets 5 and
// 2; none ends before 2, and none before nothing.
TEST(Fields, EndWhereNoEarlierSeparatorFits) {
    expectFromEnd({
        {L"abaab", 1, L"aa", L"b"},
        {L"abaab", 2, L"aa", L"b"},
        {L"abaab", 3, L"aa", L""},
        {L"abaab", 4, L"aa", L""},
        {L"abaab", 5, L"aa", L""},
        {L"aa", 1, L"aa", L""},
        {L"aa", 3, L"aa", L""},
    });
    expectFromStart({{L"aaa", 1, L"aa", L""}, {L"aaa", 4, L"aa", L""}, {L"abaab", 2, L"aa", L"b"}});
}

// Two positions apart counts as a field, so a separator of three characters or more that overlaps the
// next one asks for a negative length.
TEST(Fields, OfNegativeLengthRaiseInvalidProcedureCall) {
    expectFromStart({
        // "abaxabaaba": separators at 1, 5 and 8.
        {L"xaba", 1, L"aba", L"x"},
        {L"xaba", 2, L"aba", L""},
        {L"xaba", 3, L"aba", L""},
        // "abaababaaba": at 1, 4, 6 and 9.
        {L"ababa", 1, L"aba", L""},
        {L"ababa", 2, L"aba", Raises(5)},
        {L"ababa", 3, L"aba", L""},
        {L"ababa", 6, L"aba", L""},
        {L"ababa", 7, L"aba", Raises(5)},
        // Only one position apart: no field, no error.
        {L"aaa", 1, L"aaa", L""},
    });
    expectFromEnd({
        // "abaxabababaxaba": at 1, 5, 7, 9 and 13; the search from the end meets 9, then 5.
        {L"xabababax", 1, L"aba", L"x"},
        {L"xabababax", 2, L"aba", Raises(5)},
        {L"xabababax", 3, L"aba", L"x"},
        {L"xabababax", 4, L"aba", L""},
    });
}

TEST(Fields, PastTheLastPositionRaiseOverflow) {
    expectFromStart({
        // Framed, the separator after n fillers stands at n + 2.
        {fill(32765) + L";y", 1, L";", fill(32765)},
        {fill(32766) + L";y", 1, L";", Raises(6)},
        // The closing separator of the second field stands at n + 4.
        {fill(32763) + L";y", 2, L";", L"y"},
        {fill(32764) + L";y", 2, L";", Raises(6)},
        // Only positions that are met count.
        {L"y;" + fill(40000), 1, L";", L"y"},
        {L"y;" + fill(40000), 2, L";", Raises(6)},
        {fill(40000) + L";", 1, L";", Raises(6)},
        // A search that begins after the last position finds nothing, and the ranks wrap.
        {fill(32765) + L";", 1, L";", fill(32765)},
        {fill(32765) + L";", 2, L";", L""},
        {fill(32765) + L";", 3, L";", L""},
        {fill(32765) + L";", 4, L";", fill(32765)},
    });
    expectFromEnd({
        // The framed length is a position: n + 4.
        {fill(32763) + L";y", 1, L";", L"y"},
        {fill(32763) + L";y", 2, L";", fill(32763)},
        {fill(32764) + L";y", 1, L";", Raises(6)},
        {L"y;" + fill(40000), 2, L";", Raises(6)},
    });
}

TEST(Fields, AreViewsOfTheText) {
    const Text text = L"un;deux;trois";
    EXPECT_EQ(ExtraitChamp(text, 2, L";", false).data(), text.data() + 3);
    EXPECT_EQ(ExtraitChamp(text, 1, L";", true).data(), text.data() + 8);
    EXPECT_EQ(ExtraitChamp(text, 1, L"/", false).data(), text.data());
}

TEST(Terminator, CutsAtTheFirstNul) {
    const struct {
        Text text;
        Outcome<Text> expected;
    } rows[] = {
        {L"", L""},
        {L"abc", L"abc"},
        {L"abc\0"s, L"abc"},
        {L"abc\0def"s, L"abc"},
        {L"a\0b\0c"s, L"a"},
        {L"\0abc"s, L""},
        {L"\0\0\0"s, L""},
        {L"\u00E9t\u00E9\0x"s, L"\u00E9t\u00E9"},
        {L" a \t\0"s, L" a \t"},
        {fill(40000), fill(40000)},
        {fill(40000) + L"\0y"s, fill(40000)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(outcomeOf([&] { return TronqueNul(row.text); }), row.expected)
            << call("TronqueNul", row.text);
}

}  // namespace
}  // namespace vorla
