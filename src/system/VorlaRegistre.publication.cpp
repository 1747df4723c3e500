#include "system/VorlaRegistre.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaRegistre)

}  // namespace vorla
