// The texts for the shell's failure codes.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// Whether a result of the shell's execute and find-executable calls is a failure code.
constexpr bool isShellError(std::int32_t answer) { return answer <= 32; }

/// The text of a failure code, in French whatever the user's language.
TextView shellErrorText(std::int32_t code);

}  // namespace vorla
