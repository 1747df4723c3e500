#include "text/VorlaNumerique.h"

#include "frame/host/message_box.h"
#include "frame/values/conversions.h"
#include "text/amounts.h"
#include "text/bank_key.h"

namespace vorla {
namespace {

// As formats write it, not as the locale names it: of a longer separator only the first character counts.
wchar_t decimalSeparator() {
    const auto formatted = formattedValue(Variant(std::int16_t{123}).view(), L"###.00");
    return formatted.view().size() < 4 ? L' ' : formatted.view()[3];
}

bool holds(TextView text, wchar_t character) { return text.find(character) != TextView::npos; }

// The remainder of an account. A code that is no number is told to the user and answered with False: a 0,
// since the members below treat both alike, as old hosts know it.
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
    // An amount comes back in the type it came in; of any other type the text does.
    Variant result = isAmountType(Montant.type()) ? converted(amount.view(), Montant.type()) : amount;
    // Whoever keeps zeros learns of what is no amount as well.
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
