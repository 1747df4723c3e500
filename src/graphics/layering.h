// What FormTransparente does to a window.
#pragma once

#include <cstdint>
#include <optional>

#include "frame/contract/enumerations.h"

namespace vorla {

/// Whether this Windows can make windows transparent. False for a version without a code, such as one later
/// than Vista.
constexpr bool canLayer(WinVer version) { return version >= WinVer::Win2K; }

/// What the caller asks for: an opacity from 0 (invisible) to 255, and a colour that is not drawn.
struct LayeringWish {
    std::optional<std::uint8_t> opacity;
    std::optional<std::int32_t> colourKey;
};

struct Layering {
    enum class Action { none, remove, apply };

    Action action = Action::none;
    std::int32_t colourKey = 0;
    std::uint8_t opacity = 255;
    std::uint32_t flags = 0;  // Windows' own: 1 for the colour key, 2 for the opacity

    bool operator==(const Layering&) const = default;
};

/// A window that is not layered becomes so for a colour key or for less than full opacity. A layered one
/// stops being so for neither an opacity nor a key, and for full opacity without a key.
Layering layeringFor(const LayeringWish& wish, bool isLayered);

}  // namespace vorla
