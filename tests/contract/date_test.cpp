// VorlaDate where results depend on the system: its separator, names and numbers, and the message. The order
// of the parts is tested with its rule.
#include <limits>

#include "contract/component.h"
#include "support/dialog_watcher.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/number_settings.h"

namespace vorla::test {
namespace {

using Texts = std::vector<std::wstring>;

constexpr Date november15{46341};  // 15 November 2026, a Sunday

class DateMembers : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments) {
        return invoke(object.get(), name, std::move(arguments));
    }

    const Component component;
    const Dispatch object = component.create(3);
    // The first element has two digits on every day.
    const ChangedSetting format{LOCALE_SSHORTDATE, isFrench() ? L"dd/MM/yyyy" : L"MM/dd/yyyy"};
};

TEST_F(DateMembers, identifiersAreInOrder) {
    EXPECT_EQ(0x60030000, idOf(object.get(), L"DateAMJtoJMA"));
    EXPECT_EQ(0x60030001, idOf(object.get(), L"DateJMAtoAMJ"));
    EXPECT_EQ(0x60030002, idOf(object.get(), L"Invd"));
    EXPECT_EQ(0x60030003, idOf(object.get(), L"DateEnTexte"));
}

TEST_F(DateMembers, fromStorageToDisplay) {
    struct Row {
        const wchar_t *stored, *shown, *bare;
    };
    constexpr Row rows[] = {
        {L"20261115", L"15/11/2026", L"15112026"},
        {L"2026-11-15", L"15/11/2026", L"15112026"},
        {L"2026.11.15", L"15/11/2026", L"15112026"},
        {L"2026/11/15", L"15/11/2026", L"15112026"},
        {L"2026é11é15", L"15/11/2026", L"15112026"},
        {L"261115", L"15/11/26", L"151126"},
        {L"1115", L"15/11/", L"1511"},
        // Only the first foreign character is a separator.
        {L"2026-11/15", L"15/1//20261", L"151/20261"},
        {L"", L"", L""},
        {L"   ", L"", L""},
        // A number is taken as it is, blanks included.
        {L"20261115 ", L"5 /11/20261", L"5 1120261"},
    };
    for (const Row& row : rows) {
        expectResult(call(L"DateAMJtoJMA", {text(row.stored)}), text(row.shown), narrow(row.stored));
        expectResult(call(L"DateAMJtoJMA", {text(row.stored), true}), text(row.shown), narrow(row.stored));
        expectResult(call(L"DateAMJtoJMA", {text(row.stored), false}), text(row.bare), narrow(row.stored));
    }
}

TEST_F(DateMembers, fromDisplayToStorage) {
    struct Row {
        const wchar_t *shown, *separated, *stored;
    };
    constexpr Row rows[] = {
        {L"15/11/2026", L"2026/11/15", L"20261115"},
        {L"15-11-2026", L"2026/11/15", L"20261115"},
        {L"15112026", L"2026/11/15", L"20261115"},
        {L"15.11.26", L"26/11/15", L"261115"},
        {L"1511", L"/11/15", L"1115"},
        {L" 15/11/26", L"1/26//1/15", L"1/26/115"},  // the blank comes first and is the separator
        {L"", L"", L""},
        {L"  ", L"", L""},
    };
    for (const Row& row : rows) {
        expectResult(call(L"DateJMAtoAMJ", {text(row.shown)}), text(row.stored), narrow(row.shown));
        expectResult(call(L"DateJMAtoAMJ", {text(row.shown), false}), text(row.stored), narrow(row.shown));
        expectResult(call(L"DateJMAtoAMJ", {text(row.shown), true}), text(row.separated), narrow(row.shown));
    }
}

// Where the comma groups digits, such a date is a number as a whole, and its commas stay.
TEST_F(DateMembers, aDateThatIsANumberIsTakenAsItIs) {
    expectResult(call(L"DateAMJtoJMA", {text(L"2026,11,15"), false}),
                 text(isFrench() ? L"15112026" : L"151,2026,1"));
}

// 400 digits exceed every double, so the text is not a number, although each of its characters is numeric.
TEST_F(DateMembers, moreDigitsThanANumberHas) {
    const std::wstring year(396, L'1');
    expectResult(call(L"DateAMJtoJMA", {text(year + L"0203"), false}), text(L"0302" + year));
}

// The system decides whether a character is a number by itself. One that is not becomes the separator.
TEST_F(DateMembers, charactersAreNumbersByTheSystemsJudgement) {
    expectResult(call(L"DateAMJtoJMA", {text(L"2026*11/15"), false}), text(L"151/20261"));
    Intercept<decltype(VarR8FromStr)> reading(component.module(), "oleaut32.dll", "VarR8FromStr");
    reading.answer([&](LPOLESTR asked, LCID locale, ULONG flags, double* value) {
        return std::wstring_view(asked) == L"*" ? S_OK : reading.callOriginal(asked, locale, flags, value);
    });
    expectResult(call(L"DateAMJtoJMA", {text(L"2026*11/15"), false}), text(L"15112026*"));
}

// The output of a failed conversion is not used as a date.
TEST_F(DateMembers, aDateThatTheSystemRefusesHasNoWords) {
    Intercept<decltype(VariantTimeToSystemTime)> conversion(component.module(), "oleaut32.dll",
                                                            "VariantTimeToSystemTime");
    conversion.answer([&](double date, SYSTEMTIME* day) {
        conversion.callOriginal(date, day);
        return 0;
    });
    expectResult(call(L"DateEnTexte", {november15, false}), text(L""));
    EXPECT_EQ(1, conversion.calls());
}

