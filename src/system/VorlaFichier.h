// VorlaFichier: paths and file names, existence, kind, size and dates of files, dialogs in which the user
// chooses or creates a folder, and drive trays.
//
// No member raises an error: a failure gives an empty text, False, eftOther or Empty, or does nothing. Paths
// reach Windows in the ANSI code page.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/host/host_reference.h"
#include "frame/values/bstr.h"
#include "frame/values/joined.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaFichier {
public:
    /// `Path` with a backslash at its end. An empty path gives a backslash.
    Joined NormalisePath(TextView Path);

    /// `Path` without the backslash at its end. Only one is removed.
    TextView DeNormalisePath(TextView Path);

    /// The piece of `Chemin` that `RenvoieNomFic` names; see DecoupeChemin.
    Joined ExtraitChemin(TextView Chemin, eFileN RenvoieNomFic);

    /// The path on a drive with every name as the drive stores it; empty when one of them does not exist.
    /// Always appends a backslash to the caller's variable; old hosts rely on this. A path that already ends
    /// in one therefore has an empty last name, and its result is empty.
    Text FileNameShortToLong(Text& FileName);

    /// The path with short (8.3) names. Empty when it does not exist or its short form has 255 characters or
    /// more.
    Text FileNameLongToShort(const Text& FileName);

    /// The content of a file, one character in the ANSI code page for each byte. Empty when it cannot be
    /// read. No file is created.
    Bstr LectDat(TextView FileName);

    /// Whether a file (`eftFile`) or, for any other `TypeFile`, a folder of this name exists.
    bool FileExist(TextView FileName, const eFileToTest& TypeFile);

    /// FileExist under another name.
    bool IsFileExist(TextView FileName, const eFileToTest& TypeFile);

    /// The kind of content by the file's extension, without regard to case. `eftOther` for folders.
    eFiletype FileType(TextView FileName);

    /// SizeToString of a file's length; empty when the file does not exist.
    Text FileSize(const Text& NomFichier, const bool& Short);

    /// A number of bytes in the largest fitting unit and, unless `Short`, in bytes too; see sizeText().
    /// Numbers are written by the user's locale. Empty when no text can be made of the number.
    Text SizeToString(double FileSise, const bool& Short);

    /// The folder that the user chooses in a dialog, or with `BrowseForFilesAndFolder` also a file; empty if
    /// the user cancels. The dialog opens on `InitDir`, or on its folder when that names a file, or on the
    /// current directory.
    Text GetFolder(TextView Title, const Text& InitDir, const bool& AllowCreateFolder,
                   const bool& BrowseForFilesAndFolder);

    /// The name of the network computer that the user chooses; empty if the user cancels.
    Text GetComputer(TextView Title);

    /// The name of the printer that the user chooses; empty if the user cancels.
    Text GetPrinter(TextView Title);

    /// Creates every missing level of `Folder` and returns it with a backslash at its end. A path without a
    /// drive starts at the root of the drive that the host's program is on; old hosts rely on this.
    ///
    /// When it cannot be created and `hwndOwner` is not -1, a message tells the user: `Mes` or a text of our
    /// own, shown by the host's `MsgBoxCtl` or by the system. If the user does not cancel, the result is a
    /// folder that the user chooses or creates. Empty when there is no folder in the end.
    Text CreateFolder(TextView Folder, const HostObject& MsgBoxCtl, TextView Mes,
                      const std::int32_t& hwndOwner);

    /// A date of a file or folder: when it was created, last written or last read. Local time, to the second.
    /// Empty when it cannot be read. Setting it takes a date or a text that is a date; anything else, and a
    /// file that cannot be written, is ignored.
    Variant readFileDate(TextView FileName, const eFileDateType& DateType);
    void writeFileDate(TextView FileName, const eFileDateType& DateType, VariantView value);

    /// Deletes a file and returns whether that worked. Folders and read-only files are not deleted.
    bool DeleteFile(const Text& NomFichier);

    /// Renames or moves a file or folder and returns whether that worked. False if the new name is taken. A
    /// file can be moved to another drive, a folder cannot.
    bool RenameFile(const Text& NomFichierSrc, const Text& NomFichierDest);

    /// The path of a file that does not exist yet, in the folder for temporary files. Its name begins with up
    /// to three characters of `sPrefix`.
    Text GetTempFileName(const Text& sPrefix);

    /// Whether a field of a record holds nothing: Null, Empty or an empty text. Of an object the default
    /// property counts, because fields of records are objects.
    bool IsFieldEpmty(VariantView Valeur);

    /// With `eeoEjecter`, opens the tray of the drive that `Lecteur` begins with; any other `Action` closes
    /// it. See moveTray().
    void CDEjectLoad(eEjectOperation Action, TextView Lecteur);
};

}  // namespace vorla
