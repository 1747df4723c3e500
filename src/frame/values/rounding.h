// Conversion of doubles to the integers that hosts see.
#pragma once

#include <cmath>
#include <cstdint>

#include "frame/values/runtime_error.h"

namespace vorla {

/// The nearest 32-bit integer, halves to even, whatever rounding mode the host has set. Error 6 for a value
/// outside the 32-bit range.
inline std::int32_t roundedToInt32(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    const double rounded = up ? below + 1 : below;
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int32_t>(rounded);
}

}  // namespace vorla
