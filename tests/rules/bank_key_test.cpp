#include "text/bank_key.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "frame/values/leading_number.h"
#include "outcome.h"

namespace vorla {
namespace {

TEST(AccountDigits, FollowTheTableForCapitals) {
    EXPECT_EQ(accountDigits(L"ABCDEFGHI"), L"123456789");
    EXPECT_EQ(accountDigits(L"JKLMNOPQR"), L"123456789");
    EXPECT_EQ(accountDigits(L"STUVWXYZ"), L"23456789");
    EXPECT_EQ(accountDigits(L"0000157841Z"), L"00001578419");
    EXPECT_EQ(accountDigits(L""), L"");
}

TEST(AccountDigits, KeepDigitsAndTheSignsBelowThem) {
    EXPECT_EQ(accountDigits(L"0123456789"), L"0123456789");
    EXPECT_EQ(accountDigits(L" !\"#$%&'()*+,-./"), L" !\"#$%&'()*+,-./");
    EXPECT_EQ(accountDigits(L"\t"), L"\t");
}

// Codes continue counting after the capitals: "a" is 97, and 97 - 81 = 16. The signs between "9" and "A" are
// 6 to 1 before "@", which stands for ten.
TEST(AccountDigits, GiveEveryOtherCharacterADigit) {
    EXPECT_EQ(accountDigits(L"abcdefghijklmnopqrstuvwxyz"), L"67890123456789012345678901");
    EXPECT_EQ(accountDigits(L":;<=>?@"), L"4567890");
    EXPECT_EQ(accountDigits(L"[\\]^_`"), L"012345");
    // é is 233: 152; the euro sign is 8364: 8283.
    EXPECT_EQ(accountDigits(L"\u00E9\u20AC"), L"23");
}

TEST(WholeAccount, HasElevenDigitsOrMore) {
    EXPECT_EQ(wholeAccount({L"1578419"}), L"00001578419");
    EXPECT_EQ(wholeAccount({L"00000000000000012"}), L"00000000012");
    EXPECT_EQ(wholeAccount({L"0"}), L"00000000000");
    EXPECT_EQ(wholeAccount({L""}), L"00000000000");
    EXPECT_EQ(wholeAccount({L"123456789012"}), L"123456789012");
    EXPECT_EQ(wholeAccount({L"12345678901234567890123456789012"}), L"12345678901234567890123456789012");
    EXPECT_EQ(wholeAccount({Text(100'000, L'7')}), Text(100'000, L'7'));
    EXPECT_EQ(wholeAccount({Text(100'000, L'0') + L"7"}), L"00000000007");
    // A minus stands in front of the zeros.
    EXPECT_EQ(wholeAccount({L"5", 0, true}), L"-00000000005");
    EXPECT_EQ(wholeAccount({L"123456789012", 0, true}), L"-123456789012");
    // Zeros behind the digits that were read.
    EXPECT_EQ(wholeAccount({L"15", 3}), L"00000015000");
    EXPECT_EQ(wholeAccount({L"15", 12}), L"15000000000000");
}

TEST(WholeAccount, IsRoundedHalvesAwayFromZero) {
    EXPECT_EQ(wholeAccount({L"124", -1}), L"00000000012");
    EXPECT_EQ(wholeAccount({L"125", -1}), L"00000000013");
    EXPECT_EQ(wholeAccount({L"125", -1, true}), L"-00000000013");
    EXPECT_EQ(wholeAccount({L"1249", -2}), L"00000000012");
    EXPECT_EQ(wholeAccount({L"999999999995", -1}), L"100000000000");
    EXPECT_EQ(wholeAccount({L"1995", -1}), L"00000000200");
    EXPECT_EQ(wholeAccount({L"5", -1}), L"00000000001");
    EXPECT_EQ(wholeAccount({L"4", -1}), L"00000000000");
    // 0.09, with a zero that was not read.
    EXPECT_EQ(wholeAccount({L"9", -2}), L"00000000000");
}

TEST(BankKey, OfKnownAccounts) {
    EXPECT_EQ(bankRemainder(30002, L"00550", L"00001578419"), 24);
    EXPECT_EQ(bankKey(24), 25);
    EXPECT_TRUE(bankKeyFits(24, L"25"));
    EXPECT_FALSE(bankKeyFits(24, L"26"));
    EXPECT_EQ(bankKey(bankRemainder(20041, L"01005", L"05000134026")), 6);
}

TEST(BankKey, OfEveryRemainder) {
    EXPECT_EQ(bankKey(0), 0);
    for (int remainder = 1; remainder < 97; ++remainder) {
        EXPECT_EQ(bankKey(remainder), 97 - remainder * 100 % 97);
        for (int key = 0; key < 100; ++key)
            EXPECT_EQ(bankKeyFits(remainder, std::to_wstring(key)), (remainder * 100 + key) % 97 == 0);
    }
}

TEST(BankKey, AnythingGoesWithTheRemainderZero) {
    for (const auto* key : {L"", L"00", L"97", L"12", L"abc", L"99999999999"})
        EXPECT_TRUE(bankKeyFits(0, key));
}

TEST(BankRemainder, TakesBranchAndAccountForTheirLeadingNumbers) {
    EXPECT_EQ(bankRemainder(0, L"5x7", L"0"), bankRemainder(0, L"5", L"0"));
    EXPECT_EQ(bankRemainder(0, L"y", L"z"), 0);
    EXPECT_EQ(bankRemainder(0, L"", L""), 0);
    // A text shorter than 6 characters counts twice: 1 and 1 give 100001, and 100001 = 97 x 1030 + 91.
    EXPECT_EQ(bankRemainder(0, L"0", L"1/2"), 91);
    // If there are more than 11 characters, those in the middle do not count.
    EXPECT_EQ(bankRemainder(1, L"2", L"000001999900002"), bankRemainder(1, L"2", L"00000100002"));
}

// A divided value is rounded first, and a half goes to the even neighbour.
TEST(BankRemainder, RoundsHalvesToEven) {
    EXPECT_EQ(bankRemainder(2.5, L"0", L"0"), bankRemainder(2, L"0", L"0"));
    EXPECT_EQ(bankRemainder(3.5, L"0", L"0"), bankRemainder(4, L"0", L"0"));
    EXPECT_EQ(bankRemainder(2.51, L"0", L"0"), bankRemainder(3, L"0", L"0"));
    EXPECT_EQ(bankRemainder(0, L"0.5", L"0"), 0);
    EXPECT_EQ(bankRemainder(0, L"1.5", L"0"), bankRemainder(0, L"2", L"0"));
    EXPECT_EQ(bankRemainder(-2.5, L"0", L"0"), bankRemainder(-2, L"0", L"0"));
    EXPECT_TRUE(bankKeyFits(24, L"25.4"));
    EXPECT_FALSE(bankKeyFits(24, L"25.5"));
    EXPECT_TRUE(bankKeyFits(24, L"24.6"));
    EXPECT_FALSE(bankKeyFits(24, L"24.5"));
}

Outcome<Text> remainder(double bank, TextView branch) {
    return outcomeOf([&] { return std::to_wstring(bankRemainder(bank, branch, L"00000000000")); });
}

TEST(BankRemainder, OverflowsBeyond32Bits) {
    EXPECT_EQ(remainder(2147483648, L"0"), Raises(6));
    EXPECT_EQ(remainder(2147483647.5, L"0"), Raises(6));
    EXPECT_EQ(remainder(99999999999, L"0"), Raises(6));
    EXPECT_EQ(remainder(1E300, L"0"), Raises(6));
    EXPECT_EQ(remainder(-2147483649, L"0"), Raises(6));
    EXPECT_EQ(remainder(0, L"2147483648"), Raises(6));
    // 65 x 10^16 mod 97.
    EXPECT_EQ(remainder(2147483647.4, L"0"), L"53");
    EXPECT_EQ(outcomeOf([] { return std::to_wstring(bankKeyFits(24, L"2147483647")); }), Raises(6));
}

TEST(BankRemainder, AgreesWithTheLongDivision) {
    std::mt19937 random(19970101);
    int zeros = 0;
    for (int i = 0; i < 10'000; ++i) {
        Text number(21, L'0');
        int expected = 0;
        for (auto& digit : number) {
            digit = static_cast<wchar_t>(L'0' + random() % 10);
            expected = (expected * 10 + static_cast<int>(digit - L'0')) % 97;
        }
        const auto bank = number.substr(0, 5), branch = number.substr(5, 5), account = number.substr(10);
        const auto actual = bankRemainder(leadingNumber(bank), branch, wholeAccount({account}));
        ASSERT_EQ(actual, expected) << shown(number);
        if (expected == 0) {
            ++zeros;
            ASSERT_EQ(bankKey(actual), 0);
        } else {
            // The 21 digits followed by the key are a multiple of 97.
            const auto key = bankKey(actual);
            ASSERT_EQ((expected * 100 + key) % 97, 0);
            ASSERT_TRUE(bankKeyFits(actual, std::to_wstring(key)));
        }
    }
    EXPECT_GT(zeros, 0);
}

}  // namespace
}  // namespace vorla
