#include "text/VorlaChaine.h"

#include "frame/shared/fields.h"
#include "frame/values/conversions.h"
#include "text/keys.h"
#include "text/occurrences.h"
#include "text/padding.h"
#include "text/quoting.h"
#include "text/replacement.h"

namespace vorla {
namespace {

template <Joined align(TextView, std::int16_t)>
Bstr column(const VariantView& value, std::int16_t width) {
    if (isAmountType(value.type())) return Bstr(align(numberToInvariantText(value).view(), width));
    return Bstr(align(ValueText(value).view(), width));
}

}  // namespace

Bstr VorlaChaine::CBR(VariantView Chaine, std::int16_t Longueur) {
    return column<leftAligned>(Chaine, Longueur);
}

Bstr VorlaChaine::CBL(VariantView Chaine, std::int16_t Longueur) {
    return column<rightAligned>(Chaine, Longueur);
}

TextView VorlaChaine::ExtraitChaine(TextView Chaine, std::int16_t Rang, TextView Separateur,
                                    bool DepuisLaFin) {
    return ExtraitChamp(Chaine, Rang, Separateur, DepuisLaFin);
}

Text VorlaChaine::Transfrm(TextView Chaine, TextView Car1, TextView Car2, std::int16_t Debut,
                           std::int16_t Nombre) {
    return replaced(Chaine, Car1, Car2, Debut, Nombre);
}

float VorlaChaine::Occurrence(TextView Chaine, TextView Cherche, bool CaseSensitive, std::int16_t Start) {
    if (CaseSensitive) return occurrences(Chaine, Cherche, Start);
    return occurrences(lowerCased(Chaine), lowerCased(Cherche), Start);
}

Bstr VorlaChaine::Zclé(TextView Clé, std::int16_t Longueur) {
    if (!isNumeric(Clé)) {
        const auto kept = trimmed(Clé).substr(0, checkedLength(Longueur));
        return Bstr(storedKey(upperCased(kept), Longueur));
    }
    const auto number = Longueur == 0 ? generalNumber(Clé) : roundedNumber(Clé);
    return Bstr(zeroFilled(number, Longueur));
}

Joined VorlaChaine::NumLet(TextView Chaine, std::int16_t Longueur) { return nextCode(Chaine, Longueur); }

Bstr VorlaChaine::SplitStr(VariantView Chaine) { return Bstr(TronqueNul(ValueText(Chaine).view())); }

Bstr VorlaChaine::Parse(TextView strArg, const eParseSeparator& ParseSeparatorType,
                        const Text& CustomSeparator) {
    return Bstr(quoted(strArg, ParseSeparatorType, CustomSeparator));
}

}  // namespace vorla
