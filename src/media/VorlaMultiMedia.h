// VorlaMultiMedia: media playback, audio CDs and the mixer.
//
// Files and discs are open under aliases, which belong to the whole process: see media/aliases.h. What a
// device refuses raises no error. Members run on the caller's thread until they end, fades and waits
// included. Volumes are percentages unless a member says otherwise. Texts reach the devices in the ANSI code
// page, up to their first NUL character.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/host/host_reference.h"
#include "frame/values/text.h"
#include "frame/values/variant.h"
#include "media/commands.h"
#include "media/mci.h"

namespace vorla {

class VorlaMultiMedia {
public:
    /// The channels that hosts reserve for music and for comments.
    mmCanal cCanalMusique();
    mmCanal cCanalComment();

    /// Plays a file and returns its alias; empty for a file in a folder that does not exist, for a track of a
    /// disc, and for a start (in seconds) beyond the file's end. What used the alias before is closed. Video
    /// and unknown kinds play in the window of `image`, and with `Synchrone` until their end, after which
    /// they are closed. Continue on error.
    Text MMPlay(TextView FileName, mmCanal Canal, bool Boucle, std::uint8_t volume, const HostObject& image,
                bool PleinEcran, VariantView Synchrone, std::int32_t StartSecond);

    /// Fades out, stops and closes an alias, or all types on a channel or (`All`) on every channel, the disc
    /// included. Whether all was closed, and always false for `Sources` or `FileName`; old hosts rely on it.
    /// End on error: the result so far.
    bool MMClose(TextView Alias, MMType Sources, mmCanal Canal, TextView FileName, bool All,
                 eMMCloseStyle CloseSlowly);

    /// A file's length: milliseconds (32-bit integer), seconds (double) or a time of day as text. Empty for
    /// another unit. Error 6 for a text of more than 32,767 seconds.
    Variant MMMediaLen(TextView FileName, const eMMReturnVal& ReturnValue);

    /// Sets the volume of an alias, or of all given types on a channel.
    void MMVolume(std::uint8_t NewVolume, TextView Alias, MMType Sources, mmCanal Canal, TextView FileName);

    /// Goes from the present volume of an alias to a new one, level by level. Errors: 13 for a device that
    /// answers with no number, 6 for one of more than 32 bits.
    void MMIncreaseVolume(TextView Alias, std::uint8_t NewVolume, eMMCloseStyle CloseSlowly);

    /// The volume of an alias; 0 when it is not open. Errors: 13 for a device that answers with no number, 6
    /// for one of more than 16 bits.
    std::int16_t MMVolGet(TextView Alias);

    /// Whether an alias plays, or one of the given types on a channel.
    bool MMIsPlaying(TextView Alias, MMType Sources, mmCanal Canal, TextView FileName);

    /// Whether an alias is open, whatever it does.
    bool MMIsOpen(TextView Alias);

    /// What the device of an alias does; see statusIn(). Continue on error.
    emciStatus MMStatus(TextView Alias);

    /// Pauses an alias and stores its volume for later (100 when it has none; left alone when the answer is
    /// no volume), or goes on at the stored volume. Continue on error.
    void MMPause(TextView Alias, bool Pause, std::uint8_t& volume, bool Boucle);

    /// The volumes of the wave device, and the larger of both.
    std::uint8_t MMVolumePercentGet(std::uint8_t& VolGauche, std::uint8_t& VolDroit);

    /// Sets the left and right volume of a source of sound; without a right one both are equal. The left
    /// variable is limited to 100. Continue on error.
    void MMVolumePercentLet(std::uint8_t& NewGauche, VariantView NewDroite, eMixerType TypeVol);

    /// Plays one of the system's sounds. `ssBeep` and other values make none; old hosts rely on it.
    void PlaySystemSound(const SystemSound& Type_Sound);

    /// Whether there is a device for waves, or for MIDI.
    bool IsSoundCard();
    bool IsMidiEnabled();

    /// The volume of a source, 0 to 65535; see ClsMixer::volume().
    std::int32_t MMMixVolume(eMixerType MixerType);
    void setMMMixVolume(eMixerType MixerType, std::int32_t volume);

    /// Sets the left and right volume of a source, 0 to 65535. Whether that worked.
    bool MMMixPanVolume(eMixerType MixerType, std::int32_t NewLeftVolume, std::int32_t NewRightVolume);

