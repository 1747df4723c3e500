// The dialog in which the user looks for a folder, a computer or a printer.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// What the user looks for. Files may stand in for folders, see below.
enum class BrowseKind { folder, computer, printer };

/// What the dialog for folders is given; the other kinds ignore it.
struct FolderChoice {
    /// The folder selected at first: this one or, when it is a file's path, the file's. The process's current
    /// directory when there is no such folder.
    TextView start = {};
    /// Whether the dialog has a button that makes a new folder.
    bool mayCreate = true;
    /// Whether files are shown and may be chosen too.
    bool filesToo = false;
};

/// Shows the dialog under this title, owned by the foreground window, until the user has answered it. The
/// folder's path, or the computer's or printer's name. End on error: empty, as when the user cancels or
/// chooses something that is no part of the file system.
Text BrowseForItem(BrowseKind Genre, TextView Titre, const FolderChoice& Choix = {});

}  // namespace vorla
