// The component's code as a loaded module, and what keeps it loaded: objects, class factories and
// server locks, counted together.
#pragma once

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla::module {

void addReference() noexcept;
void release() noexcept;

/// The module's type library, loaded by `load` at first use and kept until the last reference to the module
/// goes. Any thread may ask, but only for something that holds a reference. Descriptions that the host
/// still has then live on without the module.
HRESULT typeLibrary(HRESULT (*load)(ITypeLib**), ITypeLib** library) noexcept;

/// Whether nothing of ours is in use any more.
bool canUnload() noexcept;

/// The absolute path of the file that this code was loaded from; empty when the system does not tell.
Text path();

}  // namespace vorla::module
