// Fields of a delimited text: the engine of ExtraitChaine and of every member that reads a column.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// Field number `Rang` (1 is the first) of `Chaine`, counted from the start or from the end; empty when
/// there is no such field. An empty separator means a tab, a rank below 1 means 1.
/// The result is a piece of `Chaine`.
///
/// Counted from the start, ranks wrap: after the last field comes one empty answer for the closing
/// separator and one for the failed search, then the first field again. Hosts rely on it.
///
/// Errors: 6 when a separator's position passes 32,767; 5 when separators overlap so that a field's
/// length would be negative.
TextView ExtraitChamp(TextView Chaine, std::int16_t Rang, TextView Separateur, bool DepuisLaFin);

/// The text up to its first NUL character, all of it when there is none.
TextView TronqueNul(TextView Texte);

}  // namespace vorla
