// The scale modes of hosts' containers by their English names.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// The scale mode of a lower-case name: "user" is 0, "twip" 1, and so on to "centimeter", 7. Twips for any
/// other name.
std::int16_t scaleModeNamed(TextView name);

}  // namespace vorla
