// Pieces of a path: the rule behind ExtraitChemin and every member that takes a path apart.
//
// The separator is the backslash. A network path begins with two of them; its drive is the server and the
// share. Whether a path names an existing folder is the only thing that its text cannot tell, so callers
// answer that (the Windows answer is in files.h).
#pragma once

#include <functional>

#include "frame/contract/enumerations.h"
#include "frame/values/joined.h"

namespace vorla {

/// Whether a path names an existing folder.
using FolderTest = std::function<bool(TextView path)>;

/// The path with "\" behind it unless it ends in one. An empty path becomes "\". Views its argument.
Joined AjouteAntiSlash(TextView Chemin);

/// The path without the one "\" that it ends in.
TextView withoutBackslash(TextView path);

/// The piece of `Chemin` that `Partie` names; empty for a value that names none. Views its argument.
///
/// `isFolder` is asked at most once, about `Chemin` itself, and only where the answer decides the result.
/// An existing folder is all folder: it has no file name and no extension.
///
/// Hosts rely on these: without any backslash `efRépertoire` and `eFNomFichier` both give the whole path;
/// `efRacine` of a path without a drive is "\"; an ending of more than four characters is no extension for
/// `eFNomFichierSansExtention`, while `eFExtension` returns it.
Joined DecoupeChemin(TextView Chemin, eFileN Partie, const FolderTest& isFolder);

/// The path with every "." + `from` in it replaced by `to`, which brings its own point; case counts.
Text withExtension(TextView path, TextView from, TextView to);

}  // namespace vorla
