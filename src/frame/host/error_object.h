// The error object of the calling thread, where hosts find the description of a failure.
#pragma once

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Stores a description in place of an older one. A number that is not the call's own result goes into the
/// help context. Returns whether the system accepted it.
bool storeError(REFIID interfaceId, TextView source, TextView description, DWORD number = 0);

}  // namespace vorla
