#include "text/VorlaNumerique.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaNumérique)

}  // namespace vorla
