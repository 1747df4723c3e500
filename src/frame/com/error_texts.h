// The texts of run-time errors.
#pragma once

#include "frame/values/runtime_error.h"

namespace vorla {

/// The description of a run-time error: in French for a user whose language is French, otherwise in English.
const wchar_t* errorText(ErrorNumber number) noexcept;

}  // namespace vorla
