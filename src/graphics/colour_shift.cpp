#include "graphics/colour_shift.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/values/rounding.h"

namespace vorla {
namespace {

// A result as hosts keep it. The comparison is false for what is not a number.
float single(double value) {
    if (!(std::fabs(value) <= double{std::numeric_limits<float>::max()}))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<float>(value);
}

float blended(float component, double weight, double summand) {
    constexpr std::int32_t whole = 255;
    const auto product = roundedToInt32(double{single((whole - weight) * double{component})});
    return single(summand + product / whole);
}

std::int32_t limited(float component) {
    return roundedToInt32(double{std::max(std::min(component, 255.0F), 0.0F)});
}

}  // namespace

std::int32_t shiftedColour(std::int32_t colour, const ColourShift& shift, eXpColorShift operation) {
    auto red = static_cast<float>(redOf(colour)), green = static_cast<float>(greenOf(colour)),
         blue = static_cast<float>(blueOf(colour));
    switch (operation) {
        case eXpColorShift::Add:
            red = single(double{red} + shift.red);
            green = single(double{green} + shift.green);
            blue = single(double{blue} + shift.blue);
            break;
        case eXpColorShift::Multiply:
            red = blended(red, shift.red, shift.blue);
            green = blended(green, shift.green, shift.green);
            blue = blended(blue, shift.blue, shift.red);
            break;
        case eXpColorShift::MultiplyOnly:
            red = single(double{red} * shift.red);
            green = single(double{green} * shift.green);
            blue = single(double{blue} * shift.blue);
            break;
    }
    return colourOf(limited(red), limited(green), limited(blue));
}

}  // namespace vorla
