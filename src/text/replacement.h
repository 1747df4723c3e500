// Bounded search and replace.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// `text` with at most `limit` occurrences of `sought` replaced, from position `start` on. A limit below 1
/// means the text's length, a start below 1 means 1. Nothing is replaced for an empty `sought`.
///
/// The character after each replacement is skipped, so replacing "a" by "b" in "aaaa" gives "baba". Old hosts
/// rely on this. Replacing by an empty text skips nothing and searches across the gap, so removing "ab" from
/// "aabb" leaves "".
///
/// Error 6 past position 32,767: when the text's length is needed as the limit, when an occurrence begins
/// there, or when the search would resume there.
Text replaced(TextView text, TextView sought, TextView replacement, std::int16_t start, std::int16_t limit);

}  // namespace vorla
