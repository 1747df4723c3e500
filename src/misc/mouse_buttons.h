// The rule for ElTranslate: the codes of mouse buttons in the host and in another control's numbering.
#pragma once

#include <cstdint>

namespace vorla {

/// One button under both numberings.
struct MouseButton {
    std::int32_t control;
    std::int16_t host;
};

/// The left, the middle and the right one.
inline constexpr MouseButton mouseButtons[] = {{0, 1}, {1, 4}, {2, 2}};

}  // namespace vorla
