// Where the mouse pointer goes.
#pragma once

#include "frame/values/rounding.h"

namespace vorla {

/// The middle between two coordinates, half a pixel to the even one.
inline std::int32_t middle(std::int32_t from, std::int32_t to) {
    return roundedToInt32((static_cast<double>(from) + to) / 2);
}

}  // namespace vorla
