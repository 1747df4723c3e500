// The bands of FormDegrade: the height of a form in 256 steps from a colour towards white or black.
#pragma once

#include <cstdint>

namespace vorla {

/// The number of bands, and the height of all of them together in the form's units.
inline constexpr std::int32_t gradientBands = 256, gradientHeight = 512;

/// The colour of the topmost band.
struct GradientStart {
    std::uint8_t red = 0, green = 0, blue = 0;
};

struct GradientBand {
    std::int32_t top = 0, bottom = 0, colour = 0;

    bool operator==(const GradientBand&) const = default;
};

/// Band `number`, counted from 0 at the top. Each is one step lighter or darker than the one above, until a
/// component has reached 255 or 0.
GradientBand gradientBand(std::int32_t number, const GradientStart& start, bool toWhite);

}  // namespace vorla
