// INI files, and the OEM code page in which old ones are written. Texts cross in the ANSI code page, up to
// their first NUL character.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// The text with its bytes converted from the OEM to the ANSI code page, or back. Nothing changes behind
/// the first NUL character.
Text OemVersAnsi(TextView Texte);
Text AnsiVersOem(TextView Texte);

/// The value of a key without surrounding blanks, or `Defaut` when the key is missing; empty when there is
/// neither. At most 1,025 characters. A section or key of more than 32,766 characters is missing from every
/// file. With `Oem` the file's names and values are in the OEM code page; the default then comes back
/// converted like a value of the file, which hosts are used to.
Text IniLecture(TextView Fichier, TextView Section, TextView Cle, TextView Defaut, bool Oem);

/// Writes a value. An empty value deletes the key, as any value of a key that begins with ";" does; an empty
/// key deletes the whole section. Not 0 when the system did it; 0, and nothing is written or deleted, for a
/// section, key or value of more than 32,766 characters. With `Oem` the section and the key are converted,
/// the value is not: hosts are used to it.
std::int32_t IniEcriture(TextView Fichier, TextView Section, TextView Cle, TextView Valeur, bool Oem);

}  // namespace vorla
