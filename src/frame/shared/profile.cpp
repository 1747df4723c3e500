#include "frame/shared/profile.h"

#include <iterator>

#include "frame/values/ansi.h"
#include "frame/values/winapi.h"

namespace vorla {
namespace {

std::string oemFromAnsi(std::string bytes) {
    CharToOemA(bytes.c_str(), bytes.data());
    return bytes;
}

// The name of a section or key as it stands in the file.
std::string nameInFile(TextView name, bool oem) { return oem ? oemFromAnsi(toAnsi(name)) : toAnsi(name); }

constexpr const char* nowhere = "?:\\";  // a path that no file can have

// The path passed to the system. For a path that is too long some systems open the file of an earlier call.
std::string fileFor(TextView path) {
    auto bytes = toAnsi(path);
    return bytes.size() < MAX_PATH ? bytes : nowhere;
}

// Some systems count the characters of a name or a value, with its NUL, in 15 bits. A longer one crashes the
// host or means another key.
constexpr std::size_t longest = 32766;

bool isTooLong(const std::string& bytes) { return bytes.size() > longest; }

}  // namespace

Text OemVersAnsi(TextView Texte) {
    auto bytes = toAnsi(Texte);
    OemToCharA(bytes.c_str(), bytes.data());
    return fromAnsi(bytes);
}

Text AnsiVersOem(TextView Texte) { return fromAnsi(oemFromAnsi(toAnsi(Texte))); }

Text IniLecture(TextView Fichier, TextView Section, TextView Cle, TextView Defaut, bool Oem) {
    const auto section = nameInFile(Section, Oem), key = nameInFile(Cle, Oem);
    auto fallback = toAnsi(Defaut);
    if (isTooLong(fallback)) fallback.resize(longest);
    // A name that no file has brings the default.
    const bool isMissing = isTooLong(section) || isTooLong(key);
    char buffer[1026];
    const auto length = GetPrivateProfileStringA(
        isMissing ? "?" : section.c_str(), isMissing ? "?" : key.c_str(), fallback.c_str(), buffer,
        std::size(buffer), isMissing ? nowhere : fileFor(Fichier).c_str());
    if (length == 0) return {};
    const auto read = fromAnsi({buffer, length});
    const auto value = trimmed(read);
    return Oem ? OemVersAnsi(value) : Text(value);
}

std::int32_t IniEcriture(TextView Fichier, TextView Section, TextView Cle, TextView Valeur, bool Oem) {
    const auto file = fileFor(Fichier), section = nameInFile(Section, Oem), key = nameInFile(Cle, Oem),
               value = toAnsi(Valeur);
    // A key that looks like a comment is never written.
    const bool deletes = value.empty() || key.empty() || key.starts_with(';');
    if (isTooLong(section) || isTooLong(key) || (!deletes && isTooLong(value))) return 0;
    return WritePrivateProfileStringA(section.c_str(), key.empty() ? nullptr : key.c_str(),
                                      deletes ? nullptr : value.c_str(), file.c_str());
}

}  // namespace vorla
