// Fixed-width columns filled with blanks.
#pragma once

#include <cstdint>

#include "frame/values/joined.h"

namespace vorla {

/// The text without surrounding spaces, left-aligned in a column of `width` characters. What does not fit is
/// cut on the right. Error 5 for a negative width.
Joined leftAligned(TextView text, std::int16_t width);

/// The same, right-aligned. What does not fit is cut on the left.
Joined rightAligned(TextView text, std::int16_t width);

}  // namespace vorla
