// The background of a window's menu.
#pragma once

#include <cstdint>

namespace vorla {

/// The whole menu bar instead of one of its menus.
inline constexpr std::int32_t wholeMenuBar = -1;

/// Gives the menu bar of a window, or the menu at this place on it, a background colour, and the menus below
/// it too with `withSubmenus`. The brush lives as long as the menu. False for a window without such a menu.
/// End on error.
bool colourMenu(std::int32_t window, std::int32_t colour, bool withSubmenus, std::int32_t place);

}  // namespace vorla
