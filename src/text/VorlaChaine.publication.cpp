#include "text/VorlaChaine.h"
#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaChaine, METHOD(CBR, L"Chaine", L"Longueur"), METHOD(CBL, L"Chaine", L"Longueur"),
        METHOD(ExtraitChaine, L"Chaine", L"Rang", optional(L"Separateur", L""),
               optional(L"DepuisLaFin", false)),
        METHOD(Transfrm, L"Chaine", L"Car1", L"Car2", optional(L"Debut"), optional(L"Nombre")),
        METHOD(Occurrence, L"Chaine", L"Cherche", optional(L"CaseSensitive", true), optional(L"Start", 1)),
        METHOD(Zclé, L"Clé", L"Longueur"), METHOD(NumLet, L"Chaine", optional(L"Longueur")),
        METHOD(SplitStr, L"Chaine"),
        METHOD(Parse, L"strArg", optional(L"ParseSeparatorType", eParseSeparator::epsDoubleQuote),
               optional(L"CustomSeparator")))

}  // namespace vorla
