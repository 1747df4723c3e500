// Fields of a delimited text, for ExtraitChaine and every member that reads a column.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// Field number `Rang` (1 is the first) of `Chaine`, counted from the start or from the end. Empty when the
/// field does not exist. An empty separator means a tab, a rank below 1 means 1. The result is a view of
/// `Chaine`.
///
/// Ranks counted from the start wrap around: after the last field come an empty result for the closing
/// separator and another for the failed search, then the first field again. Old hosts rely on this.
///
/// Errors: 6 when a separator's position is above 32,767; 5 when overlapping separators would give a field a
/// negative length.
TextView ExtraitChamp(TextView Chaine, std::int16_t Rang, TextView Separateur, bool DepuisLaFin);

/// The text up to its first NUL character, or all of it.
TextView TronqueNul(TextView Texte);

}  // namespace vorla
