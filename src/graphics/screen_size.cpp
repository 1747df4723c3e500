#include "graphics/screen_size.h"

#include "frame/values/rounding.h"

namespace vorla {

bool hasVirtualScreen(WinVer version) {
    switch (version) {
        case WinVer::WinNT351:
        case WinVer::Win95:
        case WinVer::Win95Osr2:
        case WinVer::WinNT4: return false;
        default: return true;
    }
}

std::int32_t inUnit(std::int32_t pixels, eUnit unit, float twipsPerPixel) {
    return unit == eUnit::euTwips ? roundedToInt32(pixels * double{twipsPerPixel}) : pixels;
}

std::int16_t roundedToInt16(double value) {
    const auto rounded = roundedToInt32(value);
    if (rounded < -32768 || rounded > 32767) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int16_t>(rounded);
}

}  // namespace vorla
