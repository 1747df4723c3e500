// The rule for DureeTexte: a number of seconds as a clock shows it.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// 3,725 seconds are "01:02:05" with the separator ":". Hours, minutes and seconds have two digits or more,
/// and a "-" stands in front of a negative duration.
///
/// With `withoutHours`, less than one hour has no hours: 125 seconds are "02:05". A negative duration is
/// always less than one hour, so its hours are lost, and each of the two numbers keeps its own sign: -3,725
/// seconds are "-02:-05". Old hosts rely on this.
Text clockText(std::int32_t seconds, bool withoutHours, TextView separator);

}  // namespace vorla
