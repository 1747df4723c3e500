// VorlaNumérique where results depend on the system: the decimal sign, variants of every type, and the
// account key with its two messages. The steps of the key are tested with its rule.
#include <random>

#include "contract/component.h"
#include "support/asked_object.h"
#include "support/dialog_watcher.h"
#include "support/memory_count.h"
#include "support/number_settings.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

using Texts = std::vector<std::wstring>;

class Numérique : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments) {
        return invoke(object.get(), name, std::move(arguments));
    }

    const Component component;
    const Dispatch object = component.create(1);
};

// own() uses the user's decimal sign, foreign() the other one.
std::wstring own(std::wstring text) {
    for (auto& character : text)
        if (character == L'*') character = isFrench() ? L',' : L'.';
    return text;
}

std::wstring foreign(std::wstring text) {
    for (auto& character : text)
        if (character == L'*') character = isFrench() ? L'.' : L',';
    return text;
}

TEST_F(Numérique, identifiersLeaveRoomForThePrivateRoutine) {
    EXPECT_EQ(0x60030000, idOf(object.get(), L"NumFrmtSys"));
    EXPECT_EQ(0x60030001, idOf(object.get(), L"NumFrmtEnr"));
    EXPECT_EQ(0x60030003, idOf(object.get(), L"RIBControle"));
    EXPECT_EQ(0x60030004, idOf(object.get(), L"RIBClé"));
    auto none = Arguments().parameters();
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(object.get(), 0x60030002, DISPATCH_METHOD, none).code);
}

TEST_F(Numérique, parametersHaveTheirNames) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"RIBControle"), const_cast<LPOLESTR>(L"Code_banque"),
                        const_cast<LPOLESTR>(L"Code_guichet"), const_cast<LPOLESTR>(L"N°_Compte"),
                        const_cast<LPOLESTR>(L"Clé_Rib")};
    DISPID ids[5];
    EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, names, 5, LOCALE_USER_DEFAULT, ids));
    for (int i = 1; i < 5; ++i) EXPECT_EQ(i - 1, ids[i]);
    LPOLESTR format[] = {const_cast<LPOLESTR>(L"NumFrmtSys"), const_cast<LPOLESTR>(L"Montant"),
                         const_cast<LPOLESTR>(L"ZéroSignificatif")};
    EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, format, 3, LOCALE_USER_DEFAULT, ids));
}

TEST_F(Numérique, theSystemsSignReplacesTheFirstForeignOne) {
    struct Row {
        std::wstring typed, expected;
    };
    const Row rows[] = {
        {foreign(L"12*5"), own(L"12*5")},
        {foreign(L"12*50"), own(L"12*50")},
        {foreign(L"-12*5"), own(L"-12*5")},
        {foreign(L"  12*5  "), own(L"12*5")},
        {foreign(L"*5"), own(L"*5")},
        {L"12/5", own(L"12*5")},
        {L"12x5", own(L"12*5")},
        {L"12 5", own(L"12*5")},
        {L"12", L"12"},
        {L" 12 ", L"12"},
        {L"-12", L"-12"},
        {L"5-", L"5-"},  // a trailing minus counts too
        // Unchanged, blanks included.
        {own(L"12*5"), own(L"12*5")},
        {own(L" 12*5 "), own(L" 12*5 ")},
        {own(L"abc*"), own(L"abc*")},
        {L"", L""},
        {L"   ", L"   "},
    };
    for (const Row& row : rows)
        expectResult(call(L"NumFrmtSys", {text(row.typed)}), text(row.expected), narrow(row.typed));
}

TEST_F(Numérique, amountsKeepTheirType) {
    const Variant values[] = {
        short16(3), short16(-32768), long32(70000),   single(12),      single(12.5f), 12.0,
        12.5,       -0.25,           Currency{30000}, Currency{12500}, Variant(),     short16(0)};
    for (const Variant& value : values)
        expectResult(call(L"NumFrmtSys", {value}), value, describe(value.raw()));
    // Other types come back as text.
    expectResult(call(L"NumFrmtSys", {octet(200)}), text(L"200"));
    ScriptedObject standsForText{text(foreign(L"1*5"))};
    expectResult(call(L"NumFrmtSys", {vorla::test::object(&standsForText)}), text(own(L"1*5")));
    EXPECT_EQ(0, standsForText.references());
    // In a script's variable, too.
    Variant variable(text(foreign(L"1*5")));
    expectResult(call(L"NumFrmtSys", {byReference(variable)}), text(own(L"1*5")));
    expectResult(call(L"NumFrmtEnr", {byReference(variable)}), text(foreign(L"1*5")));
}

