// The members of VorlaMultiMedia for audio CDs.
#include <new>
#include <vector>

#include "frame/host/bound_object.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/durations.h"
#include "frame/shared/files.h"
#include "frame/shared/paths.h"
#include "frame/shared/system_queries.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/leading_number.h"
#include "media/VorlaMultiMedia.h"
#include "media/aliases.h"
#include "media/disc_tracks.h"
#include "media/replies.h"
#include "media/rounded.h"
#include "media/times.h"

namespace vorla {
namespace {

using namespace media;

// Windows has a macro of the enumeration's name for it.
constexpr auto discDrive = static_cast<eDriveType>(DRIVE_CDROM);

Text clockTextOf(std::int32_t milliseconds) { return DureeTexte(wholeSeconds(milliseconds), true); }

// The time in a unit; Empty for a unit that does not exist.
Variant inUnit(eMMReturnVal unit, std::int32_t milliseconds) {
    switch (unit) {
        case eMMReturnVal::ervMillisecondes: return milliseconds;
        case eMMReturnVal::ervSecondes: return wholeSeconds(milliseconds);
        case eMMReturnVal::ervStringSecondes: return TextView(clockTextOf(milliseconds));
    }
    return {};
}

// The texts as an array that begins at 1.
Variant arrayFrom1(const std::vector<Text>& texts) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(texts.size()), 1};
    const auto array = SafeArrayCreate(VT_BSTR, 1, &bound);
    if (!array) throw std::bad_alloc();
    Variant result;
    result.put()->vt = VT_ARRAY | VT_BSTR;
    result.put()->parray = array;
    const auto elements = static_cast<BSTR*>(array->pvData);
    for (std::size_t i = 0; i < texts.size(); ++i) elements[i] = Bstr(TextView(texts[i])).detach();
    return result;
}

bool takesTracks(const HostObject& list) {
    if (!list) return false;
    const auto name = typeName(list);
    return isComboBox(name) || isListBox(name);
}

}  // namespace

TextView VorlaMultiMedia::MMCDAlias() { return discAlias; }

bool VorlaMultiMedia::MMCDOpen(TextView Lecteur) {
    if (Lecteur.empty()) return false;
    if (hasDisc()) MMCDStop();
    const auto drive = AjouteAntiSlash(DecoupeChemin(Lecteur, eFileN::efDisque).text()).text();
    const bool opened = mci_.send(openDisc(drive, discAlias));
    discAlias_ = opened ? discAlias : TextView();
    return opened;
}

// Whether there is a disc to ask for or a drive to open. A drive that cannot be opened leaves the alias
// empty, and the commands that follow fail.
bool VorlaMultiMedia::prepareDisc(TextView drive) {
    if (drive.empty() && !hasDisc()) return false;
    if (!hasDisc()) MMCDOpen(drive);
    return true;
}

bool VorlaMultiMedia::MMCDIsReady(TextView Lecteur) {
    const bool wasOpen = hasDisc();
    if (!prepareDisc(Lecteur)) return false;
    const auto closeAgain = [&] {
        if (!wasOpen) MMCDStop();
    };
    try {
        const auto reply = mci_.ask(status(discAlias_, L"media present"), discReply);
        const bool ready = reply.worked && reply.as<bool>() && MMCDTrackCount() >= 1;
        closeAgain();
        return ready;
    } catch (...) {
        closeAgain();
        throw;
    }
}

bool VorlaMultiMedia::MMCDIsOpen(TextView Lecteur) {
    if (!prepareDisc(Lecteur)) return false;
    return mci_.ask(statusMode(discAlias_), discReply).text == L"open";
}

bool VorlaMultiMedia::MMCDPlay(TextView Lecteur) {
    if (Lecteur.empty() && !hasDisc()) return false;
    if (hasDisc()) MMCDStop();
    MMCDOpen(Lecteur);
    return mci_.send(play(discAlias_));
}

bool VorlaMultiMedia::MMCDStop() {
    if (!hasDisc()) return false;
    if (isAliasPlaying(discAlias)) {
        const auto volume = MMMixVolume(eMixerType::emxtCD);
        MMIncreaseVolume(discAlias, 0, eMMCloseStyle::emmcsNormal);
        setMMMixVolume(eMixerType::emxtCD, volume);
    }
    mci_.send(stop(discAlias_));
    const bool closed = mci_.send(close(discAlias_));
    discAlias_ = {};
    return closed;
}

void VorlaMultiMedia::MMCDEjectClose(TextView Lecteur) {
    if (!prepareDisc(Lecteur)) return;
    const bool isOpen = mci_.ask(statusMode(discAlias_), discReply).text == L"open";
    mci_.send(isOpen ? closeDoor(discAlias_) : openDoor(discAlias_));
    MMCDStop();
}

void VorlaMultiMedia::MMCDPause() {
    if (!hasDisc()) return;
    switch (MMStatus(discAlias_)) {
        case emciStatus::mcistPlaying: mci_.send(pause(discAlias_)); break;
        case emciStatus::mcistPaused:
        case emciStatus::mcistStopped: mci_.send(resume(discAlias_)); break;
        default: break;
    }
}

bool VorlaMultiMedia::MMCDPlayTrack(std::int16_t TrackNum, TextView Lecteur, const bool& StopAtEndOfTrack,
                                    const std::int32_t& StartToMs) {
    const std::int16_t track = TrackNum == 0 ? std::int16_t{1} : TrackNum;
    if (!prepareDisc(Lecteur)) return false;
    if (!mci_.send(status(discAlias_, L"media present"))) return false;
    mci_.send(useMs(discAlias_));
    const auto position = mci_.ask(status(discAlias_, L"position track", track), discReply);
    if (!position.worked) return false;
    mci_.send(stop(discAlias_));
    auto start = position.as<std::int32_t>();
    if (StartToMs != -1) start = checkedInt32(std::int64_t{start} + StartToMs);
    if (!StopAtEndOfTrack) return mci_.send(playFrom(discAlias_, start));
    const auto length = MMCDTrackLenght(track, eMMReturnVal::ervMillisecondes);
    return mci_.send(playFromTo(discAlias_, start, checkedInt32(std::int64_t{start} + length)));
}

