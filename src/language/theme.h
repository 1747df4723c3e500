// Which forms and controls get the application's colours.
#pragma once

#include <cstdint>
#include <optional>

#include "frame/values/text.h"

namespace vorla::language {

/// The system's colour of buttons, as hosts write it.
inline constexpr std::int32_t buttonFace = INT32_MIN + 15;  // &H8000000F

struct Theme {
    bool applies = false;
    std::int32_t back = 0;
    std::int32_t tabBack = 0;
    std::int32_t marked = 0;  // forms and controls of this colour get the theme
};

/// The new colour of a form; empty if it keeps its own. A form with "**C**" in its tag gets the button colour
/// instead of the theme's, although a control with this tag is left alone. Old hosts rely on this.
std::optional<std::int32_t> formColour(const Theme& theme, std::int32_t present, TextView tag);

/// What decides the colour of a control: nothing, so it keeps its own; its being a tab, which gets the
/// theme's colour for tabs whatever its own is; or the rule of themedColour().
enum class Colouring { none, tab, themed };

/// The decision by a control's tag. `hasWindowColour` is true for kinds in which users type or choose: they
/// keep their colour whatever their tag.
Colouring colouringOf(TextView tag, bool hasWindowColour);

/// The new colour of a themed control; empty if it keeps its own.
std::optional<std::int32_t> themedColour(const Theme& theme, std::int32_t present);

/// Whether the tag exempts a check box from being resized to its text.
bool keepsWidth(TextView tag);

}  // namespace vorla::language
