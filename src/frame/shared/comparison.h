// The larger and the smaller of two values.
#pragma once

#include "frame/values/variant.h"

namespace vorla {

/// The first value when it is greater (smaller) than the second, otherwise the second: on a tie, and
/// against Null, it is the second. Numbers are compared as numbers, texts by the user's locale, and a text
/// is greater than any number. Unguarded: 13 for what cannot be compared.
Variant MaxVar(VariantView Valeur1, VariantView Valeur2);
Variant MinVar(VariantView Valeur1, VariantView Valeur2);

}  // namespace vorla
