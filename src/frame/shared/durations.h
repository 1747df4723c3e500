// Durations as text.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// A number of seconds as a clock shows it, with the user's time separator; see clockText(). Nothing
/// separates the numbers when the system does not tell its separator.
Text DureeTexte(std::int32_t Secondes, bool SansHeures);

}  // namespace vorla
