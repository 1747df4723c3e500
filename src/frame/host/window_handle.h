// The windows of host objects.
#pragma once

#include <cstdint>

#include "frame/values/winapi.h"

namespace vorla {

/// The window of a handle as hosts know it: a 32-bit number in both word sizes.
inline HWND windowOf(std::int32_t handle) { return reinterpret_cast<HWND>(static_cast<INT_PTR>(handle)); }

}  // namespace vorla
