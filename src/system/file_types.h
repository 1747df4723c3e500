// The kind of content that a file's extension stands for.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/text.h"

namespace vorla {

/// The kind of a lower-case extension without its point; `eftOther` for an unknown or empty one. Never
/// `eftCD`.
eFiletype typeOfExtension(TextView extension);

}  // namespace vorla
