// GoogleTest builds its notifications on std::mutex, which the cross compilers' thread model lacks. This one
// uses a Windows event. It is included before GoogleTest's own headers (GTEST_HAS_NOTIFICATION_).
#pragma once

#include <windows.h>

namespace testing::internal {

class Notification {
public:
    Notification() : event_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;
    ~Notification() { CloseHandle(event_); }

    void Notify() { SetEvent(event_); }
    void WaitForNotification() { WaitForSingleObject(event_, INFINITE); }

private:
    HANDLE event_;
};

}  // namespace testing::internal
