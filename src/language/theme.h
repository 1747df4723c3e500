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
    std::int32_t marked = 0;  // what has this colour is to be themed
};

/// The new colour of a form; none when it keeps its own. A form with "**C**" in its tag gets the button
/// colour instead of the theme's: hosts rely on it, though a control so tagged is left alone.
std::optional<std::int32_t> formColour(const Theme& theme, std::int32_t present, TextView tag);

/// What decides on the colour of a control: nothing, so that it keeps its own; its being a tab, which gets
/// the theme's colour for tabs whatever its own is; or the rule of themedColour().
enum class Colouring { none, tab, themed };

/// The same for a control's tag. `hasWindowColour` for the kinds that users write and choose in, which keep
/// it whatever their tag.
Colouring colouringOf(TextView tag, bool hasWindowColour);

/// The new colour of a themed control; none when it keeps its own.
std::optional<std::int32_t> themedColour(const Theme& theme, std::int32_t present);

/// Whether the tag exempts a check box from being resized to its text.
bool keepsWidth(TextView tag);

}  // namespace vorla::language
