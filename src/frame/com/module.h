// The component's code as a loaded module, and what keeps it loaded: objects, class factories and
// server locks, counted together.
#pragma once

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla::module {

void addReference() noexcept;
void release() noexcept;

/// Whether nothing of ours is in use any more.
bool canUnload() noexcept;

/// The absolute path of the file that this code was loaded from; empty when the system does not tell.
Text path();

}  // namespace vorla::module
