// Answers the dialogs that the tested code opens, and keeps their contents.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla::test {

/// A dialog as the user sees it.
struct SeenDialog {
    std::wstring title;
    std::vector<std::wstring> texts;
    std::vector<std::wstring> buttons;
};

/// While this exists, a thread of its own finds each dialog box of this process, reads it and presses a
/// button. Make it before the call that opens the box, and read `seen()` after that call.
class DialogWatcher {
public:
    /// Uses a dialog, on the watcher's thread, and returns the number of the button to press.
    using Answer = std::function<int(HWND dialog)>;

    explicit DialogWatcher(int buttonId = IDOK);
    /// For dialogs with an OK button.
    explicit DialogWatcher(Answer answer);
    DialogWatcher(const DialogWatcher&) = delete;
    DialogWatcher& operator=(const DialogWatcher&) = delete;
    ~DialogWatcher();

    /// The dialogs in the order in which they opened. A dialog is added here before its button is pressed.
    const std::vector<SeenDialog>& seen() const { return seen_; }

private:
    DialogWatcher(int buttonId, Answer answer);

    static DWORD WINAPI watch(void* self);
    void answer(HWND dialog);

    const int buttonId_;  // a dialog is complete once it has this button
    const Answer answer_;
    std::vector<SeenDialog> seen_;
    HANDLE stop_;
    HANDLE thread_;
};

}  // namespace vorla::test
