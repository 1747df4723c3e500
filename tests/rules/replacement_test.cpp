#include "text/replacement.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

struct Row {
    Text text;
    Text sought;
    Text replacement;
    std::int16_t start;
    std::int16_t limit;
    Outcome<Text> expected;
};

void expectReplaced(std::initializer_list<Row> rows) {
    for (const Row& row : rows)
        EXPECT_EQ(
            outcomeOf([&] { return replaced(row.text, row.sought, row.replacement, row.start, row.limit); }),
            row.expected)
            << call("replaced", row.text, row.sought, row.replacement, row.start, row.limit);
}

Text fill(std::size_t length) { return Text(length, L'x'); }

TEST(Replacement, TakesEveryOccurrence) {
    expectReplaced({
        {L"a.b.c", L".", L",", 0, 0, L"a,b,c"},
        {L"abc", L"abc", L"x", 0, 0, L"x"},
        {L"-ab-ab", L"ab", L"x", 0, 0, L"-x-x"},
        {L"a-a", L"a", L"xyz", 0, 0, L"xyz-xyz"},
        {L"a-a", L"a", L"aa", 0, 0, L"aa-aa"},
        {L"a.b.c", L"a.b.c.d", L"x", 0, 0, L"a.b.c"},
        {L"a.b.c", L"d", L"x", 0, 0, L"a.b.c"},
        {L"", L"a", L"x", 0, 0, L""},
    });
}

TEST(Replacement, OfNothingChangesNothing) {
    expectReplaced({
        {L"abc", L"", L"x", 0, 0, L"abc"},
        {L"abc", L"", L"", 0, 0, L"abc"},
        {L"", L"", L"x", 0, 0, L""},
        {L"abc", L"", L"x", 2, 1, L"abc"},
    });
}

TEST(Replacement, SkipsTheCharacterBehindWhatItPutIn) {
    expectReplaced({
        {L"aaaa", L"a", L"b", 0, 0, L"baba"},
        {L"aaaaa", L"a", L"b", 0, 0, L"babab"},
        {L"a..b", L".", L",", 0, 0, L"a,.b"},
        {L"abab", L"ab", L"x", 0, 0, L"xab"},
        {L"ab-ab", L"ab", L"x", 0, 0, L"x-x"},
        // Only one character is skipped: the second of two neighbours goes, then the fourth.
        {L"abababab", L"ab", L"x", 0, 0, L"xabxab"},
        {L"aaa", L"aa", L"a", 0, 0, L"aa"},
        {L"aaaaa", L"aa", L"b", 0, 0, L"bab"},
    });
}

TEST(Replacement, BeginsAtTheStartPosition) {
    expectReplaced({
        {L"aaaa", L"a", L"b", 1, 0, L"baba"},
        {L"aaaa", L"a", L"b", 2, 0, L"abab"},
        {L"aaaa", L"a", L"b", 4, 0, L"aaab"},
        {L"aaaa", L"a", L"b", 5, 0, L"aaaa"},
        {L"aaaa", L"a", L"b", 32767, 0, L"aaaa"},
        {L"aaaa", L"a", L"b", 0, 0, L"baba"},
        {L"aaaa", L"a", L"b", -1, 0, L"baba"},
        {L"aaaa", L"a", L"b", -32768, 0, L"baba"},
        // An occurrence that begins before the start is not found, even if it ends after it.
        {L"abab", L"ab", L"x", 2, 0, L"abx"},
    });
}

TEST(Replacement, StopsAtTheLimit) {
    expectReplaced({
        {L"a.b.c", L".", L",", 0, 1, L"a,b.c"},
        {L"a.b.c", L".", L",", 0, 2, L"a,b,c"},
        {L"a.b.c", L".", L",", 0, 32767, L"a,b,c"},
        {L"aaaaaa", L"a", L"b", 0, 2, L"babaaa"},
        {L"aaaaaa", L"a", L"b", 2, 1, L"abaaaa"},
        {L"a.b.c", L".", L",", 0, -1, L"a,b,c"},
        {L"a.b.c", L".", L",", 0, -32768, L"a,b,c"},
    });
}

TEST(Replacement, ByNothingRemovesWhatClosesUp) {
    expectReplaced({
        {L"aaaa", L"a", L"", 0, 0, L""},
        {L"aabb", L"ab", L"", 0, 0, L""},
        {L"xaabbx", L"ab", L"", 0, 0, L"xx"},
        {L"aaa", L"aa", L"", 0, 0, L"a"},
        {L"abaabab", L"aba", L"", 0, 0, L"b"},
        {L"aabcbc", L"abc", L"", 0, 0, L""},
        {L"ababcabc", L"abc", L"", 0, 0, L"ab"},
        {L"aabcabcbc", L"abc", L"", 0, 0, L""},
        {L"abc", L"d", L"", 0, 0, L"abc"},
    });
}

