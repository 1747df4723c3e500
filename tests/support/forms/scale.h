// How a form or a picture box measures what is inside it.
#pragma once

#include <cstdint>

#include "frame/values/winapi.h"

namespace vorla::forms {

enum class Axis { x, y };

/// Scale modes as hosts number them.
namespace scale_mode {
inline constexpr std::int16_t user = 0, twips = 1, points = 2, pixels = 3, characters = 4, inches = 5,
                              millimetres = 6, centimetres = 7, himetric = 8;
}

/// A length on each axis.
struct Extent {
    double x = 0, y = 0;
    double& on(Axis axis) { return axis == Axis::x ? x : y; }
    double on(Axis axis) const { return axis == Axis::x ? x : y; }
};

/// Twips in one pixel of the screen: 15 at 96 dots per inch.
double twipsPerPixel(Axis axis);

/// Twips in one unit of a mode. A character is 120 twips wide and 240 high. Error 5 for the user's own mode,
/// whose unit depends on the container, and for an unknown mode.
double twipsPerUnit(std::int16_t mode, Axis axis);

/// The scale of one container: a mode, or the user's own units, a given number of which fill the inside.
/// `inside` is the size of the container's inside in twips.
class Scale {
public:
    std::int16_t mode() const { return mode_; }
    /// Error 380 for an unknown mode.
    void setMode(std::int16_t mode, Extent inside);

    /// The coordinate of the left or top edge: 0 unless the user's own scale says otherwise.
    double origin(Axis axis) const { return origin_.on(axis); }
    /// The size of the inside, in units.
    double size(Axis axis, Extent inside) const { return inside.on(axis) / unit(axis, inside); }
    /// Switches to the user's own scale. Error 380 for a size of 0.
    void setOrigin(Axis axis, double value, Extent inside);
    void setSize(Axis axis, double units, Extent inside);

    /// Twips in one unit.
    double unit(Axis axis, Extent inside) const { return unit(mode_, axis, inside); }
    /// Converts a length from one mode to another. Mode 0 stands for this scale's own units.
    double convert(double length, std::int16_t from, std::int16_t to, Axis axis, Extent inside) const {
        return length * unit(from, axis, inside) / unit(to, axis, inside);
    }

private:
    double unit(std::int16_t mode, Axis axis, Extent inside) const;
    void becomeUser(Extent inside);

    std::int16_t mode_ = scale_mode::twips;
    Extent origin_;
    Extent size_;  // in the user's own mode
};

}  // namespace vorla::forms
