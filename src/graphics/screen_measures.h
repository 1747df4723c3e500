// The sizes of the screen and of the virtual screen around all monitors, asked from Windows at each call: a
// host can move to another display.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/contract/records.h"

namespace vorla {

/// The width and height of the main screen. Twips are computed by the horizontal factor for both; the two
/// factors are equal on usual displays.
std::int32_t screenWidth(eUnit unit);
std::int32_t screenHeight(eUnit unit);

/// The virtual screen; the main screen on a Windows that has no virtual one.
records::RectSise virtualScreen(eUnit unit);

}  // namespace vorla
