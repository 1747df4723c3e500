#include "media/VorlaMultiMedia.h"

#include <algorithm>
#include <optional>

#include "frame/host/bound_object.h"
#include "frame/shared/comparison.h"
#include "frame/shared/files.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/winapi.h"
#include "media/ClsMixer.h"
#include "media/aliases.h"
#include "media/commands.h"
#include "media/levels.h"
#include "media/mixer_scale.h"
#include "media/replies.h"

namespace vorla {
namespace {

using namespace media;

// The waits between two levels, in milliseconds.
constexpr DWORD fadeWait = 1, rampWait = 10;

// The kind of the file; -1 without a name. The name becomes its short form, which has no blanks and which the
// kind is taken from: "film.mpeg" may be "FILM.MPE", of no known kind.
MMType typeOf(Text& fileName) {
    if (fileName.empty()) return fromFileName;
    fileName = CheminCourt(trimmed(fileName));
    return typeOfExtension(upperCased(DecoupeChemin(fileName, eFileN::eFExtension).text()));
}

// The types that a volume or a state is asked of.
MMType askedTypes(MMType sources, TextView fileName) {
    if (sources != fromFileName) return sources;
    Text name(fileName);
    const auto type = typeOf(name);
    return type == fromFileName ? allTypes : type;
}

struct Playable {
    Text shortName, alias;
    MMType type;
};

// None for what MMPlay does not play. End on error: none.
std::optional<Playable> playable(TextView fileName, mmCanal channel) {
    return endOnError(std::optional<Playable>(), [&]() -> std::optional<Playable> {
        if (fileName.empty() || !ExisteDossier(fileName)) return {};
        Text shortName(fileName);
        const auto type = typeOf(shortName);
        if (type == MMType::CD) return {};
        auto alias = aliasName(channel, type, shortName);
        return Playable{std::move(shortName), std::move(alias), type};
    });
}

std::int32_t windowOf(const HostObject& image) {
    return endOnError(std::int32_t{0}, [&] { return BoundObject(image).getAs<std::int32_t>(L"hwnd"); });
}

// A value limited to 0 to 100 by the host's comparison, which takes any text as greater than a number.
double limited(VariantView value) {
    const auto atMost = MinVar(value, Variant(std::int32_t{100}).view());
    return convertedTo<double>(MaxVar(atMost.view(), Variant(std::int32_t{0}).view()).view());
}

}  // namespace

mmCanal VorlaMultiMedia::cCanalMusique() { return mmCanal::Canal4; }
mmCanal VorlaMultiMedia::cCanalComment() { return mmCanal::Canal5; }

// Milliseconds, because the devices are set to them.
std::int32_t VorlaMultiMedia::lengthOf(TextView alias) {
    mci_.ask(useMs(alias), longReply);
    return beginningInt32(mci_.ask(status(alias, L"length"), longReply).text);
}

// Whether there is something to play from the start position on.
bool VorlaMultiMedia::seekStart(TextView alias, std::int32_t seconds) {
    if (seconds < 0) return true;
    std::int32_t length = 0;
    step([&] { length = lengthOf(alias); });
    // With 64 bits: a start that needs them is beyond the end of every file.
    const auto start = std::int64_t{seconds} * 1000;
    if (start > length) {
        step([&] { mci_.send(closeCapital(alias)); });
        return false;
    }
    step([&] { mci_.send(seek(alias, static_cast<std::int32_t>(start))); });
    return true;
}

bool VorlaMultiMedia::playSound(TextView file, TextView alias, bool repeat, std::int32_t startSecond) {
    step([&] { mci_.send(openFile(file, alias)); });
    step([&] { mci_.send(useMilliseconds(alias)); });
    if (!seekStart(alias, startSecond)) return false;
    step([&] { mci_.send(play(alias, {.repeat = repeat})); });
    return true;
}

bool VorlaMultiMedia::playPicture(TextView file, TextView alias, const HostObject& image, PlayOptions options,
                                  std::int32_t startSecond) {
    const auto window = windowOf(image);
    step([&] { mci_.send(openFile(file, alias, window)); });
    step([&] { mci_.send(useMilliseconds(alias)); });
    if (!seekStart(alias, startSecond)) return false;
    step([&] { mci_.send(play(alias, options)); });
    return true;
}

Text VorlaMultiMedia::MMPlay(TextView FileName, mmCanal Canal, bool Boucle, std::uint8_t volume,
                             const HostObject& image, bool PleinEcran, VariantView Synchrone,
                             std::int32_t StartSecond) {
    auto file = playable(FileName, Canal);
    if (!file) return {};
    const std::int32_t level = volume * 10;
    step([&] { mci_.send(close(file->alias)); });
    if (isSound(file->type)) {
        if (!playSound(file->shortName, file->alias, Boucle, StartSecond)) return {};
        setReducedLevel(file->alias, level);
        return std::move(file->alias);
    }
    const bool wait = endOnError(false, [&] { return convertedTo<bool>(Synchrone); });
    // A device that is waited for cannot repeat. Its volume is only set afterwards; old hosts rely on it.
    const PlayOptions options{wait, Boucle && !wait, PleinEcran};
    if (!playPicture(file->shortName, file->alias, image, options, StartSecond)) return {};
    setReducedLevel(file->alias, level);
    if (wait) step([&] { mci_.send(close(file->alias)); });
    return std::move(file->alias);
}

void VorlaMultiMedia::fadeOutAlias(TextView alias, eMMCloseStyle style) {
    const auto reply = mci_.ask(status(alias, L"volume"), longReply);
    if (!reply.worked || style == eMMCloseStyle::emmcsFast) return;
    // A device that answers with no volume is made silent at once.
    const auto from = endOnError(std::int16_t{0}, [&] { return reply.as<std::int16_t>(); });
    fadeOut(from, style, [&](std::int32_t level) {
        step([&] { mci_.send(setVolume(alias, level)); });
        Sleep(fadeWait);
    });
}

bool VorlaMultiMedia::closeAlias(TextView alias, eMMCloseStyle style) {
    bool closed = false;
    step([&] { fadeOutAlias(alias, style); });
    step([&] { mci_.send(stopCapital(alias)); });
    step([&] { closed = mci_.send(closeCapital(alias)); });
    return closed;
}

// Whether all of them were closed.
bool VorlaMultiMedia::closeTypes(mmCanal channel, MMType sources, eMMCloseStyle style) {
    bool closed = true;
    for (const auto type : closingOrder)
        if (has(sources, type) && !closeAlias(aliasName(channel, type), style)) closed = false;
    return closed;
}

bool VorlaMultiMedia::closeAllChannels(eMMCloseStyle style) {
    bool closed = true;
    for (std::int32_t channel = 0; channel < channelCount; ++channel)
        if (!closeTypes(static_cast<mmCanal>(channel), allTypes, style)) closed = false;
    return closed;
}

bool VorlaMultiMedia::MMClose(TextView Alias, MMType Sources, mmCanal Canal, TextView FileName, bool All,
                              eMMCloseStyle CloseSlowly) {
    bool result = false;
    step([&] {
        if (!Alias.empty()) {
            result = Alias == discAlias ? MMCDStop() : closeAlias(Alias, CloseSlowly);
        } else if (All || (FileName.empty() && Sources == fromFileName)) {
            result = All ? closeAllChannels(CloseSlowly) : closeTypes(Canal, allTypes, CloseSlowly);
            if (isAliasPlaying(discAlias)) result = MMCDStop();
        } else {
            // The result stays false: old hosts rely on it.
            Text name(FileName);
            closeTypes(Canal, Sources == fromFileName ? typeOf(name) : Sources, CloseSlowly);
        }
    });
    return result;
}

Variant VorlaMultiMedia::MMMediaLen(TextView FileName, const eMMReturnVal& ReturnValue) {
    mci_.send(openFile(CheminCourt(FileName), lengthAlias));
    mci_.ask(useMs(lengthAlias), longReply);
    const auto reply = mci_.ask(status(lengthAlias, L"length"), longReply);
    mci_.send(close(lengthAlias));
    const auto length = beginningInt32(reply.text);
    switch (ReturnValue) {
        case eMMReturnVal::ervMillisecondes: return length;
        case eMMReturnVal::ervSecondes: return length / 1000.0;
        case eMMReturnVal::ervStringSecondes: {
            constexpr double day = 24 * 60 * 60;
            const Variant time(Date{roundedTo<std::int16_t>(length / 1000.0) / day});
            return formattedValue(time.view(), L"Hh:Nn:Ss");
        }
    }
    return {};
}

// The disc's volume is the mixer's.
void VorlaMultiMedia::setLevel(TextView alias, std::int32_t level) {
    step([&] {
        if (alias == discAlias)
            setMMMixVolume(eMixerType::emxtCD, MMMixConvToLong(roundedTo<std::uint8_t>(level / 10.0)));
        else
            mci_.send(setVolume(alias, level));
    });
}

// At the full level a device plays at its own.
void VorlaMultiMedia::setReducedLevel(TextView alias, std::int32_t level) {
    if (level < fullLevel) setLevel(alias, level);
}

void VorlaMultiMedia::MMVolume(std::uint8_t NewVolume, TextView Alias, MMType Sources, mmCanal Canal,
                               TextView FileName) {
    const std::int32_t level = NewVolume * 10;
    if (!Alias.empty()) return setLevel(Alias, level);
    const auto types = askedTypes(Sources, FileName);
    for (const auto type : askingOrder)
        if (has(types, type)) setLevel(aliasName(Canal, type), level);
    if (has(types, MMType::CD)) setLevel(discAlias, level);
}

void VorlaMultiMedia::rampDisc(std::uint8_t percent, eMMCloseStyle style) {
    const auto target = volumeOfPercent(percent);
    ramp(MMMixVolume(eMixerType::emxtCD), target, discSteps, style, [&](std::int32_t volume) {
        setMMMixVolume(eMixerType::emxtCD, volume);
        Sleep(rampWait);
    });
    setMMMixVolume(eMixerType::emxtCD, target);
}

void VorlaMultiMedia::MMIncreaseVolume(TextView Alias, std::uint8_t NewVolume, eMMCloseStyle CloseSlowly) {
    if (Alias == discAlias) return rampDisc(NewVolume, CloseSlowly);
    const auto reply = mci_.ask(status(Alias, L"volume"), longReply);
    if (!reply.worked) return;
    const std::int32_t target = NewVolume * 10;
    ramp(reply.as<std::int32_t>(), target, deviceSteps, CloseSlowly, [&](std::int32_t level) {
        mci_.send(setVolume(Alias, level));
        Sleep(rampWait);
    });
    mci_.send(setVolume(Alias, target));
}

std::int16_t VorlaMultiMedia::MMVolGet(TextView Alias) {
    if (Alias == discAlias) return MMMixConvToPercent(MMMixVolume(eMixerType::emxtCD));
    const auto reply = mci_.ask(status(Alias, L"volume"), longReply);
    return reply.worked ? roundedTo<std::int16_t>(reply.as<std::int16_t>() / 10.0) : std::int16_t{0};
}

bool VorlaMultiMedia::isAliasPlaying(TextView alias) {
    return endOnError(false, [&] { return saysPlaying(mci_.ask(statusMode(alias), modeReply).text); });
}

bool VorlaMultiMedia::MMIsPlaying(TextView Alias, MMType Sources, mmCanal Canal, TextView FileName) {
    if (!Alias.empty()) return isAliasPlaying(Alias);
    const auto types = askedTypes(Sources, FileName);
    for (const auto type : askingOrder)
        if (has(types, type) && isAliasPlaying(aliasName(Canal, type))) return true;
    return has(types, MMType::CD) && isAliasPlaying(discAlias);
}

bool VorlaMultiMedia::MMIsOpen(TextView Alias) { return mci_.ask(statusMode(Alias), modeReply).worked; }

emciStatus VorlaMultiMedia::MMStatus(TextView Alias) {
    return endOnError(emciStatus::mcistPlaying, [&] {
        const auto reply = mci_.ask(statusMode(Alias), modeReply);
        return mci_.lastError() == MCIERR_INVALID_DEVICE_NAME ? emciStatus::mcistInvalidNotOpen
                                                              : statusIn(reply.text);
    });
}

void VorlaMultiMedia::MMPause(TextView Alias, bool Pause, std::uint8_t& volume, bool Boucle) {
    if (!Pause) {
        step([&] { mci_.send(play(Alias, {.repeat = Boucle})); });
        setLevel(Alias, volume * 10);
        return;
    }
    step([&] {
        const auto reply = mci_.ask(status(Alias, L"volume"), longReply);
        volume = reply.worked ? roundedTo<std::uint8_t>(reply.as<double>() / 10) : std::uint8_t{100};
    });
    step([&] { mci_.send(pause(Alias)); });
}

std::uint8_t VorlaMultiMedia::MMVolumePercentGet(std::uint8_t& VolGauche, std::uint8_t& VolDroit) {
    DWORD volumes = 0;
    waveOutGetVolume(reinterpret_cast<HWAVEOUT>(static_cast<UINT_PTR>(WAVE_MAPPER)), &volumes);
    VolGauche = percentOfVolume(LOWORD(volumes));
    VolDroit = percentOfVolume(HIWORD(volumes));
    return std::max(VolGauche, VolDroit);
}

void VorlaMultiMedia::MMVolumePercentLet(std::uint8_t& NewGauche, VariantView NewDroite, eMixerType TypeVol) {
    NewGauche = std::min(NewGauche, std::uint8_t{100});
    // A right volume that is not a number counts as 0.
    const auto right = endOnError(std::int32_t{0}, [&] {
        return volumeOfPercent(NewDroite.isMissing() ? NewGauche : limited(NewDroite));
    });
    MMMixPanVolume(TypeVol, volumeOfPercent(NewGauche), right);
}

void VorlaMultiMedia::PlaySystemSound(const SystemSound& Type_Sound) {
    switch (Type_Sound) {
        case SystemSound::SSOK:
        case SystemSound::ssArrêt_Critique:
        case SystemSound::ssQuestion:
        case SystemSound::ssExclamation:
        case SystemSound::ssAsterix:
        case SystemSound::ssDefaut: MessageBeep(static_cast<UINT>(Type_Sound)); break;
        case SystemSound::ssBeep: break;
    }
}

bool VorlaMultiMedia::IsSoundCard() { return waveOutGetNumDevs() >= 1; }
bool VorlaMultiMedia::IsMidiEnabled() { return midiOutGetNumDevs() >= 1; }

std::int32_t VorlaMultiMedia::MMMixVolume(eMixerType MixerType) { return ClsMixer().volume(MixerType); }

void VorlaMultiMedia::setMMMixVolume(eMixerType MixerType, std::int32_t volume) {
    ClsMixer().setVolume(MixerType, volume);
}

bool VorlaMultiMedia::MMMixPanVolume(eMixerType MixerType, std::int32_t NewLeftVolume,
                                     std::int32_t NewRightVolume) {
    return ClsMixer().PANControlSet(MixerType, NewLeftVolume, NewRightVolume);
}

std::uint8_t VorlaMultiMedia::MMMixConvToPercent(std::int32_t VolLong) { return percentOfVolume(VolLong); }
std::int32_t VorlaMultiMedia::MMMixConvToLong(std::uint8_t VolPercent) { return volumeOfPercent(VolPercent); }

}  // namespace vorla