TEST_F(Numérique, aZeroAmountIsBlankOnDemand) {
    for (const Variant& zero : {text(L"0"), text(L" 000 "), text(L"-0"), text(foreign(L"0*00")), short16(0),
                                long32(0), Variant(0.0), single(0), Variant(Currency{0}), octet(0)}) {
        expectResult(call(L"NumFrmtSys", {zero, false}), text(L""), describe(zero.raw()));
    }
    expectResult(call(L"NumFrmtSys", {text(L"0"), true}), text(L"0"));
    expectResult(call(L"NumFrmtSys", {text(L"0")}), text(L"0"));
    expectResult(call(L"NumFrmtSys", {text(L"3"), false}), text(L"3"));
    // An amount that is very small or negative is not zero.
    for (const wchar_t* little : {L"0*01", L"0*0001", L"-0*0001", L"-3*5"})
        expectResult(call(L"NumFrmtSys", {text(foreign(little)), false}), text(own(little)), narrow(little));
    expectResult(call(L"NumFrmtSys", {short16(-3), false}), short16(-3));
    // Less than a ten-thousandth is zero to a currency.
    expectResult(call(L"NumFrmtSys", {text(foreign(L"0*00001")), false}), text(L""));
    // An amount that is already in the system's form is returned unchanged.
    expectResult(call(L"NumFrmtSys", {text(own(L"0*00")), false}), text(own(L"0*00")));
    expectResult(call(L"NumFrmtSys", {Variant(), false}), Variant());
    expectResult(call(L"NumFrmtSys", {text(L" "), false}), text(L" "));
}

TEST_F(Numérique, whatIsNoAmountIsATypeMismatch) {
    Variant array;
    array.put()->parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    array.put()->vt = VT_ARRAY | VT_VARIANT;
    for (const Variant& value :
         {text(L"abc"), text(L"-"), text(L"--3"), text(L"x"), Variant(true), missing(), array})
        expectError(call(L"NumFrmtSys", {value}), 13, describe(value.raw()));
    // A single that only the general form with an exponent shows: its mark is the first foreign sign.
    expectError(call(L"NumFrmtSys", {1e20}), 13);
    expectError(call(L"NumFrmtSys", {Variant(Date{36924})}), 13);
    expectError(call(L"NumFrmtSys", {text(L"99999999999999999")}), 6);
    for (const wchar_t* member : {L"NumFrmtSys", L"NumFrmtEnr"}) {
        expectError(call(member, {nullValue()}), 94);
        expectError(call(member, {nothing()}), 91);
    }
    expectError(call(L"NumFrmtEnr", {missing()}), 13);
    expectError(call(L"NumFrmtEnr", {array}), 13);
}

TEST_F(Numérique, storedAmountsHaveAPoint) {
    struct Row {
        Variant value, expected;
    };
    const Row rows[] = {
        {text(own(L"12*5")), text(L"12.5")},
        {text(own(L"1*2*3")), text(own(L"1.2*3"))},
        {text(own(L" *x ")), text(L" .x ")},
        {12.5, text(L"12.5")},
        {single(-0.5f), text(L"-0.5")},
        {Currency{12500}, text(L"1.25")},
        // Unchanged, and in their type.
        {text(L"125"), text(L"125")},
        {text(foreign(L"12*5;")), text(foreign(L"12*5;"))},
        {12.0, 12.0},
        {short16(7), short16(7)},
        {Currency{30000}, Currency{30000}},
        {Variant(), Variant()},
        {text(L""), text(L"")},
        {Date{36924}, Date{36924}},
        {true, true},
    };
    for (const Row& row : rows)
        expectResult(call(L"NumFrmtEnr", {row.value}), row.expected, describe(row.value.raw()));
}

