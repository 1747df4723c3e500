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

// The path passed to the system. For a path that is too long some systems open the file of an earlier call,
// so they get a path that no file can have.
std::string fileFor(TextView path) {
    auto bytes = toAnsi(path);
    return bytes.size() < MAX_PATH ? bytes : "?:\\";
}

}  // namespace

Text OemVersAnsi(TextView Texte) {
    auto bytes = toAnsi(Texte);
    OemToCharA(bytes.c_str(), bytes.data());
    return fromAnsi(bytes);
}

Text AnsiVersOem(TextView Texte) { return fromAnsi(oemFromAnsi(toAnsi(Texte))); }

Text IniLecture(TextView Fichier, TextView Section, TextView Cle, TextView Defaut, bool Oem) {
    char buffer[1026];
    const auto length =
        GetPrivateProfileStringA(nameInFile(Section, Oem).c_str(), nameInFile(Cle, Oem).c_str(),
                                 toAnsi(Defaut).c_str(), buffer, std::size(buffer), fileFor(Fichier).c_str());
    if (length == 0) return {};
    const auto read = fromAnsi({buffer, length});
    const auto value = trimmed(read);
    return Oem ? OemVersAnsi(value) : Text(value);
}

std::int32_t IniEcriture(TextView Fichier, TextView Section, TextView Cle, TextView Valeur, bool Oem) {
    const auto file = fileFor(Fichier), section = nameInFile(Section, Oem), key = nameInFile(Cle, Oem),
               value = toAnsi(Valeur);
    // A key that looks like a comment is never written.
    const bool deletes = value.empty() || key.starts_with(';');
    return WritePrivateProfileStringA(section.c_str(), key.empty() ? nullptr : key.c_str(),
                                      deletes || key.empty() ? nullptr : value.c_str(), file.c_str());
}

}  // namespace vorla
