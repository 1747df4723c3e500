#include "graphics/layering.h"

namespace vorla {

Layering layeringFor(const LayeringWish& wish, bool isLayered) {
    constexpr std::uint8_t opaque = 255;
    constexpr std::uint32_t byColourKey = 1, byOpacity = 2;
    const auto opacity = wish.opacity.value_or(opaque);
    if (!wish.colourKey && opacity == opaque)
        return {isLayered ? Layering::Action::remove : Layering::Action::none, 0, opacity, 0};
    return {Layering::Action::apply, wish.colourKey.value_or(0), opacity,
            (wish.opacity ? byOpacity : 0) | (wish.colourKey ? byColourKey : 0)};
}

}  // namespace vorla
