// Where Centre puts a form.
#pragma once

#include <cstdint>

#include "frame/contract/records.h"

namespace vorla {

/// Whether a parent window with these edges counts as visible on the virtual screen. The sum of two edges is
/// compared with the screen's start, and an edge with the screen's size, as if the screen began at 0: old
/// hosts rely on which parents are passed over.
bool isOnScreen(const records::Rect& parent, const records::RectSise& screen);

/// The start of a form of this length, centred on a parent from `parentStart` to `parentEnd`: at least the
/// screen's start, then at most where the form ends at the screen's length.
double centredOnParent(std::int32_t parentStart, std::int32_t parentEnd, double formLength,
                       std::int32_t screenStart, std::int32_t screenLength);

/// The start of a form centred on the screen, within the same limits. `virtualStart` is where the virtual
/// screen begins.
double centredOnScreen(std::int32_t screenLength, double formLength, std::int32_t virtualStart);

}  // namespace vorla
