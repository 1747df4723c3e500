// For tests of members that also show a message.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "frame/values/winapi.h"

namespace vorla::test {

/// As long as this exists, this thread opens no dialog boxes. A call that would open one returns immediately,
/// with a value that is none of its buttons. To test a box itself, use DialogWatcher.
class NoDialogs {
public:
    NoDialogs() : hook_(SetWindowsHookExW(WH_CBT, &refuse, nullptr, GetCurrentThreadId())) {
        EXPECT_NE(nullptr, hook_);
    }
    NoDialogs(const NoDialogs&) = delete;
    NoDialogs& operator=(const NoDialogs&) = delete;
    ~NoDialogs() { UnhookWindowsHookEx(hook_); }

private:
    static LRESULT CALLBACK refuse(int code, WPARAM window, LPARAM parameter) {
        wchar_t name[40] = L"";
        if (code == HCBT_CREATEWND) GetClassNameW(reinterpret_cast<HWND>(window), name, 40);
        if (std::wstring_view(name) == L"#32770") return 1;
        return CallNextHookEx(nullptr, code, window, parameter);
    }

    HHOOK hook_;
};

}  // namespace vorla::test
