// The shell's dialog in which a folder is chosen, seen and used from another thread.
#pragma once

#include <string>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla::test {

class BrowseDialog {
public:
    explicit BrowseDialog(HWND dialog);

    /// The name of the item that is selected in the tree; empty when none is.
    std::wstring selected() const;

    /// What the tree shows below the selected item, unfolded for it.
    std::vector<std::wstring> below() const;

    /// Selects an item below the selected one; whether there is one of this name.
    bool select(const std::wstring& name) const;

private:
    HWND tree_;
};

/// Reads every folder on the way to a path. Wine's tree knows a folder by its access time too, and reading
/// one that has just been changed, as it does while it looks for the start folder, makes that time a new one:
/// it then opens on a folder further up. So this comes between changes and the dialog.
void readTheWayTo(const std::wstring& path);

}  // namespace vorla::test
