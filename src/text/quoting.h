// Delimiters around a text.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/joined.h"

namespace vorla {

/// `text` between two delimiters of the given kind; `custom` is the delimiter of `epsCustom`. An unknown kind
/// leaves the text unchanged. The result views its arguments.
Joined quoted(TextView text, eParseSeparator kind, TextView custom);

}  // namespace vorla
