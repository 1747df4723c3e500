#include "graphics/frame_sizes.h"

#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

// Windows' numbers.
constexpr std::int32_t captionHeight = 4, thinBorderHeight = 6, dialogFrameHeight = 8, sizingFrameWidth = 32,
                       sizingFrameHeight = 33;

std::optional<std::int32_t> borderMetric(std::int32_t style) {
    switch (style) {
        case 1:
        case 3: return dialogFrameHeight;
        // The width, although a height is asked for. It is the same on usual displays, and old hosts expect
        // this one.
        case 2: return sizingFrameWidth;
        case 4: return thinBorderHeight;
        case 5: return sizingFrameHeight;
        default: return {};
    }
}

std::int32_t checked(std::int64_t value) {
    if (value < INT32_MIN || value > INT32_MAX) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int32_t>(value);
}

}  // namespace

std::optional<std::int32_t> frameMetric(WS_Flags part, std::int32_t borderStyle) {
    if (part == WS_Flags::wsBorderHeight) return borderMetric(borderStyle);
    if (part == WS_Flags::wsTitleHeight && borderStyle != 0) return captionHeight;
    return {};
}

std::int32_t comboHeight(std::int16_t lines, std::int32_t lineHeight, std::int32_t fieldHeight) {
    const auto list = checked((std::int64_t{lines} + 1) * lineHeight);
    return checked(std::int64_t{list} + fieldHeight);
}

}  // namespace vorla
