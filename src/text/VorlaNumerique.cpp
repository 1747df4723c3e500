#include "text/VorlaNumerique.h"

#include "frame/host/message_box.h"
#include "frame/values/conversions.h"
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

// The remainder of an account. If a code is not a number, the user sees a message and the result is 0. A
// remainder of 0 has the same effect in both members below, as old hosts expect.
std::int32_t remainder(TextView bank, TextView branch, TextView account) {
    if (!isNumeric(bank)) {
        messageBox(L"Code banque non numérique");
        return 0;
    }
    if (!isNumeric(branch)) {
        messageBox(L"Code guichet non numérique");
        return 0;
    }
    const Variant digits(TextView(accountDigits(account)));
    return bankRemainder(bank, branch, formattedValue(digits.view(), L"00000000000").view());
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
    const bool isZero = converted(amount.view(), VT_CY).raw().cyVal.int64 == 0;
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
