// Answers the dialogs that the tested code opens, and keeps what was in them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace vorla::test {

struct SeenDialog {
    std::wstring title;
    std::vector<std::wstring> texts;
    std::vector<std::wstring> buttons;
};

/// From its making to its end, a thread of its own finds each dialog box of this process, reads it and
/// presses a button. Make it before the call that opens the box; look at `seen()` after that call.
class DialogWatcher {
public:
    explicit DialogWatcher(int buttonId = IDOK);
    DialogWatcher(const DialogWatcher&) = delete;
    DialogWatcher& operator=(const DialogWatcher&) = delete;
    ~DialogWatcher();

    /// In the order in which they opened. A dialog is complete here before its button is pressed.
    const std::vector<SeenDialog>& seen() const { return seen_; }

private:
    static DWORD WINAPI watch(void* self);
    void answer(HWND dialog);

    const int buttonId_;
    std::vector<SeenDialog> seen_;
    HANDLE stop_;
    HANDLE thread_;
};

}  // namespace vorla::test