TEST_F(DateMembers, whatIsTooShortIsAnInvalidCall) {
    for (const wchar_t* member : {L"DateAMJtoJMA", L"DateJMAtoAMJ"}) {
        for (const wchar_t* date : {L"1", L"123", L"1-2-3", L"----", L"a"})
            expectError(call(member, {text(date)}), 5, narrow(date));
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(member, {nullValue()}).code);
        EXPECT_EQ(DISP_E_PARAMNOTOPTIONAL, call(member, {missing()}).code);
        expectResult(call(member, {Variant()}), text(L""));
    }
}

TEST_F(DateMembers, theSeparatorIsTheThirdCharacterOfToday) {
    struct Row {
        const wchar_t *format, *shown;
    };
    constexpr Row rows[] = {{L"dd.MM.yyyy", L"15.11.2026"},
                            {L"dd-MM-yy", L"15-11-2026"},
                            {L"'ab:'yyyy", L"15:11:2026"},
                            // Without a third character there is no separator.
                            {L"'x'", L"15112026"},
                            {L"'xy'", L"15112026"}};
    for (const Row& row : rows) {
        const ChangedSetting other(LOCALE_SSHORTDATE, row.format);
        expectResult(call(L"DateAMJtoJMA", {text(L"20261115")}), text(row.shown), narrow(row.format));
    }
}

TEST_F(DateMembers, invdOnlySaysWhatReplacesIt) {
    const DialogWatcher watcher;
    expectResult(call(L"Invd", {text(L"20261115")}), text(L""));
    expectResult(call(L"Invd", {text(L""), false}), text(L""));
    ASSERT_EQ(2u, watcher.seen().size());
    for (const SeenDialog& seen : watcher.seen()) {
        EXPECT_EQ(Texts{L"Cette fonction est à remplacer par AMJToJMA ou JMAToAMJ"}, seen.texts);
        EXPECT_EQ(Texts{L"OK"}, seen.buttons);
        EXPECT_EQ(L"contract_tests", seen.title);
    }
}

TEST_F(DateMembers, theSystemsLongDate) {
    const auto expected = text(isFrench() ? L"dimanche 15 novembre 2026" : L"Sunday, November 15, 2026");
    expectResult(call(L"DateEnTexte", {november15}), expected);
    expectResult(call(L"DateEnTexte", {november15, true}), expected);
    const ChangedSetting other(LOCALE_SLONGDATE, L"yyyy MMMM dd");
    expectResult(call(L"DateEnTexte", {november15}),
                 text(isFrench() ? L"2026 novembre 15" : L"2026 November 15"));
}

// Where the week starts on Sunday, as under English settings, the weekday is that of the day before; its
// number counts from Monday and its name from Sunday.
TEST_F(DateMembers, wordsWithTheWeekdayAsOldHostsKnowIt) {
    struct Row {
        double days;
        const wchar_t *french, *english;
    };
    constexpr Row rows[] = {
        {46341, L"Dimanche 15 novembre 2026", L"Saturday 15 November 2026"},
        {46342, L"Lundi 16 novembre 2026", L"Sunday 16 November 2026"},
        {46347, L"Samedi 21 novembre 2026", L"Friday 21 November 2026"},
        {46341.75, L"Dimanche 15 novembre 2026", L"Saturday 15 November 2026"},
        // The last instant of the Sunday is rounded to the Monday.
        {46341.99999999, L"Lundi 16 novembre 2026", L"Sunday 16 November 2026"},
        {36924, L"Vendredi 2 février 2001", L"Thursday 2 February 2001"},
        {0, L"Samedi 30 décembre 1899", L"Friday 30 December 1899"},
        // Before day 0 the fraction still counts forward from midnight.
        {-1.25, L"Vendredi 29 décembre 1899", L"Thursday 29 December 1899"},
        {2958465, L"Vendredi 31 décembre 9999", L"Thursday 31 December 9999"},
        {-657434, L"Vendredi 1 janvier 0100", L"Thursday 1 January 0100"},
    };
    for (const Row& row : rows)
        expectResult(call(L"DateEnTexte", {Date{row.days}, false}),
                     text(isFrench() ? row.french : row.english), std::to_string(row.days));
}

TEST_F(DateMembers, whatIsNoDateHasNoText) {
    for (const double days : {2958466.0, -657435.0, 1e300, -1e300, std::numeric_limits<double>::infinity()})
        for (const bool system : {true, false})
            expectResult(call(L"DateEnTexte", {Date{days}, system}), text(L""), std::to_string(days));
}

TEST_F(DateMembers, leaveNothingBehind) {
    const auto useOnce = [this] {
        call(L"DateAMJtoJMA", {text(L"2026-11-15")});
        call(L"DateJMAtoAMJ", {text(L"15112026")});
        call(L"DateAMJtoJMA", {text(L"1")});
        call(L"DateEnTexte", {november15});
        call(L"DateEnTexte", {november15, false});
        call(L"DateEnTexte", {Date{1e300}, false});
    };
    expectNothingLeft(useOnce);
}

}  // namespace
}  // namespace vorla::test
