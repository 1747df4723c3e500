// For tests that call members which show a message and are about something else.
#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "frame/values/winapi.h"

namespace vorla::test {

/// As long as this lives, no dialog box of this thread comes into being: who asks for one gets his answer at
/// once, and it is none of the buttons. What a box looks like is for DialogWatcher.
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
