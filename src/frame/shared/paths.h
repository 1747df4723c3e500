// Pieces of a path: the rules for ExtraitChemin and every member that takes a path apart.
//
// The separator is the backslash. A network path begins with two of them; its drive is the server and the
// share. The text alone cannot tell whether a path names an existing folder, so callers provide that answer
// (files.h asks Windows).
#pragma once

#include <functional>

#include "frame/contract/enumerations.h"
#include "frame/values/joined.h"

namespace vorla {

/// Whether a path names an existing folder.
using FolderTest = std::function<bool(TextView path)>;

/// The path with "\" at its end, added only if needed. An empty path becomes "\". Views its argument.
Joined AjouteAntiSlash(TextView Chemin);

/// The path without one "\" at its end.
TextView withoutBackslash(TextView path);

/// The piece of `Chemin` that `Partie` names; empty for an unknown value. Views its argument.
///
/// `isFolder` is called at most once, with `Chemin` itself, and only when its answer changes the result. An
/// existing folder has no file name and no extension.
///
/// Old hosts rely on these results: without any backslash `efRépertoire` and `eFNomFichier` both give the
/// whole path; `efRacine` of a path without a drive is "\"; an ending of more than four characters is
/// returned by `eFExtension` but not removed by `eFNomFichierSansExtention`.
Joined DecoupeChemin(TextView Chemin, eFileN Partie, const FolderTest& isFolder);

/// The path with every "." + `from` in it replaced by `to`, which brings its own point. Case-sensitive.
Text withExtension(TextView path, TextView from, TextView to);

}  // namespace vorla
