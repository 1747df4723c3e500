// The failure policies. A member's policy is visible in the first line of its body. An unguarded member has
// none of these; one that tells the user calls `messageBox` (frame/host/message_box.h) and returns a neutral
// value.
#pragma once

#include <utility>

namespace vorla {

/// End on error: the work's result, or `neutral` when anything in it fails.
template <class Result, class Work>
Result endOnError(Result neutral, Work&& work) noexcept {
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        return neutral;
    }
}

/// The same for a member without a result.
template <class Work>
void endOnError(Work&& work) noexcept {
    try {
        std::forward<Work>(work)();
    } catch (...) {
    }
}

/// Continue on error: runs one statement and skips the rest of it when it fails. Returns whether it ran to
/// its end.
template <class Statement>
bool step(Statement&& statement) noexcept {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace vorla
