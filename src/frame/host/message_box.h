// The messages that some members show to the user instead of failing.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// Shows a modal box with the text, the OK button and the host's default title. Returns when the user has
/// answered it.
void messageBox(TextView text);

/// The same with an exclamation mark and this title.
void warningBox(TextView text, TextView title);

/// Shows a modal box with the buttons and the icon of `style` (Windows' numbers), under the host's title; F1
/// opens the host's help file. The window with the handle `owner`, if there is one, owns the box. Returns the
/// number of the button that the user presses. Error 440 when the box cannot be shown.
std::int32_t messageBox(TextView text, std::int32_t style, std::int32_t owner);

}  // namespace vorla
