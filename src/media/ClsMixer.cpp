#include "media/ClsMixer.h"

#include <cstring>
#include <new>

#include "frame/values/failure.h"

namespace vorla {
namespace {

// The platform's own sizes, which the mixer compares with what it is told.
static_assert(sizeof(MIXERLINEA) == (sizeof(void*) == 4 ? 168 : 172));
static_assert(sizeof(MIXERLINECONTROLSA) == (sizeof(void*) == 4 ? 24 : 28));
static_assert(sizeof(MIXERCONTROLA) == 148);
static_assert(sizeof(MIXERCONTROLDETAILS) == (sizeof(void*) == 4 ? 24 : 32));

// Zeroed global memory for values of this type, locked as long as this exists.
template <class Value>
class LockedBlock {
public:
    explicit LockedBlock(std::size_t count = 1)
        : block_(GlobalAlloc(GMEM_ZEROINIT, count * sizeof(Value))),
          values_(block_ ? static_cast<Value*>(GlobalLock(block_.get())) : nullptr) {
        if (!values_) throw std::bad_alloc();
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;
    ~LockedBlock() { GlobalUnlock(block_.get()); }

    Value* get() const { return values_; }

private:
    const GlobalBlock block_;
    Value* const values_;
};

MIXERCONTROLDETAILS detailsOf(const MIXERCONTROLA& control, DWORD channels, DWORD multipleItems,
                              std::int32_t* values) {
    MIXERCONTROLDETAILS details{};
    details.cbStruct = sizeof details;
    details.dwControlID = control.dwControlID;
    details.cChannels = channels;
    details.cMultipleItems = multipleItems;
    details.cbDetails = sizeof *values;
    details.paDetails = values;
    return details;
}

}  // namespace

ClsMixer::ClsMixer() { worked(mixerOpen(mixer_.put(), 0, 0, 0, 0)); }

bool ClsMixer::worked(MMRESULT code) {
    lastError_ = code;
    return code == MMSYSERR_NOERROR;
}

ClsMixer::Control ClsMixer::getLineControl(DWORD component, DWORD controlType, DWORD lookUp) {
    line_.cbStruct = sizeof line_;
    line_.dwComponentType = component;
    if (!worked(mixerGetLineInfoA(object(), &line_, lookUp))) return {};

    const LockedBlock<MIXERCONTROLA> control;
    MIXERLINECONTROLSA asked{};
    asked.cbStruct = sizeof asked;
    asked.dwLineID = line_.dwLineID;
    asked.dwControlType = controlType;
    asked.cControls = 1;
    asked.cbmxctrl = sizeof *control.get();
    asked.pamxctrl = control.get();
    if (!worked(mixerGetLineControlsA(object(), &asked, MIXER_GETLINECONTROLSF_ONEBYTYPE))) return {};
    return *control.get();
}

ClsMixer::Control ClsMixer::findMixerControl(eMixerType source, media::ControlKind kind) {
    const auto target = media::mixerTarget(source, kind);
    if (!target) return {};
    const auto control = getLineControl(target->component, target->control, target->lookUp);
    if (control || target->alternative == 0) return control;
    return getLineControl(target->alternative, target->control, target->lookUp);
}

std::int32_t ClsMixer::readControlValue(const MIXERCONTROLA& control) {
    const LockedBlock<std::int32_t> value;
    auto details = detailsOf(control, 1, 0, value.get());
    return worked(mixerGetControlDetailsA(object(), &details, MIXER_GETCONTROLDETAILSF_VALUE)) ? *value.get()
                                                                                               : 0;
}

void ClsMixer::writeControlValue(const MIXERCONTROLA& control, std::int32_t value) {
    const LockedBlock<std::int32_t> block;
    *block.get() = value;
    auto details = detailsOf(control, 1, 0, block.get());
    worked(mixerSetControlDetails(object(), &details, MIXER_SETCONTROLDETAILSF_VALUE));
}

bool ClsMixer::PANControlSet(eMixerType MixerType, std::int32_t left, std::int32_t right) {
    return endOnError(false, [&] {
        const auto control = findMixerControl(MixerType, media::ControlKind::volume);
        if (!control) return false;
        const LockedBlock<std::int32_t> volumes(2);
        volumes.get()[0] = left;
        volumes.get()[1] = right;
        auto details = detailsOf(*control, 2, control->cMultipleItems, volumes.get());
        return worked(mixerSetControlDetails(object(), &details, MIXER_SETCONTROLDETAILSF_VALUE));
    });
}

std::int32_t ClsMixer::volume(eMixerType MixerType) {
    constexpr std::int32_t notFound = -1;
    return endOnError(notFound, [&] {
        const auto control = findMixerControl(MixerType, media::ControlKind::volume);
        return control ? readControlValue(*control) : notFound;
    });
}

void ClsMixer::setVolume(eMixerType MixerType, std::int32_t value) {
    endOnError([&] {
        const auto control = findMixerControl(MixerType, media::ControlKind::volume);
        if (control) writeControlValue(*control, value);
    });
}

bool ClsMixer::Mute(eMixerType MixerType) {
    return endOnError(false, [&] {
        const auto control = findMixerControl(MixerType, media::ControlKind::mute);
        return control && readControlValue(*control) == 1;
    });
}

void ClsMixer::setMute(eMixerType MixerType, bool muted) {
    endOnError([&] {
        const auto control = findMixerControl(MixerType, media::ControlKind::mute);
        if (control) writeControlValue(*control, muted ? 1 : 0);
    });
}

}  // namespace vorla
