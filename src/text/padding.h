// Fixed-width columns filled with blanks. Inline, because hosts fill columns in long loops and a call costs
// as much as the work.
#pragma once

#include <algorithm>
#include <cstdint>

#include "frame/values/joined.h"
#include "frame/values/runtime_error.h"

namespace vorla {

/// The text without surrounding spaces, left-aligned in a column of `width` characters. What does not fit is
/// cut on the right. Error 5 for a negative width.
constexpr Joined leftAligned(TextView text, std::int16_t width) {
    const auto columns = checkedLength(width);
    const auto kept = trimmed(text).substr(0, columns);
    return {kept, Piece(L' ', columns - kept.size())};
}

/// The same, right-aligned. What does not fit is cut on the left.
constexpr Joined rightAligned(TextView text, std::int16_t width) {
    const auto columns = checkedLength(width);
    auto kept = trimmed(text);
    kept.remove_prefix(kept.size() - std::min(kept.size(), columns));
    return {Piece(L' ', columns - kept.size()), kept};
}

}  // namespace vorla
