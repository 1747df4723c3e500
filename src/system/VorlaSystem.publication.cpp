#include "system/VorlaSystem.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaSystem)

}  // namespace vorla
