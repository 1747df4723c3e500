// What is done with a looked-up text before the host gets it.
#pragma once

#include "frame/values/text.h"

namespace vorla::language {

/// The text without any "&". On buttons, an "&" marks the access key.
Text withoutAccessKeys(TextView text);

/// The text with every "%%" + `number` replaced by the value. The value itself is not searched.
Text withValue(TextView text, int number, TextView value);

}  // namespace vorla::language
