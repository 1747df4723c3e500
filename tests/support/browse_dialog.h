// The shell's dialog for choosing a folder, read and used from another thread.
#pragma once

#include <string>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla::test {

class BrowseDialog {
public:
    explicit BrowseDialog(HWND dialog);

    /// The name of the selected item of the tree; empty when none is selected.
    std::wstring selected() const;

    /// Unfolds the selected item and returns the names below it.
    std::vector<std::wstring> below() const;

    /// Selects an item below the selected one. False when none has this name.
    bool select(const std::wstring& name) const;

private:
    HWND tree_;
};

/// Reads every folder on the way to a path. Call it between changing folders and opening the dialog: Wine's
/// tree also knows a folder by its access time, and reading a changed folder, as the tree does while it looks
/// for the start folder, renews that time. The dialog would then open on a folder further up.
void readTheWayTo(const std::wstring& path);

}  // namespace vorla::test
