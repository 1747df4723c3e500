// The dialog in which the user looks for a folder, a computer or a printer.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// What the user looks for. FolderChoice can allow files in place of folders.
enum class BrowseKind { folder, computer, printer };

/// Settings of the dialog for folders; the other kinds ignore them.
struct FolderChoice {
    /// The folder selected at first. If this is a file's path, the file's folder; if that does not exist, the
    /// process's current directory.
    TextView start = {};
    /// Whether the dialog has a button for a new folder.
    bool mayCreate = true;
    /// Whether files are shown and can be chosen too.
    bool filesToo = false;
};

/// Shows the dialog with this title, owned by the foreground window, until the user answers it. Returns the
/// folder's path, or the computer's or printer's name. End on error: empty. Also empty when the user cancels
/// or chooses something that is not part of the file system.
Text BrowseForItem(BrowseKind Genre, TextView Titre, const FolderChoice& Choix = {});

}  // namespace vorla
