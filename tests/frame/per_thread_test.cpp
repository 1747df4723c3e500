// State of threads: each thread has its own, which is freed with the thread or with the module. A program has
// no entry point that reports ending threads, as the component has, so the threads report their end
// themselves.
#include "frame/values/per_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <deque>
#include <optional>

#include "support/import_patch.h"
#include "support/thread.h"

namespace vorla::test {
namespace {

std::atomic<int> living{0};

struct Counted {
    Counted() { ++living; }
    ~Counted() { --living; }

    int value = 0;
};

TEST(PerThread, eachThreadHasItsOwn) {
    {
        PerThread<Counted> states;
        EXPECT_EQ(0, living);
        states.mine().value = 1;
        EXPECT_EQ(1, living);
        int seen = -1;
        Thread([&] {
            seen = states.mine().value;
            states.mine().value = 2;
        });
        EXPECT_EQ(0, seen);
        EXPECT_EQ(1, states.mine().value);
        // The other thread did not report its end, so its state is freed with the object.
        EXPECT_EQ(2, living);
    }
    EXPECT_EQ(0, living);
}

TEST(PerThread, anEndingThreadTakesItsStatesAlong) {
    PerThread<Counted> first, second;
    first.mine().value = 5;
    Thread([&] {
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
        Thread([&] {
            states.mine().value = i;
            PerThreadStates::threadEnds();
        });
    }
    EXPECT_EQ(0, living);
}

TEST(PerThread, manyThreadsAtOnce) {
    PerThread<Counted> states;
    std::atomic<int> wrong{0};
    {
        std::deque<Thread> threads;
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&] {
                for (int round = 0; round < 1000; ++round) {
                    if (states.mine().value != 0) ++wrong;
                    states.mine().value = 1;
                    PerThreadStates::threadEnds();
                }
            });
        }
    }
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
