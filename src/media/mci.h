// The one place from which commands go to the media devices.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/values/conversions.h"
#include "frame/values/text.h"

namespace vorla::media {

/// What a device answers: whether the command worked, and the text up to its first NUL, which is usually
/// empty after a failure.
struct Reply {
    bool worked = false;
    Text text;

    /// The text as a value, by convertedTo(). Errors: 13 for a text that is none, 6 for one that does not
    /// fit.
    template <class Value>
    Value as() const {
        return convertedTo<Value>(Variant(TextView(text)).view());
    }
};

/// The room for answers: about volumes, lengths and time formats, about discs, and about modes.
inline constexpr std::size_t longReply = 128, discReply = 50, modeReply = 20;

class Mci {
public:
    /// Sends a command that needs no answer. Whether it worked.
    bool send(TextView command);

    /// Sends a command and reads the answer into this much room, at most longReply.
    Reply ask(TextView command, std::size_t room);

    /// The code of the latest command; 0 when it worked.
    std::uint32_t lastError() const { return lastError_; }

private:
    bool passOn(TextView command, char* buffer, std::size_t room);

    std::uint32_t lastError_ = 0;  // LastMciError
};

}  // namespace vorla::media