    /// From the mixer's scale to a percentage and back; see percentOfVolume(). Only the first can fail, with
    /// error 6.
    std::uint8_t MMMixConvToPercent(std::int32_t VolLong);
    std::int32_t MMMixConvToLong(std::uint8_t VolPercent);

    /// The alias of the disc, open or not.
    TextView MMCDAlias();

    /// Opens the disc in the drive of a path, after stopping the one that is open. Whether that worked.
    bool MMCDOpen(TextView Lecteur);

    /// Whether a disc with an audio track is there. The device is closed again if it was not open. Error 13
    /// for a device that answers neither true nor false.
    bool MMCDIsReady(TextView Lecteur);

    /// Whether the tray is open. Like the members below, opens the device if needed and leaves it open.
    bool MMCDIsOpen(TextView Lecteur);

    /// Plays the disc from its beginning. The device is opened anew: without a drive nothing plays.
    bool MMCDPlay(TextView Lecteur);

    /// Fades out a playing disc, and closes the device. Whether it was closed.
    bool MMCDStop();

    /// Opens the tray or closes it, then closes the device.
    void MMCDEjectClose(TextView Lecteur);

    /// Pauses the disc, or goes on.
    void MMCDPause();

    /// Plays the disc from a track on, or the track alone; from an offset in milliseconds unless that is -1.
    /// Track 0 is the first. Errors: 13 for a device that answers with no number, 6 for positions of more
    /// than 32 bits.
    bool MMCDPlayTrack(std::int16_t TrackNum, TextView Lecteur, const bool& StopAtEndOfTrack,
                       const std::int32_t& StartToMs);

    /// The audio tracks as an array of texts from 1 on, numbered among themselves, with lengths in the
    /// device's present format; a host's list box or combo box gets them too. Empty without a disc. Errors of
    /// the list reach the host and leave the device open.
    Variant MMCDTracks(TextView Lecteur, bool TrackTime, TextView TrackPrefixe, const HostObject& LstCmb);

    /// The length of the disc, the position on it, and the position in a track (0 is the one that plays), in
    /// the given unit: 32-bit integers or a text; see DureeTexte(). Empty when no disc is open. Error 6 for
    /// more than 32 bits.
    Variant MMCDLenght(eMMReturnVal FormatTime);
    Variant MMCDPosition(eMMReturnVal FormatTime);
    Variant MMCDTrackPosition(std::int16_t TrackNum, eMMReturnVal FormatTime);

    /// The length of a track; 0 when no disc is open. Error 13 for its length as text, which is not an
    /// integer; old hosts rely on it.
    std::int32_t MMCDTrackLenght(std::int16_t TrackNum, eMMReturnVal FormatTime);

    /// The track that plays. Continue on error: 0.
    std::int16_t MMCDTrackCurrent();

    /// The number of audio tracks; other tracks do not count. Continue on error: 0.
    std::int16_t MMCDTrackCount();

    /// Whether a path names a track on a disc, by its drive and extension. End on error: false.
    bool IsCd(TextView FileName);

    /// The number of a track by its file's name: 5 for "Track05.cda", 0 for other names. End on error: 0.
    std::int16_t MMCDTrackNumberGet(TextView FileName);

private:
    std::int32_t lengthOf(TextView alias);
    bool seekStart(TextView alias, std::int32_t seconds);
    bool playSound(TextView file, TextView alias, bool repeat, std::int32_t startSecond);
    bool playPicture(TextView file, TextView alias, const HostObject& image, media::PlayOptions options,
                     std::int32_t startSecond);
    void setLevel(TextView alias, std::int32_t level);
    void setReducedLevel(TextView alias, std::int32_t level);
    void fadeOutAlias(TextView alias, eMMCloseStyle style);
    bool closeAlias(TextView alias, eMMCloseStyle style);
    bool closeTypes(mmCanal channel, MMType sources, eMMCloseStyle style);
    bool closeAllChannels(eMMCloseStyle style);
    bool isAliasPlaying(TextView alias);
    void rampDisc(std::uint8_t percent, eMMCloseStyle style);

    bool hasDisc() const { return !discAlias_.empty(); }
    bool prepareDisc(TextView drive);

    media::Mci mci_;
    // CdAliasOpen: the alias of the disc while this object has it open.
    TextView discAlias_;
};

}  // namespace vorla
