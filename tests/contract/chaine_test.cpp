// VorlaChaine where results depend on the system: locales, variants of every type, and the 16-bit limits as a
// host sees them. The rules have tests of their own.
#include "contract/component.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

class Chaine : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments) {
        return invoke(object.get(), name, std::move(arguments));
    }

    const Component component;
    const Dispatch object = component.create(0);
};

Variant decimal(const wchar_t* value) {
    Variant result;
    result.put()->decVal = {};
    EXPECT_EQ(S_OK, VarDecFromStr(const_cast<LPOLESTR>(value), 0x0409, LOCALE_NOUSEROVERRIDE,
                                  &result.put()->decVal));
    result.put()->vt = VT_DECIMAL;
    return result;
}

TEST_F(Chaine, columnsOfNumbersHaveAPointWhateverTheSystemUses) {
    struct Row {
        Variant value;
        const wchar_t* left;
    };
    const Row rows[] = {
        {12.5, L"12.5      "},           {-12.5, L"-12.5     "},         {short16(7), L"7         "},
        {long32(-70000), L"-70000    "}, {single(0.25f), L"0.25      "}, {Currency{15000}, L"1.5       "},
        {1e20, L"1E+20     "},
    };
    for (const Row& row : rows) {
        expectResult(call(L"CBR", {row.value, short16(10)}), text(row.left), describe(row.value.raw()));
        std::wstring right(row.left);
        const auto blanks = right.size() - right.find(L' ');
        right = std::wstring(blanks, L' ') + right.substr(0, right.size() - blanks);
        expectResult(call(L"CBL", {row.value, short16(10)}), text(right), describe(row.value.raw()));
    }
}

TEST_F(Chaine, columnsOfOtherValuesAreJoinedInTheUsersLanguage) {
    expectResult(call(L"CBR", {true, short16(6)}), text(isFrench() ? L"Vrai  " : L"True  "));
    expectResult(call(L"CBR", {false, short16(4)}), text(isFrench() ? L"Faux" : L"Fals"));
    expectResult(call(L"CBR", {decimal(L"2.5"), short16(4)}), text(isFrench() ? L"2,5 " : L"2.5 "));
    expectResult(call(L"CBR", {octet(200), short16(4)}), text(L"200 "));
    expectResult(call(L"CBR", {Variant(), short16(3)}), text(L"   "));
    // 2 February 2001.
    expectResult(call(L"CBR", {Date{36924.0}, short16(10)}),
                 text(isFrench() ? L"02/02/2001" : L"2/2/2001  "));
    ScriptedObject standsForText{Variant(TextView(L"abc"))};
    expectResult(call(L"CBL", {vorla::test::object(&standsForText), short16(5)}), text(L"  abc"));
    EXPECT_EQ(0, standsForText.references());
}

TEST_F(Chaine, columnsOfWhatHasNoText) {
    ScriptedObject withoutDefault;
    Variant array;
    array.put()->parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    array.put()->vt = VT_ARRAY | VT_VARIANT;
    struct Row {
        Variant value;
        int error;
    };
    const Row rows[] = {{nullValue(), 94},
                        {missing(), 13},
                        {array, 13},
                        {nothing(), 91},
                        {vorla::test::object(&withoutDefault), 438}};
    for (const Row& row : rows) {
        expectError(call(L"CBR", {row.value, short16(3)}), row.error, describe(row.value.raw()));
        expectError(call(L"CBL", {row.value, short16(3)}), row.error, describe(row.value.raw()));
        expectError(call(L"SplitStr", {row.value}), row.error, describe(row.value.raw()));
    }
    expectError(call(L"CBR", {text(L"a"), short16(-1)}), 5);
    expectError(call(L"CBL", {text(L"a"), short16(-32768)}), 5);
    EXPECT_EQ(DISP_E_OVERFLOW, call(L"CBR", {text(L"a"), long32(32768)}).code);
}

