// What members ask Windows about files and folders. Paths cross in the ANSI code page, up to their first
// NUL character.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/joined.h"
#include "frame/values/text.h"

namespace vorla {

/// Whether the path exists as a file (`eftFile`) or, for any other kind, as a folder. End on error: a path
/// whose attributes cannot be read does not exist.
bool ExisteFichier(TextView Chemin, eFileToTest TypeFile);

/// Whether the folder that the path leads to can be read, the path's own when it is one. End on error.
/// Without a backslash the whole path is that folder, and an empty path is the root of the current drive.
bool ExisteDossier(TextView Chemin);

/// A piece of a path, by the rule in paths.h, with Windows telling whether it is a folder.
Joined DecoupeChemin(TextView Chemin, eFileN Partie);

/// The short (8.3) form of an existing path; empty when there is none, or none of fewer than 255
/// characters.
Text CheminCourt(TextView Chemin);

/// Deletes a file; whether it is gone. A folder is not deleted, nor is a read-only file.
bool SupprimeFichier(TextView Chemin);

/// A name in the folder for temporary files that no file has at the time of the call, beginning with the
/// first three characters of `Prefixe`, with the given extension or, when that is empty, "tmp". A point is
/// put in front of an extension that holds none, in the caller's variable too. Empty when Windows has no
/// folder or no name to give.
///
/// When a file of the wanted name exists, another name is drawn; the placeholder of the first draw stays
/// behind. Hosts have always found those files there.
Text CheminTemporaire(TextView Prefixe, Text& Extension);

}  // namespace vorla
