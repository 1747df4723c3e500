// The message that a few members show to the user instead of failing.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// A modal box with the text, the OK button and the host application's default title. Returns when the
/// user has answered it.
void messageBox(TextView text);

/// The same with an exclamation mark and a title of its own.
void warningBox(TextView text, TextView title);

/// A modal box with the buttons and the icon of `style` (Windows' own numbers), under the host's title, with
/// the host's help file behind F1. Owned by the window of that handle, if there is one. Returns the number of
/// the button that the user pressed. Error 440 when the box cannot be shown.
std::int32_t messageBox(TextView text, std::int32_t style, std::int32_t owner);

}  // namespace vorla
