// The message to the user is a real box: read and answered by a watcher.
#include <windows.h>

#include <gtest/gtest.h>

#include "frame/host/message_box.h"
#include "support/automation.h"

namespace vorla::test {
namespace {

// What the watcher saw of the box. Expectations wait until the watcher is done.
struct SeenBox {
    std::wstring title;
    std::wstring text;
    int buttons = 0;
};

std::wstring textOf(HWND window) {
    std::wstring text(200, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 200)));
    return text;
}

BOOL CALLBACK readControl(HWND control, LPARAM parameter) {
    auto& seen = *reinterpret_cast<SeenBox*>(parameter);
    wchar_t name[40];
    GetClassNameW(control, name, 40);
    if (std::wstring_view(name) == L"Button") ++seen.buttons;
    if (std::wstring_view(name) == L"Static") seen.text += textOf(control);
    return TRUE;
}

DWORD WINAPI watch(void* parameter) {
    auto& seen = *static_cast<SeenBox*>(parameter);
    HWND box = nullptr;
    for (int i = 0; i < 1000 && !box; ++i) {
        Sleep(10);
        box = FindWindowW(L"#32770", nullptr);
    }
    if (!box) return 1;
    seen.title = textOf(box);
    EnumChildWindows(box, &readControl, reinterpret_cast<LPARAM>(&seen));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    return 0;
}

TEST(MessageBox, showsItsTextWithOneButtonUnderTheHostsTitle) {
    SeenBox seen;
    const HANDLE watcher = CreateThread(nullptr, 0, &watch, &seen, 0, nullptr);
    messageBox(L"Clé erronée : 42 €");
    ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(watcher, 30'000));
    CloseHandle(watcher);
    EXPECT_EQ(L"Clé erronée : 42 €", seen.text);
    EXPECT_EQ(1, seen.buttons);
    // A host without a title of its own goes by its program's name.
    EXPECT_EQ(L"frame_tests", seen.title);
}

}  // namespace
}  // namespace vorla::test
