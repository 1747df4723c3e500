// Two values compared: the larger, the smaller, equality.
#pragma once

#include "frame/values/variant.h"

namespace vorla {

/// The greater (MaxVar) or smaller (MinVar) of two values; the second on a tie and against Null. Numbers are
/// compared as numbers, texts by the user's locale, and a text is greater than any number. Unguarded: error
/// 13 for values that cannot be compared.
Variant MaxVar(VariantView Valeur1, VariantView Valeur2);
Variant MinVar(VariantView Valeur1, VariantView Valeur2);

/// Whether two values are equal by the same comparison. Null equals nothing.
bool areEqual(VariantView Valeur1, VariantView Valeur2);

}  // namespace vorla