// The amount's own default property assigns to the variable that the amount came in.
TEST_F(Numérique, anAmountIsWhatWasGiven) {
    for (const auto* member : {L"NumFrmtEnr", L"NumFrmtSys"}) {
        Variant variable;
        AskedObject host(text(L"  "), [&] { variable = short16(7); });
        variable = vorla::test::object(&host);
        {
            // Unchanged, so it is the object itself that comes back.
            const auto outcome = call(member, {byReference(variable)});
            expectResult(outcome, vorla::test::object(&host), narrow(member));
            EXPECT_FALSE(host.isGone()) << narrow(member);
        }
        EXPECT_EQ(describe(short16(7).raw()), describe(variable.raw())) << narrow(member);
        EXPECT_EQ(0, host.references()) << narrow(member);
    }
}

TEST_F(Numérique, theSignIsTheUsersOwnAtEachCall) {
    {
        const ChangedSetting arabic(LOCALE_SDECIMAL, L"\u066B");
        expectResult(call(L"NumFrmtSys", {text(L"12.5")}), text(L"12\u066B5"));
        expectResult(call(L"NumFrmtEnr", {text(L"12\u066B5")}), text(L"12.5"));
        expectResult(call(L"NumFrmtEnr", {12.5}), text(L"12.5"));
    }
    {
        // Only the first of two characters counts. The system decides whether the amount is then still a
        // number, and its answer reaches the caller.
        const ChangedSetting colons(LOCALE_SDECIMAL, L"::");
        wchar_t amount[] = L"12:5";
        CY value;
        if (SUCCEEDED(VarCyFromStr(amount, LOCALE_USER_DEFAULT, 0, &value)))
            expectResult(call(L"NumFrmtSys", {text(L"12.5")}), text(amount));
        else
            expectError(call(L"NumFrmtSys", {text(L"12.5")}), 13);
        expectResult(call(L"NumFrmtSys", {text(L"12:5")}), text(L"12:5"));
        expectResult(call(L"NumFrmtEnr", {text(L"12::5")}), text(L"12.:5"));
    }
    expectResult(call(L"NumFrmtSys", {text(foreign(L"12*5"))}), text(own(L"12*5")));
}

TEST_F(Numérique, keysOfAccounts) {
    struct Row {
        const wchar_t *bank, *branch, *account;
        int key;
    };
    constexpr Row rows[] = {
        // 300020055000001578419 = 97 x ... + 24
        {L"30002", L"00550", L"0000157841Z", 25},
        {L"30002", L"00550", L"00001578419", 25},
        {L"30002", L"00550", L"1578419", 25},    // zeros in front are added
        {L"30002", L"00550", L" 1578419 ", 25},  // blanks are no part of a number
        {L" 30002 ", L"00550", L"0000157841I", 25},
        {L"20041", L"01005", L"0500013M026", 6},
        // The number is 1, 2, 96: the key is 97 minus a hundred times that, modulo 97.
        {L"0", L"0", L"1", 94},
        {L"0", L"0", L"2", 91},
        {L"0", L"0", L"96", 3},
        {L"0", L"0", L"A", 94},
        // Remainder 0, whose key would be 97: hosts get 0.
        {L"0", L"0", L"97", 0},
        {L"0", L"0", L"0", 0},
        {L"0", L"0", L"", 0},
    };
    for (const Row& row : rows) {
        const auto what = narrow(row.account);
        expectResult(call(L"RIBClé", {text(row.bank), text(row.branch), text(row.account)}), short16(row.key),
                     what);
        for (int key = 0; key < 100; ++key) {
            wchar_t written[3] = {static_cast<wchar_t>(L'0' + key / 10),
                                  static_cast<wchar_t>(L'0' + key % 10)};
            const bool fits = row.key == 0 || key == row.key || key == row.key + 97;
            expectResult(
                call(L"RIBControle", {text(row.bank), text(row.branch), text(row.account), text(written)}),
                fits, what + " " + narrow(written));
        }
    }
}

TEST_F(Numérique, aKeyIsTheNumberItBeginsWith) {
    const auto control = [this](const wchar_t* key) {
        return call(L"RIBControle", {text(L"30002"), text(L"00550"), text(L"0000157841Z"), text(key)});
    };
    for (const auto* key : {L"25", L" 25", L"25x", L"2 5", L"25.4", L"122", L"+25"})
        expectResult(control(key), true, narrow(key));
    // 2400 + 25.5 lies between 2425 and 2426; the even one is no multiple of 97.
    for (const auto* key : {L"", L"26", L"x25", L"-25", L"25.5", L"0"})
        expectResult(control(key), false, narrow(key));
    expectError(control(L"9999999999"), 6);
}

