#include "media/mci.h"

#include <array>

#include "frame/values/ansi.h"
#include "frame/values/winapi.h"

namespace vorla::media {

bool Mci::passOn(TextView command, char* buffer, std::size_t room) {
    const auto bytes = toAnsi(command);
    // The device's window procedures run in here, and with them the host's code, which may send commands too.
    const auto code = mciSendStringA(bytes.c_str(), buffer, static_cast<UINT>(room), nullptr);
    lastError_ = code;
    return code == 0;
}

bool Mci::send(TextView command) { return passOn(command, nullptr, 0); }

Reply Mci::ask(TextView command, std::size_t room) {
    std::array<char, longReply> buffer{};
    const bool worked = passOn(command, buffer.data(), room);
    return {worked, fromAnsiBuffer({buffer.data(), room})};
}

}  // namespace vorla::media
