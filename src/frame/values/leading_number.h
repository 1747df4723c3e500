// The number that a text begins with, as hosts read it from typed text: always with a point, whatever
// the system's decimal separator is. The conversions by the user's locale are in conversions.h.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// The longest numeric prefix of `text`: a sign, digits with a point among them, an exponent marked by E or
/// D. 0 when there is none. Spaces, tabs and line feeds are ignored everywhere. A number too large for a
/// double is infinite.
double leadingNumber(TextView text);

}  // namespace vorla
