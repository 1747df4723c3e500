// Which Windows it is, by what it says of itself: the decision behind VersionWindows.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/values/text.h"

namespace vorla {

/// What the system fills in. The service pack is the whole field of 128 characters, its filling included.
struct VersionFacts {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t platform = 0;
    TextView servicePack;
};

struct VersionName {
    WinVer version{};  // 0 for a version that has no code
    TextView name;

    bool operator==(const VersionName&) const = default;
};

/// The code and the name, without the "Windows " that hosts see in front of it.
///
/// Hosts rely on these: Vista's name brings a "Windows" of its own; an unknown version has no name; OSR2 is
/// recognised by the whole field of 128 characters being "C", so a system never is.
VersionName versionName(const VersionFacts& facts);

}  // namespace vorla
