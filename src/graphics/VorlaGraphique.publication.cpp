#include "graphics/VorlaGraphique.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaGraphique)

}  // namespace vorla
