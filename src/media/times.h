// Times of media: milliseconds, seconds, and texts of them.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla::media {

/// Whole seconds: 2500 gives 2, 3500 gives 4.
std::int32_t wholeSeconds(std::int32_t milliseconds);

/// A number of seconds as minutes and seconds, from one hour on with the hours in front: 125 gives "02:05",
/// 3725 "01:02:05".
///
/// Old hosts rely on negative times without hours being signed part by part: -125 gives "-02:-05". With
/// minutesOnly false the hours are always there, and one sign stands in front: "-00:02:05".
Text clockText(std::int32_t seconds, bool minutesOnly, TextView separator);

/// A time as text, read as an integer. Error 13 for all but digits, so for every text with a separator.
std::int32_t integerIn(TextView time);

}  // namespace vorla::media
