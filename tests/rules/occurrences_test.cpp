#include "text/occurrences.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <type_traits>

#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

struct Row {
    Text text;
    Text sought;
    std::int16_t start;
    Outcome<float> expected;
};

void expectOccurrences(std::initializer_list<Row> rows) {
    for (const Row& row : rows)
        EXPECT_EQ(outcomeOf([&] { return occurrences(row.text, row.sought, row.start); }), row.expected)
            << call("occurrences", row.text, row.sought, row.start);
}

Text fill(std::size_t length) { return Text(length, L'x'); }

TEST(Occurrences, CountInSinglePrecision) {
    static_assert(std::is_same_v<decltype(occurrences(L"", L"", std::int16_t{1})), float>);
    expectOccurrences({
        {L"abcabc", L"abc", 1, 2.0f},
        {L"abc", L"abc", 1, 1.0f},
        {L"xabc", L"abc", 1, 1.0f},
        {L"ab", L"abc", 1, 0.0f},
        {L"abcabc", L"d", 1, 0.0f},
    });
}

TEST(Occurrences, OfOrInNothingAreNone) {
    expectOccurrences({
        {L"", L"", 1, 0.0f},
        {L"", L"a", 1, 0.0f},
        {L"abc", L"", 1, 0.0f},
        {fill(40000), L"", 1, 0.0f},
    });
}

TEST(Occurrences, CompareByCharacterCode) {
    expectOccurrences({
        {L"Abcabc", L"ABC", 1, 0.0f},
        // The texts of a caller that ignores case.
        {L"abcabc", L"abc", 1, 2.0f},
        {L"Abcabc", L"abc", 1, 1.0f},
        {L"\u00E9\u00C9\u00E9", L"\u00E9", 1, 2.0f},
        {L"e\u00E9e", L"e", 1, 2.0f},
        {L"a\0b\0"s, L"\0"s, 1, 2.0f},
        {L"a\0ba\0"s, L"a\0"s, 1, 2.0f},
        {L"a\0ba\0"s, L"a\0b"s, 1, 1.0f},
    });
}

TEST(Occurrences, CountWhereTheyOverlap) {
    expectOccurrences({
        {L"aaa", L"aa", 1, 2.0f},
        {L"aaaaa", L"aaa", 1, 3.0f},
        {L"abababa", L"aba", 1, 3.0f},
        {L"aabaabaab", L"aabaab", 1, 2.0f},
        {L"aabaaab", L"aaab", 1, 1.0f},
        {L"abaababaab", L"abaab", 1, 2.0f},
    });
}

TEST(Occurrences, CountFromTheStartPosition) {
    expectOccurrences({
        {L"abcabc", L"abc", 2, 1.0f},
        {L"abcabc", L"abc", 4, 1.0f},
        {L"abcabc", L"abc", 5, 0.0f},
        {L"abcabc", L"c", 6, 1.0f},
        {L"abcabc", L"c", 7, 0.0f},
        {L"abcabc", L"abc", 32767, 0.0f},
        {L"abcabc", L"abc", 0, 2.0f},
        {L"abcabc", L"abc", -1, 2.0f},
        {L"abcabc", L"abc", -32768, 2.0f},
        {L"aaaa", L"aa", 2, 2.0f},
    });
}

TEST(Occurrences, PastTheLastPositionRaiseOverflow) {
    expectOccurrences({
        {Text(32767, L'a'), L"a", 1, 32767.0f},
        {Text(32768, L'a'), L"a", 1, Raises(6)},
        {Text(32768, L'a'), L"aa", 1, 32767.0f},
        {Text(32769, L'a'), L"aa", 1, Raises(6)},
        {Text(32767, L'a'), L"a", 32767, 1.0f},
        {Text(32768, L'a'), L"a", 32767, Raises(6)},
        {fill(32766) + L"a", L"a", 1, 1.0f},
        {fill(32767) + L"a", L"a", 1, Raises(6)},
        // The text itself may be longer: only positions that are met count.
        {fill(40000), L"a", 1, 0.0f},
        {L"a" + fill(40000), L"a", 1, 1.0f},
        {L"a" + fill(40000), L"a", 2, 0.0f},
    });
}

}  // namespace
}  // namespace vorla
