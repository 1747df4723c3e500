// What a registry value's text and data are, apart from the registry itself.
#pragma once

#include <optional>
#include <string_view>

#include "frame/values/text.h"

namespace vorla {

/// A key's path as the registry takes it: without the one backslash that it begins with. A second one, those
/// at the end and forward slashes stay.
TextView normalisedKey(TextView path);

/// What of a text is stored: what stands before its first NUL, without the blanks around it.
TextView storedText(TextView text);

/// What of a string's data is read: all but the NUL that ends it. Data that its writer did not end so is
/// whole. Nothing can be read of no data, as hosts know it.
std::optional<std::string_view> readString(std::string_view data);

/// What of binary data is read: all but its last byte, whatever that is; hosts rely on it. Nothing can be
/// read of no data.
std::optional<std::string_view> readBinary(std::string_view data);

}  // namespace vorla
