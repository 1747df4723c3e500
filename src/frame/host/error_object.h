// The error object of the calling thread, where hosts find the description of a failure.
#pragma once

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla {

/// What an error object says. A number that is not the call's own result goes into the help context.
struct ErrorDescription {
    TextView source;
    TextView description;
    TextView helpFile = {};
    DWORD helpContext = 0;
};

/// Stores a description in place of an older one. Returns whether the system accepted it.
bool storeError(REFIID interfaceId, const ErrorDescription& error);

}  // namespace vorla
