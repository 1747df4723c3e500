// The main program of the Windows test suites. It uses the language that the runner has set, and ends a hung
// test with its name.

#include <gtest/gtest.h>

#include <cstdio>

#include "frame/values/winapi.h"
#include "support/memory_count.h"

namespace {

constexpr DWORD longestTest = 300'000;  // milliseconds; the longest takes 45 seconds on a slow machine

class Watchdog final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& info) override {
        std::snprintf(running_, sizeof running_, "%s.%s", info.test_suite_name(), info.name());
        CreateTimerQueueTimer(&timer_, nullptr, &Watchdog::expired, this, longestTest, 0, WT_EXECUTEONLYONCE);
    }
    void OnTestEnd(const testing::TestInfo&) override {
        if (DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE)) timer_ = nullptr;
    }
    static void CALLBACK expired(void* self, BOOLEAN) {
        std::fprintf(stderr, "hung: %s\n", static_cast<Watchdog*>(self)->running_);
        TerminateProcess(GetCurrentProcess(), 99);
    }

    HANDLE timer_ = nullptr;
    char running_[200] = "";
};

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    vorla::test::MemoryCount::noBstrCache();
    if (FAILED(OleInitialize(nullptr))) return 98;
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
