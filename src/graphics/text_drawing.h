// Rotated text on a device context.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// How text is written.
struct TextSlant {
    float degrees = 0;     // counter-clockwise
    float lineHeight = 0;  // the distance between lines, in the context's units; not the size of the font
    bool smooth = false;
};

/// Writes the lines of a text up to the first empty one, in the font that the context has, and moves x and y
/// past each. The context is left with the system's font. False when anything fails. End on error.
bool drawRotated(std::int32_t context, TextView text, std::int32_t& x, std::int32_t& y,
                 const TextSlant& slant);

}  // namespace vorla
