#include "frame/contract/eEnum.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(eEnum)

}  // namespace vorla
