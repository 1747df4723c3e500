// State of threads: each has its own, and it goes with the thread or with the module.
#include "frame/values/per_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <optional>

#include "support/import_patch.h"

namespace vorla::test {
namespace {

std::atomic<int> living{0};

struct Counted {
    Counted() { ++living; }
    ~Counted() { --living; }

    int value = 0;
};

// Runs the work on a thread of its own. A program has no entry point that hears of ending threads, as the
// component has, so the work says so itself.
void onThread(const std::function<void()>& work) {
    const auto body = [](void* parameter) -> DWORD {
        (*static_cast<const std::function<void()>*>(parameter))();
        return 0;
    };
    const HANDLE thread =
        CreateThread(nullptr, 0, body, const_cast<std::function<void()>*>(&work), 0, nullptr);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread, 10'000));
    CloseHandle(thread);
}

TEST(PerThread, eachThreadHasItsOwn) {
    {
        PerThread<Counted> states;
        EXPECT_EQ(0, living);
        states.mine().value = 1;
        EXPECT_EQ(1, living);
        int seen = -1;
        onThread([&] {
            seen = states.mine().value;
            states.mine().value = 2;
        });
        EXPECT_EQ(0, seen);
        EXPECT_EQ(1, states.mine().value);
        // The other thread ended without a word; its state goes with the object.
        EXPECT_EQ(2, living);
    }
    EXPECT_EQ(0, living);
}

TEST(PerThread, anEndingThreadTakesItsStatesAlong) {
    PerThread<Counted> first, second;
    first.mine().value = 5;
    onThread([&] {
        PerThreadStates::threadEnds();  // has none yet
        first.mine();
        second.mine();
        EXPECT_EQ(3, living);
        PerThreadStates::threadEnds();
        EXPECT_EQ(1, living);
        // It may still ask for a new one.
        EXPECT_EQ(0, first.mine().value);
        PerThreadStates::threadEnds();
    });
    EXPECT_EQ(1, living);
    EXPECT_EQ(5, first.mine().value);
}

TEST(PerThread, manyThreadsOneAfterTheOther) {
    PerThread<Counted> states;
    for (int i = 0; i < 500; ++i) {
        onThread([&] {
            states.mine().value = i;
            PerThreadStates::threadEnds();
        });
    }
    EXPECT_EQ(0, living);
}

TEST(PerThread, manyThreadsAtOnce) {
    PerThread<Counted> states;
    std::atomic<int> wrong{0};
    struct Work {
        PerThread<Counted>& states;
        std::atomic<int>& wrong;
    } work{states, wrong};
    const auto body = [](void* parameter) -> DWORD {
        auto& [all, failures] = *static_cast<Work*>(parameter);
        for (int i = 0; i < 1000; ++i) {
            if (all.mine().value != 0) ++failures;
            all.mine().value = 1;
            PerThreadStates::threadEnds();
        }
        return 0;
    };
    HANDLE threads[8];
    for (HANDLE& thread : threads) thread = CreateThread(nullptr, 0, body, &work, 0, nullptr);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForMultipleObjects(8, threads, TRUE, 60'000));
    for (const HANDLE thread : threads) CloseHandle(thread);
    EXPECT_EQ(0, wrong);
    EXPECT_EQ(0, living);
}

TEST(PerThread, windowsHasNoPlace) {
    const HMODULE program = GetModuleHandleW(nullptr);
    {
        // Another one of the process's places may be asked for meanwhile.
        PerThread<Counted> states;
        Intercept<decltype(TlsSetValue)> set(program, "kernel32.dll", "TlsSetValue");
        set.failCall(1, FALSE, ERROR_NOT_ENOUGH_MEMORY);
        EXPECT_THROW(states.mine(), std::bad_alloc);
        EXPECT_EQ(0, living);
        states.mine().value = 3;
        EXPECT_EQ(3, states.mine().value);
        PerThreadStates::threadEnds();
    }
    {
        std::optional<PerThread<Counted>> states;
        {
            Intercept<decltype(TlsAlloc)> allocate(program, "kernel32.dll", "TlsAlloc");
            allocate.failCall(1, TLS_OUT_OF_INDEXES);
            states.emplace();
        }
        EXPECT_THROW(states->mine(), std::bad_alloc);
        PerThreadStates::threadEnds();
        EXPECT_EQ(0, living);
    }
}

}  // namespace
}  // namespace vorla::test
