#include "language/VorlaLangue.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaLangue)

}  // namespace vorla
