#include "support/forms/scale.h"

#include "support/forms/errors.h"

namespace vorla::forms {

double twipsPerPixel(Axis axis) {
    const HDC screen = GetDC(nullptr);
    const int dots = GetDeviceCaps(screen, axis == Axis::x ? LOGPIXELSX : LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return 1440.0 / dots;
}

double twipsPerUnit(std::int16_t mode, Axis axis) {
    constexpr double inch = 1440;
    switch (mode) {
        case scale_mode::twips: return 1;
        case scale_mode::points: return inch / 72;
        case scale_mode::pixels: return twipsPerPixel(axis);
        case scale_mode::characters: return axis == Axis::x ? 120 : 240;
        case scale_mode::inches: return inch;
        case scale_mode::millimetres: return inch / 25.4;
        case scale_mode::centimetres: return inch / 2.54;
        case scale_mode::himetric: return inch / 2540;
        default: throw RuntimeError(ErrorNumber::invalidProcedureCall);
    }
}

void Scale::setMode(std::int16_t mode, Extent inside) {
    if (mode < scale_mode::user || mode > scale_mode::centimetres) throw RuntimeError(invalidPropertyValue);
    if (mode == scale_mode::user) {
        becomeUser(inside);
    } else {
        mode_ = mode;
        origin_ = {};
    }
}

void Scale::setOrigin(Axis axis, double value, Extent inside) {
    becomeUser(inside);
    origin_.on(axis) = value;
}

void Scale::setSize(Axis axis, double units, Extent inside) {
    if (units == 0) throw RuntimeError(invalidPropertyValue);
    becomeUser(inside);
    size_.on(axis) = units;
}

double Scale::unit(std::int16_t mode, Axis axis, Extent inside) const {
    if (mode != scale_mode::user) return twipsPerUnit(mode, axis);
    if (mode_ != scale_mode::user) return twipsPerUnit(mode_, axis);
    return inside.on(axis) / size_.on(axis);
}

// The other axis keeps its units.
void Scale::becomeUser(Extent inside) {
    if (mode_ == scale_mode::user) return;
    size_ = {size(Axis::x, inside), size(Axis::y, inside)};
    mode_ = scale_mode::user;
}

}  // namespace vorla::forms
