// VorlaSystem: drives, folders, shell, locale, Windows version, INI files.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaSystem {};

}  // namespace vorla
