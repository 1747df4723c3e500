// The automation scalars for which C++ has no type of its own.
#pragma once

#include <cstdint>

namespace vorla {

/// An amount in ten-thousandths.
struct Currency {
    std::int64_t scaled = 0;
};

/// Days since 30 December 1899; the fraction is the time of day.
struct Date {
    double days = 0;
};

/// The 32 bits of a colour or a handle. Hosts pass them with a sign or without: 2147483668 and -2147483628
/// are the same to a member.
struct Bits32 {
    std::int32_t bits = 0;
};

}  // namespace vorla
