// Sizes of screens and places on them, in pixels and twips.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"

namespace vorla {

/// Whether this Windows knows a virtual screen, around all monitors. A version without a code does.
bool hasVirtualScreen(WinVer version);

/// A length of whole pixels in the unit, rounded, halves to even. A unit that is neither of the two is
/// pixels. Error 6 past 32 bits.
std::int32_t inUnit(std::int32_t pixels, eUnit unit, float twipsPerPixel);

/// The nearest 16-bit integer, halves to even. Error 6 past 16 bits.
std::int16_t roundedToInt16(double value);

}  // namespace vorla
