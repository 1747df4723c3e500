// Questions about the system: its version, the user's locale, a drive.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/values/text.h"

namespace vorla {

/// The code of the running Windows. `Nom` gets "Windows " and the version's name; see versionName(). A
/// version without a code gives 0 and "Windows " alone.
WinVer VersionWindows(Text& Nom);

/// One item of the user's locale, up to its first NUL character. Empty for an item that does not exist or
/// has more than 48 characters.
Text InfoLocale(std::int32_t Element);

/// The type of the drive that the path is on. A path without a drive is on the current one.
eDriveType TypeLecteur(TextView Chemin);

}  // namespace vorla
