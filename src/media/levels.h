// The levels that a fade or a ramp passes through.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"

namespace vorla::media {

/// Full volume of a device; members count in tenths of it.
inline constexpr std::int32_t fullLevel = 1000;

/// Calls `set` with each level from `from` down to the last one that is not negative: by 4 when slow, by 8
/// otherwise. None for a negative `from`.
template <class Set>
void fadeOut(std::int16_t from, eMMCloseStyle style, Set&& set) {
    const std::int32_t step = style == eMMCloseStyle::emmcsSlowly ? 4 : 8;
    for (std::int32_t level = from; level >= 0; level -= step) set(level);
}

/// How far a ramp goes at once, and how many times as far when fast.
struct RampSteps {
    std::int32_t slow, normal, fastFactor;
};
inline constexpr RampSteps deviceSteps{10, 40, 10}, discSteps{500, 1200, 4};

/// Calls `set` with each level of a ramp, from `from` on as long as `to` is not passed. The last level may
/// fall short of `to`, and a ramp without a way to go has one level.
template <class Set>
void ramp(std::int32_t from, std::int32_t to, const RampSteps& steps, eMMCloseStyle style, Set&& set) {
    std::int64_t step = style == eMMCloseStyle::emmcsSlowly ? steps.slow : steps.normal;
    if (style == eMMCloseStyle::emmcsFast) step *= steps.fastFactor;
    if (from < to) {
        for (std::int64_t level = from; level <= to; level += step) set(static_cast<std::int32_t>(level));
    } else {
        for (std::int64_t level = from; level >= to; level -= step) set(static_cast<std::int32_t>(level));
    }
}

}  // namespace vorla::media