TEST_F(Chaine, longColumnsAndTexts) {
    const std::wstring million(1'000'000, L'x');
    const auto outcome = call(L"CBR", {text(million), short16(32767)});
    EXPECT_EQ(std::wstring(32767, L'x'), viewOf(outcome.result.raw().bstrVal));
    expectResult(call(L"SplitStr", {text(million)}), text(million));
    expectResult(call(L"Parse", {text(million)}), text(L'"' + million + L'"'));
}

TEST_F(Chaine, positionsPastTheLimitOverflow) {
    const std::wstring longest = std::wstring(32766, L'.') + L"a", tooLong = L"." + longest;
    expectResult(call(L"Occurrence", {text(longest), text(L"a")}), single(1));
    expectError(call(L"Occurrence", {text(tooLong), text(L"a")}), 6);
    expectError(call(L"Transfrm", {text(tooLong), text(L"a"), text(L"b")}), 6);
    expectError(call(L"Transfrm", {text(tooLong), text(L"a"), text(L"b"), short16(1), short16(1)}), 6);
    expectResult(call(L"Transfrm", {text(longest), text(L"a"), text(L"b"), short16(1), short16(1)}),
                 text(std::wstring(32766, L'.') + L"b"));
    expectError(call(L"ExtraitChaine", {text(tooLong + L";b"), short16(2), text(L";")}), 6);
    expectError(call(L"NumLet", {text(std::wstring(32768, L'1'))}), 6);
    expectResult(call(L"NumLet", {text(std::wstring(32767, L'Z'))}), text(std::wstring(32766, L'0') + L"1"));
}

TEST_F(Chaine, caseIsTheUsers) {
    expectResult(call(L"Occurrence", {text(L"ÉéèE"), text(L"é"), false}), single(2));
    expectResult(call(L"Occurrence", {text(L"ÉéèE"), text(L"é")}), single(1));
    expectResult(call(L"Zclé", {text(L"été"), short16(4)}), text(L"ÉTÉ "));
}

TEST_F(Chaine, storedKeys) {
    struct Row {
        const wchar_t* key;
        int width;
        const wchar_t* stored;
    };
    constexpr Row everywhere[] = {
        {L"42", 6, L"000042"},   {L"1234567", 3, L"1234567"}, {L" ab ", 4, L"AB  "}, {L"", 3, L"000"},
        {L"   ", 2, L"00"},      {L"abcdef", 3, L"ABC"},      {L" 7 ", 3, L"007"},   {L"-5", 3, L"-005"},
        {L"0", 0, L"0"},         {L"0042", 0, L"42"},         {L"abc", 0, L""},      {L"", 0, L""},
        {L"12abc", 5, L"12ABC"}, {L"(3)", 2, L"-03"},         {L"1E3", 2, L"1000"},
    };
    for (const Row& row : everywhere)
        expectResult(call(L"Zclé", {text(row.key), short16(row.width)}), text(row.stored), narrow(row.key));
    constexpr Row french[] = {{L"1,5", 3, L"002"}, {L"2,5", 3, L"003"}, {L"-1,5", 3, L"-002"},
                              {L"1.5", 3, L"1.5"}, {L"1,5", 0, L"1,5"}, {L"1\u00A0234", 2, L"1234"}};
    constexpr Row english[] = {{L"1.5", 3, L"002"}, {L"2.5", 3, L"003"},  {L"-1.5", 3, L"-002"},
                               {L"1,5", 3, L"015"}, {L"1.50", 0, L"1.5"}, {L"1,234", 2, L"1234"}};
    for (const Row& row : isFrench() ? french : english)
        expectResult(call(L"Zclé", {text(row.key), short16(row.width)}), text(row.stored), narrow(row.key));
    expectError(call(L"Zclé", {text(L"42"), short16(-1)}), 5);
    expectError(call(L"Zclé", {text(L"ab"), short16(-1)}), 5);
    expectError(call(L"Zclé", {text(L""), short16(-1)}), 5);
    const auto widest = call(L"Zclé", {text(L"9"), short16(32767)});
    EXPECT_EQ(std::wstring(32766, L'0') + L"9", viewOf(widest.result.raw().bstrVal));
}

