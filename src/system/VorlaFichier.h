// VorlaFichier: paths and file names, existence, kind, size and dates of files, the dialogs in which a folder
// is chosen or made, and the trays of drives.
//
// No member raises an error: what fails gives an empty text, False, eftOther or Empty, or does nothing. Paths
// cross to Windows in the ANSI code page.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/host/host_reference.h"
#include "frame/values/bstr.h"
#include "frame/values/joined.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaFichier {
public:
    /// `Path` with a backslash at its end; an empty path gives a backslash.
    Joined NormalisePath(TextView Path);

    /// `Path` without the backslash at its end; only one is removed.
    TextView DeNormalisePath(TextView Path);

    /// The piece of `Chemin` that `RenvoieNomFic` names; see DecoupeChemin.
    Joined ExtraitChemin(TextView Chemin, eFileN RenvoieNomFic);

    /// The path on a drive with every name as the drive stores it; empty when one of them does not exist.
    /// Puts a backslash behind the caller's variable in any case; hosts rely on it. For a path that ends
    /// in a backslash already, that asks for a name behind it, so the result is empty.
    Text FileNameShortToLong(Text& FileName);

    /// The path with short (8.3) names; empty when it does not exist or has 255 characters or more.
    Text FileNameLongToShort(const Text& FileName);

    /// The bytes of a file, each as the character that it is in the ANSI code page; empty when it cannot be
    /// read. No file is created.
    Bstr LectDat(TextView FileName);

    /// Whether a file (`eftFile`) or, for any other `TypeFile`, a folder of this name exists.
    bool FileExist(TextView FileName, const eFileToTest& TypeFile);

    /// FileExist under its other name.
    bool IsFileExist(TextView FileName, const eFileToTest& TypeFile);

    /// The kind of content that the extension announces, in any case of its letters. Folders have none.
    eFiletype FileType(TextView FileName);

    /// SizeToString of a file's length; empty when there is no such file.
    Text FileSize(const Text& NomFichier, const bool& Short);

    /// A number of bytes for people to read, in the largest fitting unit and, unless `Short`, in bytes too;
    /// see sizeText(). Numbers by the user's locale. Empty for a number that no text can be made of.
    Text SizeToString(double FileSise, const bool& Short);

    /// The folder, or with `BrowseForFilesAndFolder` also the file, that the user chooses in a dialog; empty
    /// when he cancels. The dialog opens on `InitDir`, on its folder when that names a file, else on the
    /// current directory.
    Text GetFolder(TextView Title, const Text& InitDir, const bool& AllowCreateFolder,
                   const bool& BrowseForFilesAndFolder);

    /// The name of the computer of the network that the user chooses; empty when he cancels.
    Text GetComputer(TextView Title);

    /// The name of the printer that the user chooses; empty when he cancels.
    Text GetPrinter(TextView Title);

    /// `Folder` with a backslash at its end, every missing level of it created. A path without a drive lies
    /// below the root of the drive that the host's program is on; hosts rely on it.
    ///
    /// When it cannot be created and `hwndOwner` is not -1 the user is told, by `Mes` or a text of our own,
    /// in the host's message box `MsgBoxCtl` or in the system's, and unless he cancels that he chooses or
    /// makes a folder himself: the result is then his. Empty when there is no folder in the end.
    Text CreateFolder(TextView Folder, const HostObject& MsgBoxCtl, TextView Mes,
                      const std::int32_t& hwndOwner);

    /// A date of a file or folder: when it was created, last written or last read. Local time, to the second.
    /// Empty when it cannot be told. Setting it takes a date, or a text that is one; anything else, and a
    /// file that cannot be written, is left alone.
    Variant readFileDate(TextView FileName, const eFileDateType& DateType);
    void writeFileDate(TextView FileName, const eFileDateType& DateType, VariantView value);

    /// Deletes a file; whether it is gone. Folders and read-only files stay.
    bool DeleteFile(const Text& NomFichier);

    /// Renames or moves a file or folder; whether it has its new name. What has that name already stays as it
    /// is. A file can be moved to another drive, a folder cannot.
    bool RenameFile(const Text& NomFichierSrc, const Text& NomFichierDest);

    /// The path of a file in the folder for temporary files that does not exist, beginning with up to three
    /// characters of `sPrefix`.
    Text GetTempFileName(const Text& sPrefix);

    /// Whether a field of a record holds nothing: Null, Empty or an empty text. An object is asked for its
    /// default property, as the fields of records are.
    bool IsFieldEpmty(VariantView Valeur);

    /// Opens the tray of the drive that `Lecteur` begins with, or for any other `Action` than `eeoEjecter`
    /// closes it; see moveTray().
    void CDEjectLoad(eEjectOperation Action, TextView Lecteur);
};

}  // namespace vorla
