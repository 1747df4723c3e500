// Handles of windows and device contexts as hosts see them: 32-bit numbers, in both word sizes.
#pragma once

#include <cstdint>

#include "frame/values/winapi.h"

namespace vorla {

inline HWND windowOf(std::int32_t handle) { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(handle)); }
inline HDC contextOf(std::int32_t handle) { return reinterpret_cast<HDC>(static_cast<LONG_PTR>(handle)); }

}  // namespace vorla
