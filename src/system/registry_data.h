// The text and data of registry values, apart from the registry itself.
#pragma once

#include <optional>
#include <string_view>

#include "frame/values/text.h"

namespace vorla {

/// A key's path without one leading backslash. A second one, backslashes at the end and forward slashes stay.
TextView normalisedKey(TextView path);

/// The part of a text that is stored: up to its first NUL, without blanks around it.
TextView storedText(TextView text);

/// The part of a string's data that is read: all but the NUL at its end. Data without a NUL at its end is
/// whole. Empty data has no text, as old hosts expect.
std::optional<std::string_view> readString(std::string_view data);

/// The part of binary data that is read: all but its last byte, whatever that is; old hosts rely on this.
/// Empty data has no text.
std::optional<std::string_view> readBinary(std::string_view data);

}  // namespace vorla
