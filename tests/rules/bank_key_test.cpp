#include "text/bank_key.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "outcome.h"
#include "text/keys.h"

namespace vorla {
namespace {

// A whole number in the format of 11 digits.
Text formatted(TextView digits) { return zeroFilled(digits, 11).text(); }

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

TEST(BankKey, OfKnownAccounts) {
    EXPECT_EQ(bankRemainder(L"30002", L"00550", L"00001578419"), 24);
    EXPECT_EQ(bankKey(24), 25);
    EXPECT_TRUE(bankKeyFits(24, L"25"));
    EXPECT_FALSE(bankKeyFits(24, L"26"));
    EXPECT_EQ(bankKey(bankRemainder(L"20041", L"01005", L"05000134026")), 6);
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

TEST(BankRemainder, TakesEveryCodeForItsLeadingNumber) {
    EXPECT_EQ(bankRemainder(L"5x7", L"0", L"0"), bankRemainder(L"5", L"0", L"0"));
    EXPECT_EQ(bankRemainder(L"x", L"y", L"z"), 0);
    EXPECT_EQ(bankRemainder(L"", L"", L""), 0);
    // A text shorter than 6 characters counts twice: 1 and 1 give 100001, and 100001 = 97 x 1030 + 91.
    EXPECT_EQ(bankRemainder(L"0", L"0", L"1/2"), 91);
    // If there are more than 11 characters, those in the middle do not count.
    EXPECT_EQ(bankRemainder(L"1", L"2", L"000001999900002"), bankRemainder(L"1", L"2", L"00000100002"));
}

// A divided value is rounded first, and a half goes to the even neighbour.
TEST(BankRemainder, RoundsHalvesToEven) {
    EXPECT_EQ(bankRemainder(L"2.5", L"0", L"0"), bankRemainder(L"2", L"0", L"0"));
    EXPECT_EQ(bankRemainder(L"3.5", L"0", L"0"), bankRemainder(L"4", L"0", L"0"));
    EXPECT_EQ(bankRemainder(L"2.51", L"0", L"0"), bankRemainder(L"3", L"0", L"0"));
    EXPECT_EQ(bankRemainder(L"0", L"0.5", L"0"), 0);
    EXPECT_EQ(bankRemainder(L"0", L"1.5", L"0"), bankRemainder(L"0", L"2", L"0"));
    EXPECT_EQ(bankRemainder(L"-2.5", L"0", L"0"), bankRemainder(L"-2", L"0", L"0"));
    EXPECT_TRUE(bankKeyFits(24, L"25.4"));
    EXPECT_FALSE(bankKeyFits(24, L"25.5"));
    EXPECT_TRUE(bankKeyFits(24, L"24.6"));
    EXPECT_FALSE(bankKeyFits(24, L"24.5"));
}

Outcome<Text> remainder(TextView bank, TextView branch) {
    return outcomeOf([&] { return std::to_wstring(bankRemainder(bank, branch, L"00000000000")); });
}

TEST(BankRemainder, OverflowsBeyond32Bits) {
    EXPECT_EQ(remainder(L"2147483648", L"0"), Raises(6));
    EXPECT_EQ(remainder(L"2147483647.5", L"0"), Raises(6));
    EXPECT_EQ(remainder(L"99999999999", L"0"), Raises(6));
    EXPECT_EQ(remainder(L"1E400", L"0"), Raises(6));
    EXPECT_EQ(remainder(L"-2147483649", L"0"), Raises(6));
    EXPECT_EQ(remainder(L"0", L"2147483648"), Raises(6));
    // 65 x 10^16 mod 97.
    EXPECT_EQ(remainder(L"2147483647.4", L"0"), L"53");
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
        const auto actual = bankRemainder(bank, branch, formatted(account));
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
