#include "graphics/screen_measures.h"

#include "frame/host/globals.h"
#include "frame/shared/system_queries.h"
#include "frame/values/winapi.h"
#include "graphics/screen_size.h"

namespace vorla {

std::int32_t screenWidth(eUnit unit) {
    return inUnit(GetSystemMetrics(SM_CXSCREEN), unit, screen::twipsPerPixelX());
}

// The horizontal factor here too: old hosts rely on it.
std::int32_t screenHeight(eUnit unit) {
    return inUnit(GetSystemMetrics(SM_CYSCREEN), unit, screen::twipsPerPixelX());
}

records::RectSise virtualScreen(eUnit unit) {
    Text name;
    if (!hasVirtualScreen(VersionWindows(name))) return {0, 0, screenWidth(unit), screenHeight(unit)};
    const auto x = screen::twipsPerPixelX(), y = screen::twipsPerPixelY();
    return {inUnit(GetSystemMetrics(SM_XVIRTUALSCREEN), unit, x),
            inUnit(GetSystemMetrics(SM_YVIRTUALSCREEN), unit, y),
            inUnit(GetSystemMetrics(SM_CXVIRTUALSCREEN), unit, x),
            inUnit(GetSystemMetrics(SM_CYVIRTUALSCREEN), unit, y)};
}

}  // namespace vorla
