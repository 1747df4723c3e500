// The rules for RndBetween.
#pragma once

#include <cmath>
#include <cstdint>

namespace vorla {

/// Uniform numbers from 0 to below 1 (the generator SplitMix64). Equal seeds give equal numbers.
class RandomNumbers {
public:
    explicit constexpr RandomNumbers(std::uint64_t seed) : state_(seed) {}

    constexpr double next() {
        state_ += 0x9E3779B97F4A7C15;
        auto mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        mixed ^= mixed >> 31;
        // As many bits as a double holds exactly.
        constexpr double range = 9007199254740992;
        return static_cast<double>(mixed >> 11) / range;
    }

private:
    std::uint64_t state_;
};

/// A whole number from `from` to `to`, both included; `from` must be the smaller. `random` gives numbers from
/// 0 to below 1, and is asked again while the result lies outside.
template <class Random>
std::int32_t randomBetween(std::int32_t from, std::int32_t to, Random&& random) {
    const double count = static_cast<double>(to) - from + 1;
    for (;;) {
        const double result = std::floor(random() * count + from);
        if (result >= from && result <= to) return static_cast<std::int32_t>(result);
    }
}

}  // namespace vorla
