#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <new>
#include <string>

#include "frame/values/failure.h"
#include "frame/values/joined.h"
#include "frame/values/runtime_error.h"
#include "frame/values/text.h"
#include "outcome.h"

namespace vorla {
namespace {

using namespace std::string_literals;

TEST(EndOnError, GivesTheResultOfWorkThatEnds) {
    EXPECT_EQ(endOnError(-1, [] { return 7; }), 7);
    EXPECT_EQ(endOnError(Text(L"neutral"), [] { return L"result"; }), L"result");
}

TEST(EndOnError, GivesTheNeutralValueForAnyFailure) {
    const auto fails = [](auto error) { return endOnError(-1, [&]() -> int { throw error; }); };
    EXPECT_EQ(fails(RuntimeError(ErrorNumber::overflow)), -1);
    EXPECT_EQ(fails(std::bad_alloc()), -1);
    EXPECT_EQ(fails(L"neither an error nor an exception"), -1);
}

TEST(EndOnError, EndsWorkWithoutAResult) {
    int done = 0;
    endOnError([&] { ++done; });
    EXPECT_EQ(done, 1);
    endOnError([&] {
        ++done;
        if (done == 2) throw RuntimeError(ErrorNumber::objectNotSet);
        ++done;
    });
    EXPECT_EQ(done, 2);
}

TEST(EndOnError, KeepsWhatWasDoneBeforeTheFailure) {
    Text done;
    const Text result = endOnError(Text(L"neutral"), [&]() -> Text {
        done += L"first";
        throw RuntimeError(ErrorNumber::typeMismatch);
        done += L"second";
    });
    EXPECT_EQ(done, L"first");
    EXPECT_EQ(result, L"neutral");
}

TEST(EndOnError, MovesItsNeutralValue) {
    const auto result = endOnError(std::make_unique<int>(3), []() -> std::unique_ptr<int> { throw 1; });
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, 3);
}

TEST(Step, TellsWhetherTheStatementRanToItsEnd) {
    EXPECT_TRUE(step([] {}));
    EXPECT_FALSE(step([] { throw RuntimeError(ErrorNumber::objectNotSet); }));
    EXPECT_FALSE(step([] { throw std::bad_alloc(); }));
    EXPECT_FALSE(step([] { throw 1; }));
}

TEST(Step, SkipsTheRestOfAFailingStatementOnly) {
    Text done;
    step([&] { done += L'a'; });
    step([&] {
        done += L'b';
        throw RuntimeError(ErrorNumber::fileNotFound);
        done += L'c';
    });
    step([&] { done += L'd'; });
    EXPECT_EQ(done, L"abd");
}

TEST(FailurePolicies, LetNothingThrough) {
    const auto throws = []() -> int { throw 1; };
    static_assert(noexcept(endOnError(0, throws)));
    static_assert(noexcept(step(throws)));
}

TEST(RuntimeErrors, CarryTheirNumber) {
    EXPECT_EQ(static_cast<int>(RuntimeError(ErrorNumber::invalidProcedureCall).number()), 5);
    EXPECT_EQ(static_cast<int>(RuntimeError(ErrorNumber::overflow).number()), 6);
    EXPECT_EQ(static_cast<int>(RuntimeError(ErrorNumber::invalidUseOfNull).number()), 94);
    // Numbers that only hosts define pass through unchanged.
    EXPECT_EQ(static_cast<int>(RuntimeError(std::uint16_t{1004}).number()), 1004);
    EXPECT_EQ(static_cast<int>(RuntimeError(std::uint16_t{65535}).number()), 65535);
}

Outcome<Text> checked(std::size_t (*check)(std::size_t), std::size_t value) {
    return outcomeOf([&] { return Text(std::to_wstring(check(value))); });
}

TEST(CheckedPosition, RaisesOverflowPast32767) {
    EXPECT_EQ(checked(checkedPosition, 0), L"0");
    EXPECT_EQ(checked(checkedPosition, 1), L"1");
    EXPECT_EQ(checked(checkedPosition, 32767), L"32767");
    EXPECT_EQ(checked(checkedPosition, 32768), Raises(6));
    EXPECT_EQ(checked(checkedPosition, 65536), Raises(6));
    EXPECT_EQ(checked(checkedPosition, static_cast<std::size_t>(-1)), Raises(6));
}

TEST(CheckedLength, RaisesInvalidProcedureCallBelowZero) {
    const struct {
        std::int16_t length;
        Outcome<Text> expected;
    } rows[] = {{0, L"0"}, {1, L"1"}, {32767, L"32767"}, {-1, Raises(5)}, {-32768, Raises(5)}};
    for (const auto& row : rows)
        EXPECT_EQ(outcomeOf([&] { return Text(std::to_wstring(checkedLength(row.length))); }), row.expected)
            << call("checkedLength", row.length);
}

TEST(Trimming, TakesSpacesFromBothEndsOnly) {
    const struct {
        Text text;
        Text expected;
    } rows[] = {
        {L"", L""},
        {L" ", L""},
        {L"     ", L""},
        {L"a", L"a"},
        {L" a", L"a"},
        {L"a ", L"a"},
        {L"  a  b  ", L"a  b"},
        {L"\t a \t", L"\t a \t"},
        {L" \t ", L"\t"},
        {L"\u00A0a\u00A0", L"\u00A0a\u00A0"},
        {L"\u2003a", L"\u2003a"},
        {L" \0 "s, L"\0"s},
        {L" \r\n ", L"\r\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Text(trimmed(row.text)), row.expected) << call("trimmed", row.text);
}

TEST(JoinedPieces, StandInOrder) {
    const struct {
        const char* name;
        Joined joined;
        Text expected;
    } rows[] = {
        {"nothing", {}, L""},
        {"one text", {TextView(L"abc")}, L"abc"},
        {"two texts", {TextView(L"abc"), TextView(L"de")}, L"abcde"},
        {"three texts", {TextView(L"a"), TextView(L"b"), TextView(L"c")}, L"abc"},
        {"a repeated character", {Piece(L'0', 3)}, L"000"},
        {"a character repeated no times", {TextView(L"a"), Piece(L'0', 0), TextView(L"b")}, L"ab"},
        {"both kinds", {TextView(L"-"), Piece(L'0', 2), TextView(L"42")}, L"-0042"},
        {"a text in the middle", {Piece(L'<', 2), TextView(L"x"), Piece(L'>', 2)}, L"<<x>>"},
        {"empty texts", {TextView(L""), TextView(), TextView(L"x")}, L"x"},
        {"NUL characters", {TextView(L"a\0b", 3), Piece(L'\0', 2), TextView(L"c")}, L"a\0b\0\0c"s},
        {"other characters", {TextView(L"\u00E9"), Piece(L'\u20AC', 2)}, L"\u00E9\u20AC\u20AC"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.joined.length(), row.expected.size()) << row.name;
        EXPECT_EQ(row.joined.text(), row.expected) << row.name;
    }
}

TEST(JoinedPieces, WriteTheirLengthAndNoMore) {
    const Joined joined(TextView(L"ab"), Piece(L'-', 2), TextView(L"c"));
    Text buffer(7, L'#');
    joined.copyTo(buffer.data() + 1);
    EXPECT_EQ(buffer, L"#ab--c#");
}

TEST(JoinedPieces, ViewTheirTexts) {
    Text text = L"ab";
    const Joined joined{TextView(text)};
    text[0] = L'z';
    EXPECT_EQ(joined.text(), L"zb");
}

}  // namespace
}  // namespace vorla
