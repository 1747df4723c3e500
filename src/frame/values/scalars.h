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

}  // namespace vorla
