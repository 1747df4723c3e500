#include "frame/declarations/files.h"

#include <windows.h>

#include <array>

#include "frame/declarations/paths.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"

namespace vorla {
namespace {

DWORD attributesOf(TextView path) { return GetFileAttributesA(toAnsi(path).c_str()); }

bool isExistingFolder(TextView path) { return ExisteFichier(path, eFileToTest::eftDirectory); }

// The name of an empty file that Windows has just created; empty when it has none to give.
Text placeholder(TextView prefix) {
    std::array<char, 512> folder;
    const auto length = GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
    if (length < 1 || length >= folder.size()) return {};
    std::array<char, 576> name{};
    if (!GetTempFileNameA(folder.data(), toAnsi(prefix).c_str(), 0, name.data())) return {};
    return fromAnsi(name.data());
}

}  // namespace

bool ExisteFichier(TextView Chemin, eFileToTest TypeFile) {
    return endOnError(false, [&] {
        const auto attributes = attributesOf(Chemin);
        if (attributes == INVALID_FILE_ATTRIBUTES) return false;
        return ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) == (TypeFile != eFileToTest::eftFile);
    });
}

bool ExisteDossier(TextView Chemin) {
    return endOnError(false, [&] {
        const auto folder = DecoupeChemin(Chemin, eFileN::efRépertoire).text();
        return attributesOf(AjouteAntiSlash(folder).text()) != INVALID_FILE_ATTRIBUTES;
    });
}

Joined DecoupeChemin(TextView Chemin, eFileN Partie) {
    return DecoupeChemin(Chemin, Partie, isExistingFolder);
}

Text CheminCourt(TextView Chemin) {
    std::array<char, 255> shortForm;
    const auto length = GetShortPathNameA(toAnsi(Chemin).c_str(), shortForm.data(), DWORD{shortForm.size()});
    // A form that does not fit is answered with the room that it needs.
    if (length >= shortForm.size()) return {};
    return fromAnsi({shortForm.data(), length});
}

bool SupprimeFichier(TextView Chemin) {
    return ExisteFichier(Chemin, eFileToTest::eftFile) && DeleteFileA(toAnsi(Chemin).c_str());
}

Text CheminTemporaire(TextView Prefixe, Text& Extension) {
    Text result;
    for (;;) {
        const Text created = placeholder(Prefixe);
        if (created.empty()) return result;
        result = created;
        if (!Extension.empty()) {
            if (Extension.find(L'.') == Text::npos) Extension.insert(0, 1, L'.');
            const Text own = DecoupeChemin(created, eFileN::eFExtension).text();
            result = withExtension(created, own, Extension);
            // With the placeholder's own extension every name would be taken, by its own placeholder.
            const bool isPlaceholder = lowerCased(result) == lowerCased(created);
            if (!isPlaceholder && ExisteFichier(result, eFileToTest::eftFile)) continue;
        }
        SupprimeFichier(created);
        return result;
    }
}

}  // namespace vorla
