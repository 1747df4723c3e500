// Counting a text in another.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// How often `sought` occurs in `text` at or after position `start` (1 is the first; below 1 means 1).
/// Overlapping occurrences all count. 0 when either text is empty. Error 6 when an occurrence begins past
/// position 32,767.
float occurrences(TextView text, TextView sought, std::int16_t start);

}  // namespace vorla