TEST_F(Numérique, accountsThatAreNoNumbersCountByTheirLeadingNumbers) {
    // No format takes "1/2": both the first 6 and the last 5 characters are 1, so 100001, 100001 mod 97 = 91,
    // and 97 - 91 = 6; 600 mod 97 = 18.
    expectResult(call(L"RIBClé", {text(L"0"), text(L"0"), text(L"1/2")}), short16(18));
}

TEST_F(Numérique, codesBeyondTheRangeOverflow) {
    expectError(call(L"RIBClé", {text(L"2147483648"), text(L"0"), text(L"0")}), 6);
    expectError(call(L"RIBControle", {text(L"99999999999"), text(L"0"), text(L"0"), text(L"0")}), 6);
    // 2147483647 = 97 x 22139006 + 65; 16 zeros follow, and 10^16 mod 97 = 62; 65 x 62 mod 97 = 53; the key
    // of 53 is (97 - 53) x 100 mod 97 = 35.
    expectResult(call(L"RIBClé", {text(L"2147483647"), text(L"0"), text(L"0")}), short16(35));
}

TEST_F(Numérique, aBankIsANumberByTheUsersSettings) {
    const auto keyOf = [this](const std::wstring& bank) {
        return call(L"RIBClé", {text(bank), text(L"00550"), text(L"0000157841Z")});
    };
    // 30002, however it is written.
    for (const std::wstring& bank :
         {std::wstring(isFrench() ? L"30 002" : L"30,002"), own(L"30002*0"), own(L"30001*6"), own(L"30002*4"),
          std::wstring(L"3,0002E4").replace(1, 1, isFrench() ? L"," : L".")})
        expectResult(keyOf(bank), short16(25), narrow(bank));
    // Halves go to the even number.
    expectResult(keyOf(own(L"30002*5")), short16(25));
    expectResult(keyOf(own(L"30001*5")), short16(25));
    // 3.4 is 3, with 00550 and 00001578419 behind it. 300550 mod 97 is 44; 44000015 mod 97 is 39; 3978419 mod
    // 97 is 61; (97 - 61) x 100 mod 97 is 11.
    expectResult(keyOf(own(L"3*4")), short16(11));
    // Beyond 32 bits only by the user's settings.
    expectError(keyOf(isFrench() ? L"3 000 000 000" : L"3,000,000,000"), 6);
    expectError(keyOf(L"1E300"), 6);
    // The branch is the number that it begins with: 5, whatever stands behind.
    const auto branchOf = [this](const wchar_t* branch) {
        return call(L"RIBClé", {text(L"0"), text(branch), text(L"0")});
    };
    const auto whole = branchOf(L"5");
    expectResult(branchOf(isFrench() ? L"5,7" : L"5,000"), whole.result);
}

