#include "graphics/PaintEffects.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(PaintEffects)

}  // namespace vorla
