// Waiting while the host goes on.
#pragma once

#include <cstdint>

namespace vorla {

/// Whether a wait that began at tick count `start` is over at `now`: its time has passed, or the counter has
/// started over, which ends the wait early.
constexpr bool isWaitOver(std::uint32_t start, std::uint32_t now, std::int32_t milliseconds) {
    return now < start || std::int64_t{now} >= std::int64_t{start} + milliseconds;
}

/// Waits and lets the host process its events meanwhile, at least once. Returns after that when
/// `Millisecondes` is 0 or negative.
void Attente(std::int32_t Millisecondes);

}  // namespace vorla
