// The texts of all commands for the media devices.
//
//     openFile(L"C:\\A.WAV", L"SonWav") == L"open MPEGVideo!C:\\A.WAV alias SonWav"
//
// Nothing is quoted or escaped. Capitals are part of the text: drivers and logs see them.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla::media {

/// Opens a file, as a child of the window `parent` unless that is 0.
Text openFile(TextView file, TextView alias, std::int32_t parent = 0);
/// Opens the disc in a drive.
Text openDisc(TextView drive, TextView alias);

/// "close" ends an earlier or a finished use, "Close" one that is broken off or faded out; "Stop" belongs
/// to the fade, "stop" to the disc.
Text close(TextView alias);
Text closeCapital(TextView alias);
Text stop(TextView alias);
Text stopCapital(TextView alias);
Text pause(TextView alias);
Text resume(TextView alias);

/// Both forms ask for the same unit.
Text useMilliseconds(TextView alias);
Text useMs(TextView alias);

Text seek(TextView alias, std::int32_t milliseconds);

struct PlayOptions {
    bool wait = false, repeat = false, fullScreen = false;
};
Text play(TextView alias, PlayOptions options = {});
Text playFrom(TextView alias, std::int32_t start);
Text playFromTo(TextView alias, std::int32_t start, std::int32_t end);

/// A level from 0 to 1000.
Text setVolume(TextView alias, std::int32_t level);

/// Asks for an item: "volume", "length", "position" and the like.
Text status(TextView alias, TextView item);
/// Asks for an item of a track: "type track", "length track", "position track".
Text status(TextView alias, TextView item, std::int32_t track);
/// Asks what the device does.
Text statusMode(TextView alias);

Text openDoor(TextView alias);
Text closeDoor(TextView alias);

}  // namespace vorla::media
