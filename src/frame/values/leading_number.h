// The number that a text begins with, as hosts read it from typed text: always with a point, whatever
// the system's decimal separator is. The conversions by the user's locale are in conversions.h.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// The longest numeric prefix of `text`, 0 when there is none: a sign, digits with a point among them, an
/// exponent marked by E or D. Spaces, tabs and line feeds do not count, wherever they stand. A number too
/// large for a double is infinite.
double leadingNumber(TextView text);

}  // namespace vorla
