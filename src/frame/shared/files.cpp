#include "frame/shared/files.h"

#include <array>

#include "frame/shared/paths.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/winapi.h"

namespace vorla {
namespace {

DWORD attributesOf(TextView path) { return GetFileAttributesA(toAnsi(path).c_str()); }

bool isExistingFolder(TextView path) { return ExisteFichier(path, eFileToTest::eftDirectory); }

// An empty file that Windows creates to reserve its name. The destructor deletes it unless it is released.
class ReservedName {
public:
    explicit ReservedName(TextView prefix) {
        std::array<char, 512> folder;
        const auto length = GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
        if (length < 1 || length >= folder.size()) return;
        std::array<char, 576> name{};
        if (GetTempFileNameA(folder.data(), toAnsi(prefix).c_str(), 0, name.data())) name_ = name;
    }
    ReservedName(const ReservedName&) = delete;
    ReservedName& operator=(const ReservedName&) = delete;
    ~ReservedName() {
        if (exists()) DeleteFileA(name_.data());
    }

    bool exists() const { return name_[0] != '\0'; }
    Text name() const { return fromAnsi(name_.data()); }
    void leaveBehind() { name_[0] = '\0'; }

private:
    std::array<char, 576> name_{};
};

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
    // If the buffer is too small, the result is the size that it would need.
    if (length >= shortForm.size()) return {};
    return fromAnsi({shortForm.data(), length});
}

bool SupprimeFichier(TextView Chemin) {
    return ExisteFichier(Chemin, eFileToTest::eftFile) && DeleteFileA(toAnsi(Chemin).c_str());
}

Text CheminTemporaire(TextView Prefixe, Text& Extension) {
    for (Text result;;) {
        ReservedName reserved(Prefixe);
        if (!reserved.exists()) return result;
        result = reserved.name();
        if (Extension.empty()) return result;

        if (Extension.find(L'.') == Text::npos) Extension.insert(0, 1, L'.');
        const Text created = result;
        result = withExtension(created, DecoupeChemin(created, eFileN::eFExtension).text(), Extension);
        // With the same extension as the reserved name, every drawn name would be taken, by the reserved file
        // itself.
        const bool isReserved = lowerCased(result) == lowerCased(created);
        if (isReserved || !ExisteFichier(result, eFileToTest::eftFile)) return result;
        reserved.leaveBehind();
    }
}

}  // namespace vorla
