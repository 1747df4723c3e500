// Every call of an imported function failing in turn: each run gives the right answer or one that the
// member's failure policy allows, never a third thing, and leaves nothing behind.
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
    /// Runs the work with the `number`-th call of the function failing; whether there was such a call.
    std::function<bool(HMODULE module, int number, const std::function<void()>& work)> run;
};

/// Calls of this function answer `failure`.
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

/// The module's own allocations. The runtime is not called as system functions are, so it has an
/// interception of its own.
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

/// Fails each call that `use` makes, in turn. A run in which one failed must answer one of `whenFailed` or
/// be right all the same; the last, in which none did, must be right. Returns how many calls there were.
inline int failEachCall(HMODULE module, const Fault& fault, const std::string& what,
                        const std::function<std::string()>& use, const std::string& right,
                        const std::set<std::string>& whenFailed) {
    constexpr int enough = 1000;
    // Counting keeps handles of its own, and knows only blocks that were made after the first count began:
    // what the first use replaces, every later one does too.
    const MemoryCount fromHereOn;
    EXPECT_EQ(right, use()) << what;
    for (int number = 1; number < enough; ++number) {
        const auto where = what + ", " + fault.name + " " + std::to_string(number);
        std::string answer;
        // What the system and we keep on purpose is there before anything is counted.
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
