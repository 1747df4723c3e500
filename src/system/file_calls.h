// Calls on files that answer whether they worked.
#pragma once

#include "frame/values/runtime_error.h"

namespace vorla {

/// Error 53 for one that did not. Members on files end on it; it never reaches a host.
inline void checkFile(bool done) {
    if (!done) throw RuntimeError(ErrorNumber::fileNotFound);
}

}  // namespace vorla
