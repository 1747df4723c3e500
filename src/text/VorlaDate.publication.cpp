#include "text/VorlaDate.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaDate, METHOD(DateAMJtoJMA, L"Dat", optional(L"Separateur", true)),
        METHOD(DateJMAtoAMJ, L"Dat", optional(L"Separateur", false)),
        METHOD(Invd, L"Dat", optional(L"JMA", true)),
        METHOD(DateEnTexte, L"Dt", optional(L"UseSystemDate", true)))

}  // namespace vorla
