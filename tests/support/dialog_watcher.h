// Answers the dialogs that the tested code opens, and keeps what was in them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla::test {

/// What the user would see of a dialog.
struct SeenDialog {
    std::wstring title;
    std::vector<std::wstring> texts;
    std::vector<std::wstring> buttons;
};

/// From its making to its end, a thread of its own finds each dialog box of this process, reads it and
/// presses a button. Make it before the call that opens the box; look at `seen()` after that call.
class DialogWatcher {
public:
    /// Works in a dialog, on the watcher's thread, and returns the number of the button to press.
    using Answer = std::function<int(HWND dialog)>;

    explicit DialogWatcher(int buttonId = IDOK);
    /// For dialogs with an OK button.
    explicit DialogWatcher(Answer answer);
    DialogWatcher(const DialogWatcher&) = delete;
    DialogWatcher& operator=(const DialogWatcher&) = delete;
    ~DialogWatcher();

    /// In the order in which they opened. A dialog is complete here before its button is pressed.
    const std::vector<SeenDialog>& seen() const { return seen_; }

private:
    DialogWatcher(int buttonId, Answer answer);

    static DWORD WINAPI watch(void* self);
    void answer(HWND dialog);

    const int buttonId_;  // a dialog that has it is complete
    const Answer answer_;
    std::vector<SeenDialog> seen_;
    HANDLE stop_;
    HANDLE thread_;
};

}  // namespace vorla::test
