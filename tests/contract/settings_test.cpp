// Numbers under unusual settings: separators beyond Latin-1, of two characters, the same signs as in dates.
// What is read and written by the user's settings follows them; everything else does not.
#include "contract/component.h"
#include "support/no_dialogs.h"
#include "support/number_settings.h"

namespace vorla::test {
namespace {

class Settings : public testing::Test {
protected:
    Outcome amount(const wchar_t* name, Arguments arguments) {
        return invoke(numérique.get(), name, std::move(arguments));
    }
    Outcome date(const wchar_t* name, Arguments arguments) {
        return invoke(dates.get(), name, std::move(arguments));
    }
    Outcome size(Arguments arguments) { return invoke(files.get(), L"SizeToString", std::move(arguments)); }

    const Component component;
    const Dispatch numérique = component.create(1), dates = component.create(3), files = component.create(5);
    // Codes that are not numbers under one setting or another are told to the user.
    const NoDialogs none;
};

Variant key(int value) { return static_cast<std::int16_t>(value); }

struct Separators {
    const wchar_t *decimal, *grouping;
};

// Of Arabic, of Switzerland, of two characters each, of none for groups.
constexpr Separators all[] = {{L"\u066B", L"\u066C"}, {L".", L"'"}, {L"::", L"\u00B7\u00B7"}, {L",", L""}};

std::string shown(const Separators& separators) {
    return narrow(separators.decimal) + narrow(separators.grouping);
}

TEST_F(Settings, plainDigitsAreTheSameEverywhere) {
    for (const auto& row : all) {
        const ChangedSetting decimal(LOCALE_SDECIMAL, row.decimal), grouping(LOCALE_STHOUSAND, row.grouping);
        expectResult(amount(L"NumFrmtSys", {text(L" 1234 ")}), text(L"1234"), shown(row));
        expectResult(amount(L"NumFrmtSys", {text(L"0"), false}), text(L""), shown(row));
        expectResult(amount(L"NumFrmtSys", {std::int32_t{1234567}}), std::int32_t{1234567}, shown(row));
        expectResult(amount(L"NumFrmtSys", {1234567.0}), 1234567.0, shown(row));
        expectResult(amount(L"NumFrmtSys", {Currency{12345670000}}), Currency{12345670000}, shown(row));
        expectResult(amount(L"NumFrmtEnr", {text(L"1234567")}), text(L"1234567"), shown(row));
        expectResult(amount(L"NumFrmtEnr", {1234567.0}), 1234567.0, shown(row));
        expectResult(amount(L"RIBClé", {text(L"30002"), text(L"00550"), text(L"0000157841Z")}), key(25),
                     shown(row));
        expectResult(
            amount(L"RIBControle", {text(L"30002"), text(L"00550"), text(L"0000157841Z"), text(L"25")}), true,
            shown(row));
        expectResult(
            amount(L"RIBControle", {text(L"30002"), text(L"00550"), text(L"0000157841Z"), text(L"26")}),
            false, shown(row));
        expectResult(date(L"DateAMJtoJMA", {text(L"20261115"), false}), text(L"15112026"), shown(row));
        expectResult(date(L"DateJMAtoAMJ", {text(L"15112026")}), text(L"20261115"), shown(row));
        expectResult(date(L"DateJMAtoAMJ", {text(L"15/11/2026")}), text(L"20261115"), shown(row));
        expectResult(date(L"DateEnTexte", {Date{46341}, false}),
                     text(isFrench() ? L"Dimanche 15 novembre 2026" : L"Saturday 15 November 2026"),
                     shown(row));
        expectResult(date(L"DateEnTexte", {Date{46341}}),
                     text(isFrench() ? L"dimanche 15 novembre 2026" : L"Sunday, November 15, 2026"),
                     shown(row));
        expectResult(size({2048.0}), text(L"2 Ko   (2 048 octets)"), shown(row));
        expectResult(size({1048576.0, true}), text(L"1024 Ko"), shown(row));
    }
}

TEST_F(Settings, amountsHaveTheUsersSign) {
    for (const auto& row : all) {
        const ChangedSetting decimal(LOCALE_SDECIMAL, row.decimal), grouping(LOCALE_STHOUSAND, row.grouping);
        const std::wstring sign(1, row.decimal[0]);
        // A value that already contains the sign is unchanged, whatever its type.
        for (const Variant& value : {text(L"12" + sign + L"5"), Variant(12.5), Variant(Currency{125000})}) {
            expectResult(amount(L"NumFrmtSys", {value}), value, shown(row));
            expectResult(amount(L"NumFrmtSys", {value, false}), value, shown(row));
        }
        expectResult(amount(L"NumFrmtEnr", {text(L"12" + sign + L"5")}), text(L"12.5"), shown(row));
        // The system's own text of the number; the first of its signs becomes the point.
        Bstr own;
        ASSERT_EQ(S_OK, VarBstrFromR8(-0.25, LOCALE_USER_DEFAULT, 0, own.put()));
        std::wstring expected(own.view());
        ASSERT_NE(std::wstring::npos, expected.find(sign)) << shown(row);
        expected[expected.find(sign)] = L'.';
        expectResult(amount(L"NumFrmtEnr", {-0.25}), text(expected), shown(row));
    }
}

TEST_F(Settings, typedAmountsGetTheUsersSign) {
    const ChangedSetting decimal(LOCALE_SDECIMAL, L"\u066B"), grouping(LOCALE_STHOUSAND, L"'");
    expectResult(amount(L"NumFrmtSys", {text(L"12.5")}), text(L"12\u066B5"));
    expectResult(amount(L"NumFrmtSys", {text(L"12,5")}), text(L"12\u066B5"));
    // A group's sign is a foreign one like any other: 1.234.
    expectResult(amount(L"NumFrmtSys", {text(L"1'234")}), text(L"1\u066B234"));
    expectResult(amount(L"NumFrmtSys", {text(L"0.00"), false}), text(L""));
    expectResult(amount(L"NumFrmtSys", {text(L"0.00"), true}), text(L"0\u066B00"));
    // Behind the sign, groups are no longer part of a number to some systems; two points never are.
    expectError(amount(L"NumFrmtSys", {text(L"1.2.3")}), 13);
}

// The system decides what number a bank's code is.
TEST_F(Settings, codesAreNumbersByTheUsersSettings) {
    const auto keyOf = [this](const wchar_t* bank) {
        return amount(L"RIBClé", {text(bank), text(L"00550"), text(L"0000157841Z")});
    };
    for (const auto* bank : {L"30'002", L"30\u066B7"}) expectResult(keyOf(bank), key(0), narrow(bank));
    const ChangedSetting decimal(LOCALE_SDECIMAL, L"\u066B"), grouping(LOCALE_STHOUSAND, L"'");
    expectResult(keyOf(L"30'002"), key(25));
    // 30, then 00550 and 00001578419, modulo 97, leave 86; (97 - 86) x 100 modulo 97 is 33.
    expectResult(keyOf(L"30"), key(33));
    expectResult(keyOf(L"30\u066B4"), key(33));
    // 31, then the same: 3100550 mod 97 is 42, 42000015 mod 97 is 82, 8278419 mod 97 is 51; (97 - 51) x 100
    // modulo 97 is 41.
    expectResult(keyOf(L"30\u066B7"), key(41));
    // The sign of money counts as well.
    const ChangedSetting moneys(LOCALE_SMONDECIMALSEP, L"\u066B");
    expectResult(keyOf(L"30.7"), key(0));
    // A key is read with a point alone.
    for (const auto* typed : {L"25\u066B9", L"25'9", L"25.4"})
        expectResult(
            amount(L"RIBControle", {text(L"30002"), text(L"00550"), text(L"0000157841Z"), text(typed)}), true,
            narrow(typed));
}

TEST_F(Settings, datesThatAreNumbersAreTakenAsTheyAre) {
    expectResult(date(L"DateAMJtoJMA", {text(L"2026'11'15"), false}), text(L"15112026"));
    expectResult(date(L"DateJMAtoAMJ", {text(L"15\u066B11\u066B2026")}), text(L"20261115"));
    const ChangedSetting decimal(LOCALE_SDECIMAL, L"\u066B"), grouping(LOCALE_STHOUSAND, L"'");
    // From the end: 15, then "1'", then all that is left.
    expectResult(date(L"DateAMJtoJMA", {text(L"2026'11'15"), false}), text(L"151'2026'1"));
    // From the front: 15, then "'1", then all that is left.
    expectResult(date(L"DateJMAtoAMJ", {text(L"15'11'2026")}), text(L"1'2026'115"));
    expectResult(date(L"DateAMJtoJMA", {text(L"2026\u066B1115"), false}), text(L"15112026\u066B"));
    // Two decimal signs are no number's, so the first is the separator.
    expectResult(date(L"DateAMJtoJMA", {text(L"2026\u066B11\u066B15"), false}), text(L"15112026"));
    expectResult(date(L"DateJMAtoAMJ", {text(L"15.11.2026")}), text(L"20261115"));
}

TEST_F(Settings, theDatesSeparatorIsOneCharacter) {
    struct Row {
        const wchar_t *format, *shown;
    };
    constexpr Row rows[] = {{L"dd'::'MM'::'yyyy", L"15:11:2026"},
                            {L"dd'\u066B'MM'\u066B'yyyy", L"15\u066B11\u066B2026"},
                            {L"dd' de 'MM' de 'yyyy", L"15 11 2026"}};
    for (const Row& row : rows) {
        const ChangedSetting format(LOCALE_SSHORTDATE, row.format);
        expectResult(date(L"DateAMJtoJMA", {text(L"20261115")}), text(row.shown), narrow(row.format));
    }
}

TEST_F(Settings, sizesAreWrittenByTheUsersSettings) {
    constexpr double T = 1024.0 * 1024 * 1024 * 1024;
    {
        const ChangedSetting decimal(LOCALE_SDECIMAL, L"\u066B"), grouping(LOCALE_STHOUSAND, L"'");
        expectResult(size({1536.0, true}), text(L"1\u066B5 Ko"));
        expectResult(size({1536.0}), text(L"1\u066B50 Ko   (1 536 octets)"));
        expectResult(size({1500.25 * T}), text(L"1'500\u066B25 To   (1 649 542 319 570 944 octets)"));
        expectResult(size({1500.25 * T, true}), text(L"1500\u066B25 To"));
    }
    // The system decides about two characters, and its answer reaches the caller.
    const ChangedSetting decimal(LOCALE_SDECIMAL, L"::"), grouping(LOCALE_STHOUSAND, L"''");
    const auto formatted = [](double number, const wchar_t* format) {
        Variant value(number);
        Bstr result;
        EXPECT_EQ(S_OK, VarFormat(value.put(), const_cast<LPOLESTR>(format), 0, 0, 0, result.put()));
        return std::wstring(result.view());
    };
    expectResult(size({1536.0, true}), text(formatted(1.5, L"#0.##") + L" Ko"));
    expectResult(size({1500.25 * T}),
                 text(formatted(1500.25, L"Standard") + L" To   (1 649 542 319 570 944 octets)"));
}

}  // namespace
}  // namespace vorla::test
