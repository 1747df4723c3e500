#include "media/VorlaMultiMedia.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaMultiMedia)

}  // namespace vorla
