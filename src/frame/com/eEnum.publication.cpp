#include "frame/com/eEnum.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(eEnum)

}  // namespace vorla
