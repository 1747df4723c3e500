// Questions about files and folders. Paths reach Windows in the ANSI code page, up to their first NUL
// character.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/joined.h"
#include "frame/values/text.h"

namespace vorla {

/// Whether the path exists as a file (`eftFile`) or, for any other kind, as a folder. End on error: false
/// when the attributes cannot be read.
bool ExisteFichier(TextView Chemin, eFileToTest TypeFile);

/// Whether the path's folder can be read; the path's own contents when it names a folder. End on error:
/// false. A path without a backslash is taken as a folder, an empty path as the root of the current drive.
bool ExisteDossier(TextView Chemin);

/// A piece of a path, by the rule in paths.h; Windows tells whether the path is a folder.
Joined DecoupeChemin(TextView Chemin, eFileN Partie);

/// The short (8.3) form of an existing path. Empty when the path does not exist or its short form has 255
/// characters or more.
Text CheminCourt(TextView Chemin);

/// Deletes a file and returns whether that worked. Folders and read-only files are not deleted.
bool SupprimeFichier(TextView Chemin);

/// An unused name in the folder for temporary files. It begins with the first three characters of `Prefixe`
/// and has the given extension, or "tmp" when that is empty. An extension without a point gets one in front,
/// in the caller's variable too. Empty when Windows gives no folder or no name.
///
/// If a file of the wanted name exists, another name is drawn, and the placeholder of the first draw stays on
/// the disk. Hosts have always found those files there.
Text CheminTemporaire(TextView Prefixe, Text& Extension);

}  // namespace vorla
