// Colours by their components, for GetRGB and ShiftColor. A colour is 0x00BBGGRR.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"

namespace vorla {

constexpr std::int32_t redOf(std::int32_t colour) { return colour & 255; }
constexpr std::int32_t greenOf(std::int32_t colour) { return (colour / 256) & 255; }
constexpr std::int32_t blueOf(std::int32_t colour) { return (colour / 65536) & 255; }

/// The colour of three components of 0 to 255.
constexpr std::int32_t colourOf(std::int32_t red, std::int32_t green, std::int32_t blue) {
    return red | (green << 8) | (blue << 16);
}

/// By how much each component is shifted, in the host's own numbers.
struct ColourShift {
    double red = 0, green = 0, blue = 0;
};

/// The colour with its components added to, blended with or multiplied by the shift, each limited to 0 to
/// 255. Components are singles; the final ones are rounded, halves to even. An unknown operation leaves the
/// colour as it is. Error 6 for a product above the 32-bit range and for a result that no single can hold.
///
/// Blending takes the blue shift's summand for red and the red one's for blue. Old hosts choose their values
/// accordingly, so the crossing stays.
std::int32_t shiftedColour(std::int32_t colour, const ColourShift& shift, eXpColorShift operation);

}  // namespace vorla
