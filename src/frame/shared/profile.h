// INI files, and the OEM code page in which old ones are written. Texts reach Windows in the ANSI code page,
// up to their first NUL character.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// The text with its bytes converted from the OEM to the ANSI code page, up to the first NUL character.
Text OemVersAnsi(TextView Texte);
/// The reverse.
Text AnsiVersOem(TextView Texte);

/// The value of a key, or `Defaut` when the key is missing, without surrounding blanks. At most 1,025
/// characters. A section or key of more than 32,766 characters is missing from every file. With `Oem` the
/// file's names and values are in the OEM code page; the default is then converted like a value from the
/// file. Old hosts rely on this.
Text IniLecture(TextView Fichier, TextView Section, TextView Cle, TextView Defaut, bool Oem);

/// Writes a value. The result is not 0 when the system succeeds. An empty value deletes the key, and a key
/// that begins with ";" is always deleted. An empty key deletes the whole section. A section, key or value of
/// more than 32,766 characters gives 0 and changes nothing. With `Oem` the section and the key are converted
/// but the value is not. Old hosts rely on this.
std::int32_t IniEcriture(TextView Fichier, TextView Section, TextView Cle, TextView Valeur, bool Oem);

}  // namespace vorla
