// Fixed-width columns filled with blanks.
#pragma once

#include <cstdint>

#include "frame/values/joined.h"

namespace vorla {

/// The text without surrounding spaces, at the left of a column of `width` characters; what does not
/// fit is cut on the right. Error 5 for a negative width.
Joined leftAligned(TextView text, std::int16_t width);

/// The same at the right of the column; what does not fit is cut on the left.
Joined rightAligned(TextView text, std::int16_t width);

}  // namespace vorla
