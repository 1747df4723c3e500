// The colours that decide what painting an image leaves out.
#pragma once

#include <array>
#include <cstdint>

namespace vorla::graphics {

/// A colour as GDI takes it: 0x00bbggrr, or 0x02bbggrr with the mark of a palette.
using Colour = std::uint32_t;

inline constexpr Colour black = 0x000000, red = 0x0000FF, blue = 0xFF0000, white = 0xFFFFFF;

/// Whether both are the same colour, with or without the mark of a palette: translating a plain colour
/// through a palette marks it, translating a system colour does not.
bool isSameColour(Colour one, Colour other);

/// The colours from which keyColour() chooses, in this order.
inline constexpr std::array keyColours{black, red, blue};

/// The first of three candidates that is neither the shadow nor the highlight. A stamp in one of these two
/// colours can have it as its mask.
Colour keyColour(const std::array<Colour, keyColours.size()>& candidates, Colour shadow, Colour highlight);

}  // namespace vorla::graphics
