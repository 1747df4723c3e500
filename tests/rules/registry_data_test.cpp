#include "system/registry_data.h"

#include <gtest/gtest.h>

#include <iterator>

#include "shown.h"

namespace vorla {
namespace {

using namespace std::string_view_literals;

TEST(NormalisedKey, losesOneLeadingBackslash) {
    const struct {
        TextView path, expected;
    } rows[] = {{L"Software\\Essai", L"Software\\Essai"},
                {L"\\Software\\Essai", L"Software\\Essai"},
                {L"\\\\Software", L"\\Software"},
                {L"Software\\", L"Software\\"},
                {L"\\Software\\\\", L"Software\\\\"},
                {L"/Software/a", L"/Software/a"},
                {L" \\a", L" \\a"},
                {L"\\", L""},
                {L"", L""},
                {L"\0\\a"sv, L"\0\\a"sv}};
    for (const auto& row : rows) EXPECT_EQ(row.expected, normalisedKey(row.path)) << shown(row.path);
}

TEST(StoredText, endsAtTheFirstNulAndHasNoBlanksAround) {
    const struct {
        TextView text, expected;
    } rows[] = {{L"abc", L"abc"},
                {L"  a b  ", L"a b"},
                {L"abc\0def"sv, L"abc"},
                // Cut first, so blanks in front of the NUL are at the end.
                {L" abc \0 def "sv, L"abc"},
                {L"\0abc"sv, L""},
                {L"   ", L""},
                {L"", L""},
                {L"\ta\u00A0", L"\ta\u00A0"}};
    for (const auto& row : rows) EXPECT_EQ(row.expected, storedText(row.text)) << shown(row.text);
}

// Every text of up to five of these characters, one step at a time.
TEST(StoredText, isCutAndThenTrimmed) {
    constexpr wchar_t characters[] = {L' ', L'\0', L'a'};
    std::size_t count = 1;
    for (std::size_t length = 0; length <= 5; ++length, count *= std::size(characters))
        for (std::size_t number = 0; number < count; ++number) {
            Text text;
            for (std::size_t rest = number; text.size() < length; rest /= std::size(characters))
                text += characters[rest % std::size(characters)];
            Text expected;
            for (std::size_t i = 0; i < length && text[i] != L'\0'; ++i) expected += text[i];
            while (!expected.empty() && expected.front() == L' ') expected.erase(0, 1);
            while (!expected.empty() && expected.back() == L' ') expected.pop_back();
            EXPECT_EQ(expected, storedText(text)) << shown(text);
        }
}

TEST(ReadString, losesOnlyTheNulThatEndsIt) {
    EXPECT_EQ("abc"sv, readString("abc\0"sv));
    EXPECT_EQ("abc"sv, readString("abc"sv));
    EXPECT_EQ("abc\0"sv, readString("abc\0\0"sv));
    EXPECT_EQ("a\0b"sv, readString("a\0b"sv));
    EXPECT_EQ(""sv, readString("\0"sv));
    EXPECT_EQ("a"sv, readString("a"sv));
    EXPECT_EQ(std::nullopt, readString(""sv));
}

TEST(ReadBinary, losesItsLastByte) {
    EXPECT_EQ("ab"sv, readBinary("abc"sv));
    EXPECT_EQ("abc"sv, readBinary("abc\0"sv));
    EXPECT_EQ("\0\xFF"sv, readBinary("\0\xFF\x01"sv));
    EXPECT_EQ(""sv, readBinary("a"sv));
    EXPECT_EQ(std::nullopt, readBinary(""sv));
}

}  // namespace
}  // namespace vorla
