// Percentages, and the mixer's volumes from 0 to 65535.
#pragma once

#include "media/rounded.h"

namespace vorla::media {

inline constexpr double fullVolume = 65535;

/// A volume as a percentage, rounded to nearest, halves to even. Errors: 6 for a volume above 21,474,836 or
/// below -21,474,836, whose hundredfold has more than 32 bits, and for a percentage that is no byte.
inline std::uint8_t percentOfVolume(std::int32_t volume) {
    return roundedTo<std::uint8_t>(checkedInt32(std::int64_t{volume} * 100) / fullVolume);
}

/// The volume of a percentage, rounded in the same way. Error 6 for one with more than 32 bits.
inline std::int32_t volumeOfPercent(double percent) { return roundedToInt32(percent * fullVolume / 100); }

}  // namespace vorla::media
