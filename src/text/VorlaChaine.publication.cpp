#include "text/VorlaChaine.h"
#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaChaine,
        VIEWING_METHOD(0, CBR, L"Chaine", L"Longueur"),
        VIEWING_METHOD(1, CBL, L"Chaine", L"Longueur"),
        VIEWING_METHOD(2, ExtraitChaine, L"Chaine", L"Rang", optional(L"Separateur", L""),
               optional(L"DepuisLaFin", false)),
        VIEWING_METHOD(3, Transfrm, L"Chaine", L"Car1", L"Car2", optional(L"Debut"), optional(L"Nombre")),
        VIEWING_METHOD(4, Occurrence, L"Chaine", L"Cherche", optional(L"CaseSensitive", true),
               optional(L"Start", 1)),
        VIEWING_METHOD(5, Zclé, L"Clé", L"Longueur"),
        VIEWING_METHOD(6, NumLet, L"Chaine", optional(L"Longueur")),
        VIEWING_METHOD(7, SplitStr, L"Chaine"),
        VIEWING_METHOD(8, Parse, L"strArg", optional(L"ParseSeparatorType",
               eParseSeparator::epsDoubleQuote), optional(L"CustomSeparator")))
// clang-format on

}  // namespace vorla
