// What becomes of a looked-up text before the host gets it.
#pragma once

#include "frame/values/text.h"

namespace vorla::language {

/// The text without any "&": what stands on a button marks its access key with one.
Text withoutAccessKeys(TextView text);

/// The text with every "%%" + `number` in it replaced by the value. What a value brings is not looked at
/// again.
Text withValue(TextView text, int number, TextView value);

}  // namespace vorla::language
