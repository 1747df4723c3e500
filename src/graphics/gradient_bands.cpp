#include "graphics/gradient_bands.h"

#include <algorithm>

#include "graphics/colour_shift.h"

namespace vorla {

GradientBand gradientBand(std::int32_t number, const GradientStart& start, bool toWhite) {
    constexpr auto height = gradientHeight / gradientBands;
    const auto at = [&](std::int32_t component) {
        return toWhite ? std::min(component + number, 255) : std::max(component - number, 0);
    };
    const auto top = number * height;
    return {top, top + height, colourOf(at(start.red), at(start.green), at(start.blue))};
}

}  // namespace vorla
