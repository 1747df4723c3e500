// The names under which files and discs are open, and the kinds of media that decide them.
//
//     aliasName(mmCanal::Canal3, MMType::Mp3, L"") == L"SonMp33"
//
// No table remembers what is open: channel and type give the same alias in every later call.
#pragma once

#include <array>

#include "frame/contract/enumerations.h"
#include "frame/values/text.h"

namespace vorla::media {

/// The alias of the disc, whether or not one is open.
inline constexpr TextView discAlias = L"QZCDPlay";

/// The alias of a file whose length alone is wanted.
inline constexpr TextView lengthAlias = L"Audio1";

/// As sources: the kind of the named file, and all five kinds.
inline constexpr auto fromFileName = static_cast<MMType>(-1), allTypes = static_cast<MMType>(31);

/// The kinds of files in the order in which they are closed, and in which volumes and states are asked.
inline constexpr std::array closingOrder{MMType::AviMpg, MMType::Midi, MMType::Mp3, MMType::Wav};
inline constexpr std::array askingOrder{MMType::Mp3, MMType::Wav, MMType::Midi, MMType::AviMpg};

inline constexpr std::int32_t channelCount = 11;

/// Whether the set of sources contains the type.
constexpr bool has(MMType sources, MMType type) {
    return (static_cast<std::int32_t>(sources) & static_cast<std::int32_t>(type)) != 0;
}

/// The kinds that play without a picture.
constexpr bool isSound(MMType type) {
    return type == MMType::Wav || type == MMType::Midi || type == MMType::Mp3;
}

/// The alias of a type on a channel: the type's own name, from channel 1 on with the channel's number. On
/// channel 10 a file's name is its alias. A channel that does not exist is channel 0, and an unknown type has
/// an empty name.
Text aliasName(mmCanal channel, MMType type, TextView fileName = {});

/// The kind of a file by its extension in capitals; 0 for an unknown one.
MMType typeOfExtension(TextView extension);

}  // namespace vorla::media
