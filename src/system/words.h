// Words and bytes of 32-bit integers.
#pragma once

#include <cstdint>

#include "frame/values/runtime_error.h"

namespace vorla {

/// Bits 0 to 15.
constexpr std::int16_t lowWord(std::int32_t value) { return static_cast<std::int16_t>(value); }
/// Bits 16 to 31.
constexpr std::int16_t highWord(std::int32_t value) { return static_cast<std::int16_t>(value >> 16); }

/// Bits 0 to 7.
constexpr std::uint8_t lowByte(std::int32_t value) { return static_cast<std::uint8_t>(value); }
/// Bits 8 to 15.
constexpr std::uint8_t highByte(std::int32_t value) { return static_cast<std::uint8_t>(value >> 8); }

/// The low words of both, `high` on the left. The low word is signed, so a negative one fills the left half
/// with ones; old hosts rely on this.
constexpr std::int32_t joinedWords(std::int32_t low, std::int32_t high) {
    return (std::int32_t{lowWord(high)} * 65536) | lowWord(low);
}

/// The low bytes of both, `high` on the left.
constexpr std::int32_t joinedBytes(std::int32_t low, std::int32_t high) {
    return (lowByte(high) * 256) | lowByte(low);
}

/// The signed word with the bits of an unsigned one. Error 6 for a value that fits neither.
constexpr std::int16_t signedWord(std::int32_t value) {
    const auto reduced = value >= 32768 ? value - 65536 : value;
    if (reduced < -32768 || reduced > 32767) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int16_t>(reduced);
}

}  // namespace vorla
