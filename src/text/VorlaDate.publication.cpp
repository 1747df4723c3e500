#include "text/VorlaDate.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaDate,
        METHOD(0, DateAMJtoJMA, L"Dat", optional(L"Separateur", true)),
        METHOD(1, DateJMAtoAMJ, L"Dat", optional(L"Separateur", false)),
        METHOD(2, Invd, L"Dat", optional(L"JMA", true)),
        METHOD(3, DateEnTexte, L"Dt", optional(L"UseSystemDate", true)))
// clang-format on

}  // namespace vorla
