// Times of media: milliseconds, seconds, and texts of them.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla::media {

/// Whole seconds: 2500 gives 2, 3500 gives 4.
std::int32_t wholeSeconds(std::int32_t milliseconds);

/// A time as text, read as an integer. Error 13 for all but digits, so for every text with a separator.
std::int32_t integerIn(TextView time);

}  // namespace vorla::media
