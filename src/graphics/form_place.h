// Where forms and combo boxes stand, and before or after which windows.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/host/host_reference.h"
#include "frame/values/variant.h"

namespace vorla {

/// Centres a form on a parent window: a window handle as a 32-bit integer, or an object with a window.
/// Without one, and on one that is minimised, off the screen or no window, on the main screen. Continue on
/// error.
void centreForm(const HostObject& form, VariantView parent);

/// Puts a form before or after other windows. Unguarded.
void putInOrder(const HostObject& form, ewPos position);

/// The height or width in pixels of a part of a form's frame; 0 for a part that the form has not. Unguarded.
std::int32_t frameSize(const HostObject& form, WS_Flags part);

/// Makes the list of a combo box one line longer than `lines`, and `listWidth` pixels wide if that is above
/// 0. Error 6 for a height past 32 bits; otherwise unguarded.
void sizeComboList(const HostObject& combo, std::int16_t lines, std::int32_t listWidth);

}  // namespace vorla
