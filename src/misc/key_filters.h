// What the keyboard filters keep of a typed character, and what the state of a key means.
//
// Characters come as hosts' key-press events give them: 16-bit codes in the ANSI code page. A code outside a
// byte is no character.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"

namespace vorla {

/// What a filter returns for a character that it refuses.
inline constexpr std::int16_t refusedKey = 0;

/// The upper-case form of a character. `upperOf` gives that of a byte; where it gives a question mark, the
/// code page has no upper-case form and the character stays. A code outside a byte stays too.
std::int16_t upperKey(std::int16_t code, std::uint8_t (*upperOf)(std::uint8_t));

/// Whether a character is a point or a comma, the two that stand for the locale's decimal separator.
constexpr bool isDecimalKey(std::int16_t code) { return code == '.' || code == ','; }

/// A digit or backspace; any other character is refused.
std::int16_t numericKey(std::int16_t code);

/// A character that can stand in a file name, or in a path; any other is refused.
std::int16_t fileKey(std::int16_t code, eKeyFileType type);

/// What the state of a key (of GetKeyState) means: whether the key is down. For the pause key and the caps
/// lock, also whether it is toggled on.
bool isKeyOn(ToucheCtl key, std::int16_t state);

}  // namespace vorla
