#include "text/quoting.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

struct Row {
    Text text;
    int kind;
    Text custom;
    Outcome<Text> expected;
};

void expectQuoted(std::initializer_list<Row> rows) {
    for (const Row& row : rows)
        EXPECT_EQ(
            outcomeOf([&] { return quoted(row.text, static_cast<eParseSeparator>(row.kind), row.custom); }),
            row.expected)
            << call("quoted", row.text, row.kind, row.custom);
}

TEST(Quoting, PutsTheDelimiterOfEachKindAtBothEnds) {
    expectQuoted({
        {L"x", 0, L"", L"\"x\""},
        {L"x", 1, L"", L"'x'"},
        {L"x", 2, L"", L"/x/"},
        {L"x", 3, L"", L"\\x\\"},
        {L"x", 4, L"|", L"|x|"},
    });
}

TEST(Quoting, UsesTheCustomDelimiterForItsOwnKindOnly) {
    expectQuoted({
        {L"x", 4, L"", L"x"},
        {L"x", 4, L"<->", L"<->x<->"},
        {L"x", 4, L"\u00AB", L"\u00ABx\u00AB"},
        {L"x", 4, L"\0"s, L"\0x\0"s},
        {L"", 4, L"ab", L"abab"},
        {L"x", 0, L"|", L"\"x\""},
        {L"x", 1, L"|", L"'x'"},
        {L"x", 2, L"|", L"/x/"},
        {L"x", 3, L"|", L"\\x\\"},
    });
}

TEST(Quoting, LeavesTheTextUnchangedForAnyOtherKind) {
    for (const int kind : {5, 7, -1, 32768, 2147483647, -2147483647 - 1})
        expectQuoted({{L"x", kind, L"|", L"x"}, {L"", kind, L"|", L""}});
}

TEST(Quoting, TakesTheTextAsItIs) {
    expectQuoted({
        {L"", 0, L"", L"\"\""},
        {L"", 1, L"", L"''"},
        {L"", 4, L"", L""},
        {L"a\"b", 0, L"", L"\"a\"b\""},
        {L"\"x\"", 0, L"", L"\"\"x\"\""},
        {L" x ", 1, L"", L"' x '"},
        {L"a\0b"s, 0, L"", L"\"a\0b\""s},
        {L"\u00E9\u20AC", 2, L"", L"/\u00E9\u20AC/"},
        {Text(40000, L'x'), 1, L"", L"'" + Text(40000, L'x') + L"'"},
    });
}

}  // namespace
}  // namespace vorla
