// The rule for CalcTauxAugm.
#pragma once

#include "frame/values/scalars.h"

namespace vorla {

/// From one amount to another in percent of the first: from 100 to 150 is 50, from 200 to 150 is -25. 0 when
/// either is 0.
constexpr double growth(Currency from, Currency to) {
    if (from.scaled == 0 || to.scaled == 0) return 0;
    const auto first = static_cast<double>(from.scaled), second = static_cast<double>(to.scaled);
    return (second - first) / first * 100;
}

}  // namespace vorla
