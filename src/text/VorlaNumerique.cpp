#include "text/VorlaNumerique.h"

#include <algorithm>
#include <array>
#include <optional>

#include "frame/host/message_box.h"
#include "frame/values/conversions.h"
#include "frame/values/winapi.h"
#include "text/amounts.h"
#include "text/bank_key.h"

namespace vorla {
namespace {

// As formats write it. If the locale's separator has several characters, only the first counts.
wchar_t decimalSeparator() {
    const auto formatted = formattedValue(Variant(std::int16_t{123}).view(), L"###.00");
    return formatted.view().size() < 4 ? L' ' : formatted.view()[3];
}

bool holds(TextView text, wchar_t character) { return text.find(character) != TextView::npos; }

// A converted account as the system reads numbers; empty when it is not a number. The system is not asked
// about digits alone, nor about texts longer than any number: some systems lose digits past the thousandth.
std::optional<ReadNumber> readAccount(TextView account) {
    const auto plain = trimmed(account);
    if (!plain.empty() && plain.find_first_not_of(L"0123456789") == TextView::npos)
        return ReadNumber{Text(plain)};
    constexpr std::size_t longest = 256;
    if (account.size() > longest) return {};
    NUMPARSE number{};
    number.cDig = longest;
    number.dwInFlags = NUMPRS_STD & ~NUMPRS_HEX_OCT;
    std::array<BYTE, longest> digits;
    if (FAILED(VarParseNumFromStr(Bstr(account).get(), LOCALE_USER_DEFAULT, 0, &number, digits.data())))
        return {};
    ReadNumber read{Text(static_cast<std::size_t>(number.cDig), L'0'), number.nPwr10,
                    (number.dwOutFlags & NUMPRS_NEG) != 0};
    std::transform(read.digits.begin(), read.digits.end(), digits.begin(), read.digits.begin(),
                   [](wchar_t zero, BYTE digit) { return static_cast<wchar_t>(zero + digit); });
    return read;
}

// The remainder of an account. If a code is not a number, the user sees a message and the result is 0. A
// remainder of 0 has the same effect in both members below, as old hosts expect.
std::int32_t remainder(TextView bank, TextView branch, TextView account) {
    const auto number = numberIn(bank);
    if (!number) {
        messageBox(L"Code banque non numérique");
        return 0;
    }
    if (!isNumeric(branch)) {
        messageBox(L"Code guichet non numérique");
        return 0;
    }
    const auto digits = accountDigits(account);
    const auto read = readAccount(digits);
    return bankRemainder(*number, branch, read ? wholeAccount(*read) : digits);
}

}  // namespace

Variant VorlaNumérique::NumFrmtSys(VariantView Montant, bool ZéroSignificatif) {
    const auto separator = decimalSeparator();
    const ValueText text(Montant);
    const auto typed = trimmed(text.view());
    if (holds(text.view(), separator) || typed.empty()) return Variant(Montant);

    Variant amount(Bstr(withSystemSign(typed, separator)));
    // A number or date keeps its type; anything else becomes text.
    Variant result = isAmountType(Montant.type()) ? converted(amount.view(), Montant.type()) : amount;
    // Converted even when zeros are kept, so that a text that is not an amount always raises error 13.
    const bool isZero = convertedTo<Currency>(amount.view()).scaled == 0;
    if (isZero && !ZéroSignificatif) return TextView();
    return result;
}

Variant VorlaNumérique::NumFrmtEnr(VariantView Montant) {
    const auto separator = decimalSeparator();
    const ValueText text(Montant);
    if (!holds(text.view(), separator)) return Variant(Montant);
    return Bstr(withPoint(text.view(), separator));
}

bool VorlaNumérique::RIBControle(TextView Code_banque, TextView Code_guichet, TextView Compte,
                                 TextView Clé_Rib) {
    return bankKeyFits(remainder(Code_banque, Code_guichet, Compte), Clé_Rib);
}

std::int16_t VorlaNumérique::RIBClé(TextView Code_banque, TextView Code_guichet, TextView Compte) {
    return bankKey(remainder(Code_banque, Code_guichet, Compte));
}

}  // namespace vorla
