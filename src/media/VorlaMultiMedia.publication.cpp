#include "media/VorlaMultiMedia.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaMultiMedia)

}  // namespace vorla
