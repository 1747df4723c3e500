// The sizes of a form's title bar and border, and of a combo box with its list.
#pragma once

#include <cstdint>
#include <optional>

#include "frame/contract/enumerations.h"

namespace vorla {

/// The system metric that is the height of the title bar or the border of a form with this border style; none
/// for a part that the form has not, and for an unknown part or style.
std::optional<std::int32_t> frameMetric(WS_Flags part, std::int32_t borderStyle);

/// The height of a combo box whose list shows one line more than `lines`. Error 6 past 32 bits.
std::int32_t comboHeight(std::int16_t lines, std::int32_t lineHeight, std::int32_t fieldHeight);

}  // namespace vorla
