#include "language/language_format.h"

#include <gtest/gtest.h>

#include "shown.h"

namespace vorla::language {
namespace {

TEST(LanguageFormat, WordsOfTheFormat) {
    EXPECT_EQ(L"Languages\\", folderName);
    EXPECT_EQ(L".lng", fileExtension);
    EXPECT_EQ(L".stu", statusExtension);
    EXPECT_EQ(L"FRA", defaultCode);
    EXPECT_EQ(L"System", headerSection);
    EXPECT_EQ(L"Messages", messageSection);
    EXPECT_EQ(Text(10, L'*'), missingMessage);
}

TEST(LanguageFormat, KeysOfControls) {
    struct Row {
        TextView control, index, property, key;
    };
    constexpr Row rows[] = {
        {L"cmdOK", L"", L"Caption", L"cmdOK#Caption"},
        {L"optMode", L"2", L"Caption", L"optMode#2#Caption"},
        {L"cmd", L"  2 ", L"Caption", L"cmd#2#Caption"},
        {L"cmd", L"", L"", L"cmd"},
        {L"", L"", L"", L""},
        {L" cmd ", L"", L"", L" cmd "},
        {L"cmd", L"2", L"", L"cmd#2#"},
        {L"cmd", L"  ", L"", L"cmd##"},
        {L"cmd", L"\t2", L"x", L"cmd#\t2#x"},
        {L"", L"", L"Caption", L"#Caption"},
        {L"été", L"-1", L" Texte ", L"été#-1# Texte "},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.key, controlKey(row.control, row.index, row.property)) << shown(row.key);
}

TEST(LanguageFormat, KeysOfTheHeader) {
    constexpr TextView keys[] = {L"Version",     L"NameISO", L"CodeISO", L"Translator",
                                 L"UserComment", L"2.0",     L"e-Mail"};
    for (int info = 1; info <= 7; ++info)
        EXPECT_EQ(keys[info - 1], headerKey(static_cast<enumLngSpecialInfos>(info)));
    for (const int info : {0, 8, -1, 32768})
        EXPECT_EQ(L"", headerKey(static_cast<enumLngSpecialInfos>(info)));
}

struct Escape {
    TextView text, written;
};

TEST(LanguageFormat, LineBreaksAreEscaped) {
    constexpr Escape rows[] = {
        {L"", L""},
        {L"abc", L"abc"},
        {L"a\r\nb", L"a\u00FF{l}b"},
        {L"\r", L"\u00FF{r}"},
        {L"\n", L"\u00FF{f}"},
        {L"\r\r\n\n", L"\u00FF{r}\u00FF{l}\u00FF{f}"},
        {L"\n\r", L"\u00FF{f}\u00FF{r}"},
        {L"\r\n\r\n", L"\u00FF{l}\u00FF{l}"},
        {L"\u00FF\r", L"\u00FF\u00FF{r}"},
        {L"\u00FF{l\r\n}", L"\u00FF{l\u00FF{l}}"},
    };
    for (const Escape& row : rows) {
        EXPECT_EQ(row.written, escaped(row.text)) << shown(row.text);
        EXPECT_EQ(row.text, unescaped(row.written)) << shown(row.written);
    }
    // Only read, never written.
    EXPECT_EQ(L"a=b", escaped(L"a=b"));
    EXPECT_EQ(L"a=b", unescaped(L"a\u00FF{e}b"));
}

TEST(LanguageFormat, WhatIsNoGroupStays) {
    for (const TextView text : {L"\u00FF", L"\u00FF\u00FF", L"\u00FF{", L"\u00FF{l", L"\u00FF{L}",
                                L"\u00FF{x}", L"\u00FFl", L"{l}", L"y{l}", L"=", L"\u00FF {l}"})
        EXPECT_EQ(text, unescaped(text)) << shown(text);
    // The first of two begins none, the second does.
    EXPECT_EQ(L"\u00FF\r\n", unescaped(L"\u00FF\u00FF{l}"));
    // A replaced group is not searched again.
    EXPECT_EQ(L"\u00FF{=l}", unescaped(L"\u00FF{\u00FF{e}l}"));
}

TEST(LanguageFormat, WhatHeldAGroupDoesNotComeBack) {
    EXPECT_EQ(L"\r\n", unescaped(escaped(L"\u00FF{l}")));
    EXPECT_EQ(L"=", unescaped(escaped(L"\u00FF{e}")));
}

// Escapes and unescapes every text of up to six of the special characters.
TEST(LanguageFormat, TextsComeBack) {
    constexpr TextView alphabet = L"\r\n\u00FF{l}";
    std::size_t texts = 0;
    Text text;
    const auto visit = [&](auto&& self) -> void {
        ++texts;
        const auto written = escaped(text);
        EXPECT_EQ(Text::npos, written.find_first_of(L"\r\n")) << shown(text);
        if (text.find(L"\u00FF{l}") == Text::npos) {
            EXPECT_EQ(text, unescaped(written)) << shown(text);
        }
        if (text.size() == 6) return;
        for (const wchar_t next : alphabet) {
            text.push_back(next);
            self(self);
            text.pop_back();
        }
    };
    visit(visit);
    // 1 + 6 + 36 + … + 6^6
    EXPECT_EQ(55'987u, texts);
}

TEST(LanguageFormat, LongTexts) {
    Text text, written;
    for (int i = 0; i < 100'000; ++i) {
        text += L"a\r\n";
        written += L"a\u00FF{l}";
    }
    EXPECT_EQ(written, escaped(text));
    EXPECT_EQ(text, unescaped(written));
    EXPECT_EQ(Text(300'000, L'\u00FF'), unescaped(Text(300'000, L'\u00FF')));
}

}  // namespace
}  // namespace vorla::language
