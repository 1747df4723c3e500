// The message that a few members show to the user instead of failing.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// A modal box with the text, the OK button and the host application's default title. Returns when the
/// user has answered it.
void messageBox(TextView text);

/// The same with an exclamation mark and a title of its own.
void warningBox(TextView text, TextView title);

}  // namespace vorla
