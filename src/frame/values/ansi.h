// Text on its way to and from Windows' "A" functions: the ANSI code page. What the code page lacks becomes
// the nearest character that it has, or a question mark.
#pragma once

#include <string>
#include <string_view>

#include "frame/values/bstr.h"

namespace vorla {

std::string toAnsi(TextView text);
Text fromAnsi(std::string_view bytes);

/// What Windows has left in a buffer: the bytes up to the first NUL, all of them when there is none.
Text fromAnsiBuffer(std::string_view buffer);

/// The same in the one allocation of a result, for bytes by the megabyte.
Bstr bstrFromAnsi(std::string_view bytes);

}  // namespace vorla
