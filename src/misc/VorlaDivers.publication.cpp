#include "misc/VorlaDivers.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaDivers)

}  // namespace vorla
