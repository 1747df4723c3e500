// The two criteria of a range ("from" and "to"), as users type them into a form.
#pragma once

#include "frame/values/text.h"

namespace vorla {

enum class Criteria {
    accepted,
    descending,  // both are given, the greater one first
    missing      // at least one is empty, and both are required
};

/// What is wrong with two criteria. They are compared as text, by character codes: "20" comes before "3". Old
/// hosts rely on this, for numbers and dates too.
Criteria criteriaOf(TextView first, TextView second, bool areRequired);

inline constexpr TextView descendingMessage =
    L"Les critères de sélection ne sont pas dans l'ordre croissant, je les inverse pour vous.";
inline constexpr TextView missingMessage = L"Les critères de sélection sont obligatoires.";

}  // namespace vorla
