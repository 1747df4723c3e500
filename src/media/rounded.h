// Rounding to the integer types that are narrower than 32 bits.
#pragma once

#include <cstdint>
#include <utility>

#include "frame/values/rounding.h"

namespace vorla::media {

/// The nearest integer, halves to even. Error 6 for one that the type cannot hold.
template <class Integer>
Integer roundedTo(double value) {
    const auto whole = roundedToInt32(value);
    if (!std::in_range<Integer>(whole)) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<Integer>(whole);
}

/// The value as a 32-bit integer. Error 6 for one that has more bits.
inline std::int32_t checkedInt32(std::int64_t value) {
    if (!std::in_range<std::int32_t>(value)) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int32_t>(value);
}

}  // namespace vorla::media
