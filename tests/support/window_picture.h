// Pictures of windows, for the examples.
#pragma once

#include <string>

#include "frame/values/winapi.h"

namespace vorla::test {

/// Saves a window with its frame, as it is on the screen, in a bitmap file of 24 bits a pixel, and returns
/// whether that worked. Anything still to be painted is painted first, so the window's thread must be
/// processing its messages; it can be another thread of this process. Also works without a screen.
bool saveWindowPicture(HWND window, const std::wstring& file);

}  // namespace vorla::test
