#include "text/VorlaNumerique.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaNumérique,
        METHOD(0, NumFrmtSys, L"Montant", optional(L"ZéroSignificatif", true)),
        METHOD(1, NumFrmtEnr, L"Montant"),
        RESERVED_SLOT(2),  // the routine that the two members below use
        METHOD(3, RIBControle, L"Code_banque", L"Code_guichet", L"N°_Compte", L"Clé_Rib"),
        METHOD(4, RIBClé, L"Code_banque", L"Code_guichet", L"N°_Compte"))
// clang-format on

}  // namespace vorla
