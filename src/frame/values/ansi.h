// Text for Windows' "A" functions and from them, in the ANSI code page. A character that the code page lacks
// becomes the nearest one in it, or a question mark.
#pragma once

#include <string>
#include <string_view>

#include "frame/values/bstr.h"

namespace vorla {

std::string toAnsi(TextView text);
Text fromAnsi(std::string_view bytes);

/// The text that Windows has left in a buffer: the bytes up to the first NUL, or all of them.
Text fromAnsiBuffer(std::string_view buffer);

/// The text of all the bytes, allocated once, for results of megabytes.
Bstr bstrFromAnsi(std::string_view bytes);

}  // namespace vorla
