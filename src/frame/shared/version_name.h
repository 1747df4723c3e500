// The rule for VersionWindows: which Windows it is, by what the system says of itself.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/values/text.h"

namespace vorla {

/// The fields that the system fills in. The service pack is the whole field of 128 characters, padding
/// included.
struct VersionFacts {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t platform = 0;
    TextView servicePack;
};

struct VersionName {
    WinVer version{};  // 0 for a version without a code
    TextView name;

    bool operator==(const VersionName&) const = default;
};

/// The code, and the name without the "Windows " that hosts see in front of it.
///
/// Old hosts rely on these results: Vista's name begins with another "Windows"; an unknown version has no
/// name; OSR2 is recognised only when the whole field of 128 characters is "C", so never.
VersionName versionName(const VersionFacts& facts);

}  // namespace vorla
