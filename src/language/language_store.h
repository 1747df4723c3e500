// Which language file is in use, and every read from it.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// Each thread of the host has its own, and everything on that thread shares it. All empty at first.
struct LanguageStore {
    Text folder;      // of the language files, with a final backslash
    Text file;        // of the language in use; empty: no language is selected
    Text statusFile;  // beside it; only its name is ever used
};

/// The calling thread's.
LanguageStore& languageStore();

/// Whether a language is selected. End on error: False.
bool isLanguageSelected();

/// The file of a language in the folder of the language files.
Text languageFile(TextView code);

/// The text of a key in the language in use or, when it has none, in the default language; unescaped. Empty
/// when neither has it, when no language is selected, and for an empty key, which would ask Windows for the
/// names of all keys. End on error: empty.
Text LngReadValue(TextView Section, TextView Cle);

}  // namespace vorla
