// Which line and control of the mixer stands for each source of sound.
#pragma once

#include <cstdint>
#include <optional>

#include "frame/contract/enumerations.h"

namespace vorla::media {

enum class ControlKind { volume, mute };

/// What the mixer is asked for, in the numbers of its interface.
struct MixerTarget {
    std::uint32_t component;    // the line's type
    std::uint32_t alternative;  // the type of the line to take if there is none of the first; 0 for no other
    std::uint32_t control;      // the control's type
    std::uint32_t lookUp;       // how the line is looked up: by its type or by its number
};

/// The line and control of a source; none for a source that does not exist. Bass and treble belong to the
/// master line, and so does their mute.
///
/// A mute is looked up by the line's number, which is the one of the line looked up before, or 0. Old hosts
/// rely on it.
std::optional<MixerTarget> mixerTarget(eMixerType source, ControlKind kind);

}  // namespace vorla::media
