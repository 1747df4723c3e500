#include "frame/shared/version_name.h"

namespace vorla {
namespace {

constexpr std::uint32_t platformWindows = 1, platformNT = 2;

VersionName versionFour(const VersionFacts& facts) {
    switch (facts.minor) {
        case 0:
            if (facts.platform == platformNT) return {WinVer::WinNT4, L"NT 4"};
            if (facts.platform != platformWindows) return {};
            if (facts.servicePack == L"C") return {WinVer::Win95Osr2, L"95 OSR2"};
            return {WinVer::Win95, L"95"};
        case 10:
            if (trimmed(facts.servicePack).starts_with(L'A')) return {WinVer::Win98SE, L"98 Second Edition"};
            return {WinVer::Win98, L"98"};
        case 90: return {WinVer::WinME, L"Millenium"};
        default: return {};
    }
}

VersionName versionFive(std::uint32_t minor) {
    switch (minor) {
        case 0: return {WinVer::Win2K, L"2000"};
        case 1: return {WinVer::WinXP, L"XP"};
        case 2: return {WinVer::WinServer2003, L"Server 2003"};
        default: return {};
    }
}

}  // namespace

VersionName versionName(const VersionFacts& facts) {
    if (facts.major == 3 && facts.minor == 51) return {WinVer::WinNT351, L"NT 3.51"};
    if (facts.major == 4) return versionFour(facts);
    if (facts.major == 5) return versionFive(facts.minor);
    if (facts.major == 6 && facts.minor == 0) return {WinVer::WinVista, L"Windows Vista"};
    return {};
}

}  // namespace vorla
