#include "media/commands.h"

#include <initializer_list>

namespace vorla::media {
namespace {

Text joined(std::initializer_list<TextView> parts) {
    Text command;
    for (const TextView part : parts) command += part;
    return command;
}

}  // namespace

Text openFile(TextView file, TextView alias, std::int32_t parent) {
    auto command = joined({L"open MPEGVideo!", file, L" alias ", alias});
    // The style of a child window, as a number.
    if (parent != 0) command += L" parent " + inDigits(parent) + L" style 1073741824";
    return command;
}

Text openDisc(TextView drive, TextView alias) {
    return joined({L"open ", drive, L" type cdaudio alias ", alias});
}

Text close(TextView alias) { return joined({L"close ", alias}); }
Text closeCapital(TextView alias) { return joined({L"Close ", alias}); }
Text stop(TextView alias) { return joined({L"stop ", alias}); }
Text stopCapital(TextView alias) { return joined({L"Stop ", alias}); }
Text pause(TextView alias) { return joined({L"pause ", alias}); }
Text resume(TextView alias) { return joined({L"resume ", alias}); }

Text useMilliseconds(TextView alias) { return joined({L"set ", alias, L" time format milliseconds"}); }
Text useMs(TextView alias) { return joined({L"set ", alias, L" time format ms"}); }

Text seek(TextView alias, std::int32_t milliseconds) {
    return joined({L"seek ", alias, L" to ", inDigits(milliseconds)});
}

Text play(TextView alias, PlayOptions options) {
    auto command = joined({L"play ", alias});
    if (options.wait) command += L" wait";
    if (options.repeat) command += L" repeat";
    if (options.fullScreen) command += L" fullscreen";
    return command;
}

Text playFrom(TextView alias, std::int32_t start) {
    return joined({L"play ", alias, L" from ", inDigits(start)});
}

Text playFromTo(TextView alias, std::int32_t start, std::int32_t end) {
    return joined({L"play ", alias, L" from ", inDigits(start), L" to ", inDigits(end)});
}

Text setVolume(TextView alias, std::int32_t level) {
    return joined({L"setaudio ", alias, L" volume to ", inDigits(level)});
}

Text status(TextView alias, TextView item) { return joined({L"status ", alias, L" ", item}); }

Text status(TextView alias, TextView item, std::int32_t track) {
    return joined({L"status ", alias, L" ", item, L" ", inDigits(track)});
}

Text statusMode(TextView alias) { return joined({L"Status ", alias, L" mode"}); }

Text openDoor(TextView alias) { return joined({L"Set ", alias, L" door open wait"}); }
Text closeDoor(TextView alias) { return joined({L"Set ", alias, L" door closed"}); }

}  // namespace vorla::media
