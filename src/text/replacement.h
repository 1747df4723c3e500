// Bounded search and replace.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// `text` with at most `limit` occurrences of `sought` replaced, from position `start` on. A limit below
/// 1 means the text's length, a start below 1 means 1; nothing is replaced for an empty `sought`.
///
/// After each replacement the character that follows it is skipped, so "a" by "b" in "aaaa" gives
/// "baba"; hosts rely on it. A replacement by nothing skips nothing: what closes up over the gap is
/// searched again, so "ab" by "" in "aabb" leaves "".
///
/// Error 6 when the text's length is needed as the limit, an occurrence begins, or the search would
/// resume past 32,767.
Text replaced(TextView text, TextView sought, TextView replacement, std::int16_t start, std::int16_t limit);

}  // namespace vorla
