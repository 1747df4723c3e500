#include "graphics/PaintEffects.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(PaintEffects)

}  // namespace vorla
