// What the run-time numbers say to the user.
#pragma once

#include "frame/values/runtime_error.h"

namespace vorla {

/// The description of a run-time error: in French for a user whose language is French, in English for
/// any other.
const wchar_t* errorText(ErrorNumber number) noexcept;

}  // namespace vorla
