// The counters of the leak tests really count.
#include "support/resource_count.h"
#include "frame/values/winapi.h"

#include <gtest/gtest.h>

namespace vorla::test {
namespace {

TEST(ResourceCount, countsHandles) {
    const auto before = Resources::held().handles;
    const auto event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key);
    EXPECT_EQ(before + 2, Resources::held().handles);
    CloseHandle(event);
    RegCloseKey(key);
    EXPECT_EQ(before, Resources::held().handles);
}

TEST(ResourceCount, countsObjectsOfGdi) {
    const auto before = Resources::held().drawing;
    const auto brush = CreateSolidBrush(RGB(1, 2, 3));
    const auto context = CreateCompatibleDC(nullptr);
    EXPECT_EQ(before + 2, Resources::held().drawing);
    DeleteObject(brush);
    DeleteDC(context);
    EXPECT_EQ(before, Resources::held().drawing);
}

HWND window(DWORD style, HWND parent = nullptr) {
    return CreateWindowW(L"STATIC", L"", style, 0, 0, 9, 9, parent, nullptr, nullptr, nullptr);
}

TEST(ResourceCount, countsWindows) {
    // A thread's first window also makes a window of the input method, which goes with the last one.
    const auto first = window(WS_OVERLAPPED);
    const auto before = Resources::held().windows;
    const auto parent = window(WS_OVERLAPPED);
    window(WS_CHILD, parent);
    EXPECT_EQ(before + 2, Resources::held().windows);
    DestroyWindow(parent);
    EXPECT_EQ(before, Resources::held().windows);
    DestroyWindow(first);
}

}  // namespace
}  // namespace vorla::test
