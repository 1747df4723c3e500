// Pictures of windows, for examples that show what they do and for people who look at them.
#pragma once

#include <string>

#include "frame/values/winapi.h"

namespace vorla::test {

/// Saves a window with its frame as it stands on the screen in a bitmap file of 24 bits a pixel; whether
/// that worked. What is still to be painted is painted first, so the window's thread must be handling its
/// messages; it may be another one of the process. Works without a screen too.
bool saveWindowPicture(HWND window, const std::wstring& file);

}  // namespace vorla::test
