// Names of disc tracks.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla::media {

/// A line of the list of tracks: the prefix and the track's number among the audio tracks, then the length
/// after " : " if there is one.
inline Text trackLine(TextView prefix, std::int32_t number) { return Text(prefix) + inDigits(number); }
inline Text withLength(TextView line, TextView length) { return Text(line).append(L" : ").append(length); }

/// What a track file's name in small letters leaves for the track's number: "track05" leaves "05".
inline Text withoutTrack(TextView name) {
    constexpr TextView word = L"track";
    Text rest;
    for (;;) {
        const auto place = name.find(word);
        rest += name.substr(0, place);
        if (place == TextView::npos) return rest;
        name.remove_prefix(place + word.size());
    }
}

}  // namespace vorla::media
