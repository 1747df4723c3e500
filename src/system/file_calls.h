// Checks calls on files that return whether they worked.
#pragma once

#include "frame/values/runtime_error.h"

namespace vorla {

/// Throws error 53 unless `done`. The members on files end on error, so it never reaches a host.
inline void checkFile(bool done) {
    if (!done) throw RuntimeError(ErrorNumber::fileNotFound);
}

}  // namespace vorla
