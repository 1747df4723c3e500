// The error object of the calling thread, where hosts find what a failure has to say.
#pragma once

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla {

/// What an error object tells. A number that the caller's code does not carry stands in the help context.
struct ErrorDescription {
    TextView source;
    TextView description;
    TextView helpFile = {};
    DWORD helpContext = 0;
};

/// Leaves a description there, in place of an older one. Whether the system took it.
bool storeError(REFIID interfaceId, const ErrorDescription& error);

}  // namespace vorla
