#include "media/mixer_targets.h"

#include <cstddef>
#include <iterator>

namespace vorla::media {
namespace {

constexpr std::uint32_t speakers = 4, undefined = 0x1000, lineIn = 0x1002, microphone = 0x1003,
                        synthesizer = 0x1004, compactDisc = 0x1005, waveOut = 0x1008, auxiliary = 0x1009;
constexpr std::uint32_t volume = 0x50030001, bass = 0x50030002, treble = 0x50030003, mute = 0x20010002;
constexpr std::uint32_t byLineNumber = 2, byComponent = 3;

// In the order of eMixerType.
constexpr struct {
    std::uint32_t component, alternative, control;
} sources[] = {{speakers, 0, volume},    {compactDisc, 0, volume}, {lineIn, auxiliary, volume},
               {microphone, 0, volume},  {undefined, 0, volume},   {waveOut, 0, volume},
               {synthesizer, 0, volume}, {speakers, 0, bass},      {speakers, 0, treble}};

}  // namespace

std::optional<MixerTarget> mixerTarget(eMixerType source, ControlKind kind) {
    const auto number = static_cast<std::uint32_t>(source);
    if (number >= std::size(sources)) return {};
    const auto& row = sources[number];
    if (kind == ControlKind::mute) return MixerTarget{row.component, row.alternative, mute, byLineNumber};
    return MixerTarget{row.component, row.alternative, row.control, byComponent};
}

}  // namespace vorla::media
