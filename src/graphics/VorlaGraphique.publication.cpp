#include "graphics/VorlaGraphique.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaGraphique)

}  // namespace vorla