Variant VorlaMultiMedia::MMCDTracks(TextView Lecteur, bool TrackTime, TextView TrackPrefixe,
                                    const HostObject& LstCmb) {
    if (!prepareDisc(Lecteur) || !hasDisc()) return {};
    // The list may close the device.
    const auto alias = discAlias_;
    if (!mci_.send(status(alias, L"media present"))) return {};
    const auto number = mci_.ask(status(alias, L"number of tracks"), discReply);
    if (!number.worked) return {};
    const std::int32_t tracks = beginningInt16(number.text);
    BoundObject list(takesTracks(LstCmb) ? LstCmb : HostObject());
    std::vector<Text> lines;
    for (std::int32_t track = 1; track <= tracks; ++track) {
        if (mci_.ask(status(alias, L"type track", track), discReply).text != L"audio") continue;
        auto line = trackLine(TrackPrefixe, static_cast<std::int32_t>(lines.size()) + 1);
        if (TrackTime) {
            const auto length = mci_.ask(status(alias, L"length track", track), discReply);
            if (length.worked) line = withLength(line, length.text);
        }
        lines.push_back(line);
        if (list.object()) list.call(L"AddItem", line);
    }
    // Hosts get one empty line of a disc without audio tracks.
    if (lines.empty()) lines.emplace_back();
    return arrayFrom1(lines);
}

Variant VorlaMultiMedia::MMCDLenght(eMMReturnVal FormatTime) {
    if (!hasDisc()) return {};
    mci_.send(useMilliseconds(discAlias_));
    // Its answer plays no part, but drivers have always been asked.
    mci_.ask(status(discAlias_, L"start position"), discReply);
    const auto length = mci_.ask(status(discAlias_, L"length"), discReply);
    return length.worked ? inUnit(FormatTime, beginningInt32(length.text)) : Variant();
}

std::int32_t VorlaMultiMedia::MMCDTrackLenght(std::int16_t TrackNum, eMMReturnVal FormatTime) {
    if (TrackNum == 0 || !hasDisc()) return 0;
    mci_.send(useMilliseconds(discAlias_));
    const auto reply = mci_.ask(status(discAlias_, L"length track", TrackNum), discReply);
    if (!reply.worked) return 0;
    const auto length = beginningInt32(reply.text);
    switch (FormatTime) {
        case eMMReturnVal::ervMillisecondes: return length;
        case eMMReturnVal::ervSecondes: return wholeSeconds(length);
        case eMMReturnVal::ervStringSecondes: return integerIn(clockTextOf(length));
    }
    return 0;
}

std::int16_t VorlaMultiMedia::MMCDTrackCurrent() {
    return endOnError(std::int16_t{0}, [&] {
        if (!hasDisc()) return std::int16_t{0};
        const auto reply = mci_.ask(status(discAlias_, L"current track"), discReply);
        return reply.worked ? beginningInt16(reply.text) : std::int16_t{0};
    });
}

std::int16_t VorlaMultiMedia::MMCDTrackCount() {
    std::int16_t count = 0;
    step([&] {
        if (!hasDisc()) return;
        const auto number = mci_.ask(status(discAlias_, L"number of tracks"), discReply);
        if (!number.worked) return;
        const std::int32_t tracks = beginningInt16(number.text);
        for (std::int32_t track = 1; track <= tracks; ++track)
            step([&] {
                if (mci_.ask(status(discAlias_, L"type track", track), discReply).text == L"audio") ++count;
            });
    });
    return count;
}

Variant VorlaMultiMedia::MMCDPosition(eMMReturnVal FormatTime) {
    if (!hasDisc()) return {};
    mci_.send(useMilliseconds(discAlias_));
    const auto start = beginningInt32(mci_.ask(status(discAlias_, L"start position"), discReply).text);
    const auto position = mci_.ask(status(discAlias_, L"position"), discReply);
    if (!position.worked) return {};
    return inUnit(FormatTime, roundedToInt32(leadingNumber(position.text) - start));
}

Variant VorlaMultiMedia::MMCDTrackPosition(std::int16_t TrackNum, eMMReturnVal FormatTime) {
    const auto track = TrackNum == 0 ? MMCDTrackCurrent() : TrackNum;
    if (track == 0 || !hasDisc()) return {};
    mci_.send(useMilliseconds(discAlias_));
    const auto start = mci_.ask(status(discAlias_, L"position track", track), discReply);
    if (!start.worked) return {};
    const auto position = mci_.ask(status(discAlias_, L"position"), discReply);
    if (!position.worked) return {};
    return inUnit(FormatTime, roundedToInt32(leadingNumber(position.text) - beginningInt32(start.text)));
}

bool VorlaMultiMedia::IsCd(TextView FileName) {
    return endOnError(false, [&] {
        return TypeLecteur(FileName) == discDrive &&
               lowerCased(DecoupeChemin(FileName, eFileN::eFExtension).text()) == L"cda";
    });
}

std::int16_t VorlaMultiMedia::MMCDTrackNumberGet(TextView FileName) {
    return endOnError(std::int16_t{0}, [&] {
        const auto name = lowerCased(DecoupeChemin(FileName, eFileN::eFNomFichierSansExtention).text());
        return convertedTo<std::int16_t>(Variant(TextView(withoutTrack(name))).view());
    });
}

}  // namespace vorla
