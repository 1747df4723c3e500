// The component as a loaded module, and what keeps it loaded: objects, class factories and server locks,
// counted together.
#pragma once

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla::module {

void addReference() noexcept;
void release() noexcept;

/// Whether none of these is left.
bool canUnload() noexcept;

/// The absolute path of the file that this code was loaded from; empty on failure.
Text path();

}  // namespace vorla::module
