// What the answers of the media devices mean.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/values/text.h"

namespace vorla::media {

/// The number that an answer begins with, as a 32-bit integer; 0 when there is none. Error 6 for a larger
/// one.
std::int32_t beginningInt32(TextView reply);
/// The same as a 16-bit integer.
std::int16_t beginningInt16(TextView reply);

/// The state that an answer names. Any other text, the empty one included, counts as playing: old hosts rely
/// on it.
emciStatus statusIn(TextView reply);

/// Whether an answer names a playing device, whatever comes after the word's first four letters.
bool saysPlaying(TextView reply);

}  // namespace vorla::media
