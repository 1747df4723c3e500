// The error object of the calling thread, where hosts find what a failure has to say.
#pragma once

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Leaves a description there, in place of an older one. A number that the caller's code does not carry
/// stands in the help context. Whether the system took it.
bool storeError(REFIID interfaceId, TextView source, TextView description, DWORD number = 0);

}  // namespace vorla
