// Record keys of fixed width: the stored form of a typed key, and the counter in base 36.
#pragma once

#include <cstdint>

#include "frame/values/joined.h"

namespace vorla {

/// A whole number, written as an optional "-" and digits, filled with zeros to `width` digits. Longer numbers
/// are not cut. Error 5 for a negative width.
Joined zeroFilled(TextView number, std::int16_t width);

/// An upper-cased key without surrounding blanks, filled or cut to exactly `width` characters. A blank key
/// becomes `width` zeros. Error 5 for a negative width.
Joined storedKey(TextView upperCased, std::int16_t width);

/// The code that follows `code` in base 36 with the digits 0 to 9 and A to Z, as long as `code` itself. An
/// empty code stands for `width` zeros. The result views its arguments.
///
/// A carry out of the first character goes to the last, so "Z" gives "1" and "ZZ" gives "01". Any other
/// character absorbs the carry, so "aZ" gives "a0". Old hosts rely on both.
///
/// Errors: 5 for a negative width, 6 for a code longer than 32,767.
Joined nextCode(TextView code, std::int16_t width);

}  // namespace vorla
