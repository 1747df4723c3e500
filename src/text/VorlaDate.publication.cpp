#include "text/VorlaDate.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

PUBLISH(VorlaDate)

}  // namespace vorla
