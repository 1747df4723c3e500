// VorlaFichier: paths and file names, existence, kind and size of files.
//
// No member raises an error: what fails gives an empty text, False or eftOther. Paths cross to Windows in
// the ANSI code page.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/bstr.h"
#include "frame/values/joined.h"

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
};

}  // namespace vorla
