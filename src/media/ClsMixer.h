// The audio mixer of the first mixer device, open as long as this object lives. VorlaMultiMedia makes one for
// each request.
#pragma once

#include <cstdint>
#include <optional>

#include "frame/contract/enumerations.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"
#include "media/mixer_targets.h"

namespace vorla {

/// No member raises an error: what the mixer refuses or lacks gives the neutral result.
class ClsMixer {
public:
    ClsMixer();

    /// Sets the left and right volume of a source, 0 to 65535. Whether that worked.
    bool PANControlSet(eMixerType MixerType, std::int32_t left, std::int32_t right);

    /// The volume of a source: -1 when its line or control does not exist, 0 when reading fails.
    std::int32_t volume(eMixerType MixerType);
    /// Sets every channel of a source to the same volume.
    void setVolume(eMixerType MixerType, std::int32_t value);

    /// Whether a source is muted; false when that is unknown.
    bool Mute(eMixerType MixerType);
    void setMute(eMixerType MixerType, bool muted);

    /// The code of the latest call of the mixer; 0 when it worked.
    MMRESULT lastError() const { return lastError_; }

private:
    using Control = std::optional<MIXERCONTROLA>;

    HMIXEROBJ object() const { return reinterpret_cast<HMIXEROBJ>(mixer_.get()); }
    bool worked(MMRESULT code);
    Control findMixerControl(eMixerType source, media::ControlKind kind);
    Control getLineControl(DWORD component, DWORD controlType, DWORD lookUp);
    std::int32_t readControlValue(const MIXERCONTROLA& control);
    void writeControlValue(const MIXERCONTROLA& control, std::int32_t value);

    OpenMixer mixer_;
    MMRESULT lastError_ = MMSYSERR_NOERROR;  // LastMixerError
    // Kept between calls: the look-up of a mute reads the line's number in it.
    MIXERLINEA line_{};
};

}  // namespace vorla