// From 10^15 on, and below a ten-thousandth, the system's own text of a number has an exponent.
TEST_F(Chaine, keysOfVeryLargeAndVerySmallNumbers) {
    const std::wstring sign = isFrench() ? L"," : L".";
    struct Row {
        std::wstring key;
        int width;
        std::wstring stored;
    };
    const Row rows[] = {
        {L"1234567890123450", 3, L"1234567890123450"},
        {L"-1234567890123450", 3, L"-1234567890123450"},
        {L"1234567890123450", 20, L"00001234567890123450"},
        {L"999999999999999", 3, L"999999999999999"},
        {L"1000000000000000", 3, L"1000000000000000"},
        // A number has 15 digits; behind them stand zeros.
        {L"12345678901234567890", 3, L"12345678901234600000"},
        {L"-12345678901234567890", 24, L"-000012345678901234600000"},
        // More than 28 digits, and more than 256.
        {L"1234567890123450000000000000000000000000", 3, L"1234567890123450000000000000000000000000"},
        {L"1E28", 3, L"1" + std::wstring(28, L'0')},
        {L"1E29", 3, L"1" + std::wstring(29, L'0')},
        {L"-1" + sign + L"5E300", 3, L"-15" + std::wstring(299, L'0')},
        {L"0" + sign + L"000012345", 3, L"000"},
        {L"0" + sign + L"00001", 1, L"0"},
        {L"0" + sign + L"0001", 3, L"000"},
        {L"1E-300", 3, L"000"},
        // In general form.
        {L"123456789012345", 0, L"123456789012345"},
        {L"1234567890123450", 0, L"1" + sign + L"23456789012345E+15"},
        {L"-1234567890123450", 0, L"-1" + sign + L"23456789012345E+15"},
        {L"1E300", 0, L"1E+300"},
        {L"1" + sign + L"25E-300", 0, L"1" + sign + L"25E-300"},
    };
    for (const Row& row : rows)
        expectResult(call(L"Zclé", {text(row.key), short16(row.width)}), text(row.stored), narrow(row.key));
}

TEST_F(Chaine, successiveCodesAreIndependent) {
    expectResult(call(L"NumLet", {text(L"9Z")}), text(L"A0"));
    expectResult(call(L"NumLet", {text(L"0ZZ")}), text(L"100"));
    expectResult(call(L"NumLet", {text(L"00A")}), text(L"00B"));
    expectError(call(L"NumLet", {text(L"A"), short16(-1)}), 5);
    expectError(call(L"NumLet", {text(L""), short16(-1)}), 5);
    expectResult(call(L"NumLet", {text(L"00A")}), text(L"00B"));
}

TEST_F(Chaine, parseLeavesItsVariablesAlone) {
    Variant kind(std::int32_t{4}), delimiter(TextView(L"|"));
    expectResult(call(L"Parse", {text(L"x"), byReference(kind), byReference(delimiter)}), text(L"|x|"));
    EXPECT_EQ(describe(long32(4).raw()), describe(kind.raw()));
    EXPECT_EQ(describe(text(L"|").raw()), describe(delimiter.raw()));
    expectResult(call(L"Parse", {text(L"x"), long32(4)}), text(L"x"));
    expectResult(call(L"Parse", {text(L"x"), long32(7)}), text(L"x"));
    expectResult(call(L"Parse", {text(L"x"), long32(-1)}), text(L"x"));
    expectResult(call(L"Parse", Arguments({text(L"x")}).named(1, long32(3))), text(L"\\x\\"));
}

}  // namespace
}  // namespace vorla::test