TEST_F(Numérique, accountsOfAnyLengthEndNoHost) {
    struct Row {
        std::wstring account;
        int key;
    };
    const Row rows[] = {
        // The first 6 digits and the last 5 count: 100000 and 00000. 10^5 times 10^5 is 10^10, and 10^10 mod
        // 97 is 49;
        // (97 - 49) x 100 mod 97 is 47.
        {L"1" + std::wstring(255, L'0'), 47},
        {L"1" + std::wstring(256, L'0'), 47},
        {L"1" + std::wstring(299, L'0'), 47},
        {L"A" + std::wstring(99'999, L'0'), 47},
        // Zeros in front of a number do not count.
        {std::wstring(299, L'0') + L"1", 94},
        {std::wstring(100'000, L'0') + L"1", 94},
        {L"  " + std::wstring(300, L'0') + L"1 ", 94},
        // 111111 and 11111: 111111 mod 97 is 46, 4611111 mod 97 is 22, (97 - 22) x 100 mod 97 is 31.
        {std::wstring(300, L'1'), 31},
        {std::wstring(1'000'000, L'J'), 31},
    };
    for (const Row& row : rows)
        expectResult(call(L"RIBClé", {text(L"0"), text(L"0"), text(row.account)}), short16(row.key),
                     std::to_string(row.account.size()));
    // With more than digits in it a text of more than 256 characters stays as it is: "-00000" and "00001"
    // count.
    expectResult(call(L"RIBClé", {text(L"0"), text(L"0"), text(L"-" + std::wstring(300, L'0') + L"1")}),
                 short16(94));
    expectResult(call(L"RIBControle", {text(L"0"), text(L"0"), text(std::wstring(300, L'1')), text(L"31")}),
                 true);
    expectResult(call(L"RIBControle", {text(L"0"), text(L"0"), text(std::wstring(300, L'1')), text(L"32")}),
                 false);
}

TEST_F(Numérique, codesThatAreNoNumbersAreToldToTheUser) {
    struct Row {
        const wchar_t *bank, *branch, *message;
    };
    constexpr Row rows[] = {
        {L"3000A", L"00550", L"Code banque non numérique"},
        {L"", L"00550", L"Code banque non numérique"},
        {L"A", L"B", L"Code banque non numérique"},
        {L"30002", L"", L"Code guichet non numérique"},
        {L"30002", L"0055O", L"Code guichet non numérique"},
        {L"99999999999", L"x", L"Code guichet non numérique"},
    };
    for (const Row& row : rows) {
        const DialogWatcher watcher;
        expectResult(call(L"RIBClé", {text(row.bank), text(row.branch), text(L"0000157841Z")}), short16(0));
        expectResult(call(L"RIBControle",
                          {text(row.bank), text(row.branch), text(L"0000157841Z"), text(L"99999999999")}),
                     true);
        ASSERT_EQ(2u, watcher.seen().size());
        for (const SeenDialog& seen : watcher.seen()) {
            EXPECT_EQ(Texts{row.message}, seen.texts);
            EXPECT_EQ(Texts{L"OK"}, seen.buttons);
            EXPECT_EQ(L"contract_tests", seen.title);
        }
    }
}

// The number digit by digit, as one learns division.
int remainderOf(const std::string& digits) {
    int remainder = 0;
    for (const char digit : digits) remainder = (remainder * 10 + (digit - '0')) % 97;
    return remainder;
}

TEST_F(Numérique, tenThousandAccountsAgreeWithTheLongDivision) {
    std::mt19937 random(97);
    const auto letters = std::string("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const auto values = std::string("012345678912345678912345678923456789");
    int zeros = 0;
    for (int i = 0; i < 10'000; ++i) {
        std::wstring codes[3] = {std::wstring(5, L'0'), std::wstring(5, L'0'), std::wstring(11, L'0')};
        std::string number;
        for (auto& code : codes)
            for (auto& character : code) {
                const auto choice = random() % (code.size() == 5 ? 10u : 36u);
                character = static_cast<wchar_t>(letters[choice]);
                number += values[choice];
            }
        const int remainder = remainderOf(number);
        zeros += remainder == 0;
        // With the key appended, the number must be a multiple of 97.
        int key = 1;
        while (remainderOf(number + static_cast<char>('0' + key / 10) + static_cast<char>('0' + key % 10)) !=
               0)
            ++key;
        const auto expected = remainder == 0 ? 0 : key;
        const auto outcome = call(L"RIBClé", {text(codes[0]), text(codes[1]), text(codes[2])});
        ASSERT_EQ(VT_I2, outcome.result.raw().vt) << number;
        ASSERT_EQ(expected, outcome.result.raw().iVal) << number;
    }
    EXPECT_GT(zeros, 0);
}

TEST_F(Numérique, leavesNothingBehind) {
    const auto useOnce = [this] {
        call(L"NumFrmtSys", {text(foreign(L"12*5")), false});
        call(L"NumFrmtSys", {12.5});
        call(L"NumFrmtSys", {text(L"0"), false});
        call(L"NumFrmtSys", {text(L"abc")});
        call(L"NumFrmtEnr", {text(own(L"12*5"))});
        call(L"RIBClé", {text(L"30002"), text(L"00550"), text(L"0000157841Z")});
        call(L"RIBClé", {text(L"99999999999"), text(L"0"), text(L"0")});
        call(L"RIBControle", {text(L"30002"), text(L"00550"), text(L"0000157841Z"), text(L"25")});
    };
    expectNothingLeft(useOnce);
}

}  // namespace
}  // namespace vorla::test
