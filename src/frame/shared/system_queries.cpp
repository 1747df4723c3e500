#include "frame/shared/system_queries.h"

#include <iterator>

#include "frame/shared/fields.h"
#include "frame/shared/paths.h"
#include "frame/shared/version_name.h"
#include "frame/values/ansi.h"
#include "frame/values/winapi.h"

namespace vorla {

WinVer VersionWindows(Text& Nom) {
    OSVERSIONINFOA record{};
    static_assert(sizeof record == 148);
    record.dwOSVersionInfoSize = sizeof record;
    // If the system does not answer, the zeros stand for an unknown version.
    GetVersionExA(&record);
    const auto servicePack = fromAnsi({record.szCSDVersion, std::size(record.szCSDVersion)});
    const auto found =
        versionName({record.dwMajorVersion, record.dwMinorVersion, record.dwPlatformId, servicePack});
    Nom = L"Windows ";
    Nom += found.name;
    return found.version;
}

Text InfoLocale(std::int32_t Element) {
    // The system is told of 49 characters, the NUL included, so items have at most 48. Hosts have never been
    // given more.
    char buffer[50] = "";
    if (GetLocaleInfoA(LOCALE_USER_DEFAULT, static_cast<LCTYPE>(Element), buffer, std::size(buffer) - 1) == 0)
        return {};
    return fromAnsiBuffer({buffer, std::size(buffer)});
}

eDriveType TypeLecteur(TextView Chemin) {
    // A root is the same whether or not the path is a folder.
    const auto root = DecoupeChemin(Chemin, eFileN::efRacine, [](TextView) { return false; });
    return static_cast<eDriveType>(GetDriveTypeA(toAnsi(root.text()).c_str()));
}

}  // namespace vorla
