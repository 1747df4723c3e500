// The language file in use, and every read from it.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// One for each thread of the host, shared by everything on that thread. Initially empty.
struct LanguageStore {
    Text folder;      // of the language files, with a final backslash
    Text file;        // of the language in use; empty when none is selected
    Text statusFile;  // never opened: only its name is used
};

/// The store of the calling thread.
LanguageStore& languageStore();

/// Whether a language is selected. End on error: False.
bool isLanguageSelected();

/// The file of a language in the folder of the language files.
Text languageFile(TextView code);

/// The unescaped text of a key in the language in use or, if missing there, in the default language. Empty
/// when neither has it or no language is selected. Also empty for an empty key, with which Windows would
/// return the names of all keys. End on error: empty.
Text LngReadValue(TextView Section, TextView Cle);

}  // namespace vorla
