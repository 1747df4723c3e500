// What the shell's codes of failure say to the user.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// Whether the answer of the shell's execute and find-executable calls is a code of failure.
constexpr bool isShellError(std::int32_t answer) { return answer <= 32; }

/// The text of a code of failure, in French whatever the user's language.
TextView shellErrorText(std::int32_t code);

}  // namespace vorla
