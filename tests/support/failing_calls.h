// Fails every call of an imported function in turn. Each run must give the right answer, or one that the
// member's failure policy allows, and must leak nothing.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <set>
#include <string>

#include "frame/values/winapi.h"
#include "support/import_patch.h"
#include "support/memory_count.h"

namespace vorla::test {

/// One way in which the system fails a module.
struct Fault {
    std::string name;
    /// Runs the work with the `number`-th call of the function failing. Returns whether there was such a
    /// call.
    std::function<bool(HMODULE module, int number, const std::function<void()>& work)> run;
};

/// A fault: calls of this function return `failure`.
template <class Function, class Result>
Fault fault(const char* dll, const char* function, Result failure, DWORD lastError = ERROR_GEN_FAILURE) {
    return {function, [=](HMODULE module, int number, const std::function<void()>& work) {
                Intercept<Function, Fault> intercepted(module, dll, function);
                intercepted.failCall(number, failure, lastError);
                work();
                return intercepted.calls() >= number;
            }};
}

namespace no_memory {
inline int calls = 0, failing = 0;
inline void* __cdecl allocate(std::size_t size) { return ++calls == failing ? nullptr : std::malloc(size); }
}  // namespace no_memory

/// The module's own allocations. Calls of the runtime cannot be intercepted like those of system functions.
inline Fault noMemory() {
    return {"malloc", [](HMODULE module, int number, const std::function<void()>& work) {
                const ImportPatch patch(module, "msvcrt.dll", "malloc",
                                        reinterpret_cast<void*>(&no_memory::allocate));
                no_memory::calls = 0;
                no_memory::failing = number;
                work();
                return no_memory::calls >= number;
            }};
}

/// Fails each call that `use` makes, in turn. A run in which one failed must be right or answer one of
/// `whenFailed`. The last run, in which none failed, must be right. Returns the number of calls.
inline int failEachCall(HMODULE module, const Fault& fault, const std::string& what,
                        const std::function<std::string()>& use, const std::string& right,
                        const std::set<std::string>& whenFailed) {
    constexpr int enough = 1000;
    // Made before the first use, because a count knows only blocks that were allocated after the first count
    // began. It must know the blocks that the first use leaves and later uses replace.
    const MemoryCount fromHereOn;
    EXPECT_EQ(right, use()) << what;
    for (int number = 1; number < enough; ++number) {
        const auto where = what + ", " + fault.name + " " + std::to_string(number);
        std::string answer;
        // A first run, not counted, lets the system and the component make what they keep on purpose.
        fault.run(module, number, use);
        SetErrorInfo(0, nullptr);
        const auto before = Resources::held();
        const MemoryCount memory;
        const bool failed = fault.run(module, number, [&] { answer = use(); });
        SetErrorInfo(0, nullptr);
        EXPECT_EQ(0, memory.live()) << where;
        EXPECT_EQ(before, Resources::held()) << where;
        if (!failed) {
            EXPECT_EQ(right, answer) << where;
            return number - 1;
        }
        EXPECT_TRUE(answer == right || whenFailed.contains(answer)) << where << ": " << answer;
    }
    ADD_FAILURE() << what << " never ends: " << fault.name;
    return enough;
}

}  // namespace vorla::test
