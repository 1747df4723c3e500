#include "text/VorlaNumerique.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaNumérique, METHOD(NumFrmtSys, L"Montant", optional(L"ZéroSignificatif", true)),
        METHOD(NumFrmtEnr, L"Montant"),
        RESERVED_SLOT,  // the routine behind the two members that follow
        METHOD(RIBControle, L"Code_banque", L"Code_guichet", L"N°_Compte", L"Clé_Rib"),
        METHOD(RIBClé, L"Code_banque", L"Code_guichet", L"N°_Compte"))

}  // namespace vorla