TEST(Replacement, ByNothingKeepsToItsLimitAndStart) {
    expectReplaced({
        {L"aaaa", L"a", L"", 0, 1, L"aaa"},
        {L"aabb", L"ab", L"", 0, 1, L"ab"},
        {L"aaabbb", L"ab", L"", 0, 2, L"ab"},
        // The gap closes across the start, and the search stays after it.
        {L"aabb", L"ab", L"", 2, 0, L"ab"},
        {L"aabbab", L"ab", L"", 0, 2, L"ab"},
        {L"aabbab", L"ab", L"", 2, 0, L"ab"},
        {L"aabbab", L"ab", L"", 3, 0, L"aabb"},
        {L"aaabbb", L"ab", L"", 2, 0, L"ab"},
        {L"aaabbb", L"ab", L"", 2, 1, L"aabb"},
        {L"abab", L"ab", L"", 2, 0, L"ab"},
        {L"aabb", L"ab", L"", -5, -5, L""},
    });
}

TEST(Replacement, ComparesByCharacterCode) {
    expectReplaced({
        {L"aAa", L"A", L"b", 0, 0, L"aba"},
        {L"\u00E9t\u00E9", L"\u00E9", L"e", 0, 0, L"ete"},
        {L"\u00E9T\u00C9", L"\u00E9", L"\u20AC", 0, 0, L"\u20ACT\u00C9"},
        {L"a\0b"s, L"\0"s, L"-", 0, 0, L"a-b"},
        {L"a-b", L"-", L"\0"s, 0, 0, L"a\0b"s},
        {L"a\0b\0"s, L"\0"s, L"", 0, 0, L"ab"},
        {L"a\0b-a\0c"s, L"a\0c"s, L"x", 0, 0, L"a\0b-x"s},
    });
}

TEST(Replacement, NeedsTheLengthAsALimitAndRaisesOverflowWhenItIsTooLong) {
    expectReplaced({
        {fill(32767), L"a", L"b", 0, 0, fill(32767)},
        {fill(32768), L"a", L"b", 0, 0, Raises(6)},
        {fill(32768), L"a", L"b", 0, -1, Raises(6)},
        {fill(32768), L"a", L"b", 0, 1, fill(32768)},
        // This is checked first.
        {fill(32768), L"", L"b", 0, 0, Raises(6)},
        {fill(32768), L"", L"b", 0, 1, fill(32768)},
        {fill(32768), L"a", L"", 32767, 0, Raises(6)},
    });
}

TEST(Replacement, OfAnOccurrencePastTheLastPositionRaisesOverflow) {
    expectReplaced({
        {fill(32766) + L"a", L"a", L"b", 0, 1, fill(32766) + L"b"},
        {fill(32766) + L"a", L"a", L"b", 32767, 1, fill(32766) + L"b"},
        {fill(32767) + L"a", L"a", L"b", 0, 1, Raises(6)},
        {fill(32767) + L"a", L"a", L"b", 32767, 1, Raises(6)},
        {fill(32766) + L"a", L"a", L"", 0, 0, fill(32766)},
        {fill(32766) + L"aa", L"a", L"", 0, 2, fill(32766)},
        {fill(32767) + L"a", L"a", L"", 0, 1, Raises(6)},
        // Positions count in the text after the replacements so far.
        {L"abab" + fill(32763) + L"ab", L"ab", L"", 0, 3, fill(32763)},
        // The text may be longer where nothing is met.
        {L"a" + fill(40000), L"a", L"b", 0, 2, L"b" + fill(40000)},
        {L"a" + fill(40000), L"a", L"", 0, 2, fill(40000)},
    });
}

TEST(Replacement, ThatWouldResumePastTheLastPositionRaisesOverflow) {
    expectReplaced({
        // After position p the search resumes at p + 2.
        {fill(32764) + L"a", L"a", L"b", 0, 0, fill(32764) + L"b"},
        {fill(32765) + L"a", L"a", L"b", 0, 0, Raises(6)},
        {fill(32766) + L"a", L"a", L"b", 0, 2, Raises(6)},
        // At the limit it does not resume.
        {fill(32765) + L"a", L"a", L"b", 0, 1, fill(32765) + L"b"},
        // Two characters are the limit of two, so the first replacement resumes: at 1 + 32,765 + 1.
        {L"aa", L"a", fill(32765), 0, 0, fill(32765) + L"a"},
        {L"aa", L"a", fill(32766), 0, 0, Raises(6)},
        {L"aa", L"a", fill(32766), 0, 1, fill(32766) + L"a"},
        {L"a", L"a", fill(40000), 0, 0, fill(40000)},
    });
}

}  // namespace
}  // namespace vorla
