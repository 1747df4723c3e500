#include "support/dialog_watcher.h"

#include <gtest/gtest.h>

namespace vorla::test {
namespace {

constexpr DWORD pause = 10;  // milliseconds between two searches

std::wstring textOf(HWND window) {
    std::wstring text(1000, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 1000)));
    return text;
}

std::wstring classOf(HWND window) {
    wchar_t name[40];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 40))};
}

BOOL CALLBACK readControl(HWND control, LPARAM parameter) {
    auto& seen = *reinterpret_cast<SeenDialog*>(parameter);
    if (!IsWindowVisible(control)) return TRUE;
    const auto kind = classOf(control);
    // An icon is a static control without text.
    if (kind == L"Button") seen.buttons.push_back(textOf(control));
    if (kind == L"Static")
        if (auto text = textOf(control); !text.empty()) seen.texts.push_back(std::move(text));
    return TRUE;
}

struct Search {
    int buttonId;
    HWND found;
};

// A dialog is complete once its button exists.
BOOL CALLBACK isDialog(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || classOf(window) != L"#32770" || !IsWindowVisible(window) ||
        !GetDlgItem(window, search.buttonId))
        return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

DialogWatcher::DialogWatcher(int buttonId) : DialogWatcher(buttonId, [buttonId](HWND) { return buttonId; }) {}

DialogWatcher::DialogWatcher(Answer answer) : DialogWatcher(IDOK, std::move(answer)) {}

DialogWatcher::DialogWatcher(int buttonId, Answer answer)
    : buttonId_(buttonId),
      answer_(std::move(answer)),
      stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_(CreateThread(nullptr, 0, &watch, this, 0, nullptr)) {}

DialogWatcher::~DialogWatcher() {
    SetEvent(stop_);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread_, 30'000));
    CloseHandle(thread_);
    CloseHandle(stop_);
}

DWORD WINAPI DialogWatcher::watch(void* self) {
    auto& watcher = *static_cast<DialogWatcher*>(self);
    while (WaitForSingleObject(watcher.stop_, pause) == WAIT_TIMEOUT) {
        Search search{watcher.buttonId_, nullptr};
        EnumWindows(&isDialog, reinterpret_cast<LPARAM>(&search));
        if (search.found) watcher.answer(search.found);
    }
    return 0;
}

void DialogWatcher::answer(HWND dialog) {
    SeenDialog seen;
    seen.title = textOf(dialog);
    EnumChildWindows(dialog, &readControl, reinterpret_cast<LPARAM>(&seen));
    seen_.push_back(std::move(seen));
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(answer_(dialog)), 0);
    while (IsWindow(dialog) && IsWindowVisible(dialog))
        if (WaitForSingleObject(stop_, pause) != WAIT_TIMEOUT) return;
}

}  // namespace vorla::test
