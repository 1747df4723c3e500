// A thread of a test's own. The cross compilers' thread model has no std::thread.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "frame/values/winapi.h"

namespace vorla::test {

/// Runs the work as soon as this is made; the destructor waits for it. Expectations belong to the test's own
/// thread, so the work leaves its results in variables of the test.
class Thread {
public:
    explicit Thread(std::function<void()> work)
        : work_(std::move(work)), thread_(CreateThread(nullptr, 0, &run, this, 0, nullptr)) {
        EXPECT_NE(nullptr, thread_);
    }
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;
    ~Thread() {
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread_, 60'000));
        CloseHandle(thread_);
    }

private:
    static DWORD WINAPI run(void* self) {
        static_cast<Thread*>(self)->work_();
        return 0;
    }

    const std::function<void()> work_;
    const HANDLE thread_;
};

}  // namespace vorla::test
