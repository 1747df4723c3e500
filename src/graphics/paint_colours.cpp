#include "graphics/paint_colours.h"

#include <algorithm>

namespace vorla::graphics {
namespace {

constexpr Colour withoutMark(Colour colour) { return colour >> 24 == 2 ? colour & 0xFFFFFF : colour; }

}  // namespace

bool isSameColour(Colour one, Colour other) { return withoutMark(one) == withoutMark(other); }

Colour keyColour(const std::array<Colour, keyColours.size()>& candidates, Colour shadow, Colour highlight) {
    // Two colours cannot be three.
    return *std::find_if(candidates.begin(), candidates.end() - 1, [&](Colour candidate) {
        return !isSameColour(candidate, shadow) && !isSameColour(candidate, highlight);
    });
}

}  // namespace vorla::graphics
