// What a form or a window looks like: its shape, its transparency, its background, its title bar.
#pragma once

#include <cstdint>

#include "frame/host/host_reference.h"
#include "frame/values/variant.h"
#include "graphics/gradient_bands.h"

namespace vorla {

/// An outline along the rounded edge of a form.
struct RoundBorder {
    bool drawn = false;
    std::int32_t colour = 0;
};

/// Gives a form or a control rounded corners; `ellipse` is the width and height, in pixels, of the ellipse
/// that rounds them. For a control `form` becomes its parent, whose scale and device context are used.
/// Continue on error; a window whose size cannot be measured keeps its shape.
void roundCorners(HostObject& form, std::int16_t ellipse, const RoundBorder& border);

/// Makes a window transparent: by an opacity from 0 (invisible) to 255, by a colour that is not drawn, or by
/// both; either may be missing. Neither, or full opacity alone, ends the transparency. Returns whether the
/// window's attributes were written, whatever the system did with them. End on error: false.
bool setTransparency(std::int32_t window, VariantView opacity, VariantView colourKey);

/// Paints a form's background with a vertical gradient. Continue on error.
void paintGradient(const HostObject& form, const GradientStart& start, bool toWhite);

/// Paints a form's background with what the screen shows where the form is. The screen's device context is
/// not released. Continue on error.
void paintDesktop(const HostObject& form);

/// Whether a form's window has a title bar. Unguarded.
bool hasTitleBar(const HostObject& form);

}  // namespace vorla
