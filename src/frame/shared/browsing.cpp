#include "frame/shared/browsing.h"

#include <shlobj.h>

#include <array>
#include <string>

#include "frame/shared/files.h"
#include "frame/values/ansi.h"
#include "frame/values/failure.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"

namespace vorla {
namespace {

// As long as the dialog's own: it is given no length.
using NameBuffer = std::array<char, MAX_PATH>;

Text textOf(const NameBuffer& buffer) { return fromAnsiBuffer({buffer.data(), buffer.size()}); }

std::string startFolder(TextView path) {
    const bool isFile = !DecoupeChemin(path, eFileN::eFNomFichier).text().empty();
    const Text folder = isFile ? DecoupeChemin(path, eFileN::efRépertoire).text() : Text(path);
    return ExisteFichier(folder, eFileToTest::eftDirectory) ? toAnsi(folder) : std::string();
}

std::string currentDirectory() {
    std::string path(GetCurrentDirectoryA(0, nullptr), '\0');
    const auto length = GetCurrentDirectoryA(static_cast<DWORD>(path.size()), path.data());
    // The path may have become longer since its length was asked for.
    path.resize(length < path.size() ? length : 0);
    return path;
}

void select(HWND dialog, const std::string& folder) {
    SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(folder.c_str()));
}

// Called by the dialog. `start` is the folder that the request carries.
int CALLBACK onNotice(HWND dialog, UINT notice, LPARAM, LPARAM start) {
    if (notice != BFFM_INITIALIZED) return 0;
    const auto& folder = *reinterpret_cast<const std::string*>(start);
    step([&] { select(dialog, folder.empty() ? currentDirectory() : folder); });
    return 0;
}

UINT folderFlags(const FolderChoice& choice) {
    UINT flags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_UAHINT;
    if (!choice.mayCreate) flags |= BIF_NONEWFOLDERBUTTON;
    if (choice.filesToo) flags |= BIF_BROWSEINCLUDEFILES;
    return flags;
}

// A dialog that shows a part of the shell's tree.
class Dialog {
public:
    explicit Dialog(TextView title) : title_(toAnsi(title)) {
        request_.hwndOwner = GetForegroundWindow();
        request_.pszDisplayName = name_.data();
        request_.lpszTitle = title_.c_str();
    }
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    Text folder(const FolderChoice& choice) {
        const auto start = startFolder(choice.start);
        request_.ulFlags = folderFlags(choice);
        request_.lpfn = &onNotice;
        request_.lParam = reinterpret_cast<LPARAM>(&start);
        const ShellItem chosen(SHBrowseForFolderA(&request_));
        NameBuffer path{};
        if (!chosen || !SHGetPathFromIDListA(chosen.get(), path.data())) return {};
        return textOf(path);
    }

    Text nameBelow(int specialFolder, UINT flags) {
        ShellItem root;
        if (FAILED(SHGetSpecialFolderLocation(request_.hwndOwner, specialFolder, root.put()))) return {};
        request_.pidlRoot = root.get();
        request_.ulFlags = flags;
        const ShellItem chosen(SHBrowseForFolderA(&request_));
        // On a cancelled dialog some systems leave something in the name.
        return chosen ? textOf(name_) : Text();
    }

private:
    const std::string title_;
    NameBuffer name_{};
    BROWSEINFOA request_{};
};

}  // namespace

Text BrowseForItem(BrowseKind Genre, TextView Titre, const FolderChoice& Choix) {
    return endOnError(Text(), [&] {
        Dialog dialog(Titre);
        switch (Genre) {
            case BrowseKind::computer: return dialog.nameBelow(CSIDL_NETWORK, BIF_BROWSEFORCOMPUTER);
            case BrowseKind::printer:
                return dialog.nameBelow(CSIDL_PRINTERS,
                                        BIF_BROWSEFORPRINTER | BIF_NEWDIALOGSTYLE | BIF_NONEWFOLDERBUTTON);
            default: return dialog.folder(Choix);
        }
    });
}

}  // namespace vorla
