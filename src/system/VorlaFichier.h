// VorlaFichier: paths, files, browse dialogs, folders and file dates.
#pragma once

namespace vorla {

/// Published empty until its members are built.
class VorlaFichier {};

}  // namespace vorla
