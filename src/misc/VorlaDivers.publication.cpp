#include "misc/VorlaDivers.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaDivers)

}  // namespace vorla
