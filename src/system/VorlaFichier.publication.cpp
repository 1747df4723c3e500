#include "system/VorlaFichier.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaFichier)

}  // namespace vorla
