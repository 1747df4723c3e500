#include "misc/key_filters.h"

#include <string_view>

namespace vorla {
namespace {

constexpr std::int16_t backspace = 8;

constexpr bool isOneOf(std::int16_t code, std::string_view characters) {
    return code > 0 && code <= 0x7F && characters.find(static_cast<char>(code)) != std::string_view::npos;
}

constexpr bool isToggle(ToucheCtl key) {
    return key == ToucheCtl::Pause || key == ToucheCtl::VerrouMajuscule;
}

}  // namespace

std::int16_t upperKey(std::int16_t code, std::uint8_t (*upperOf)(std::uint8_t)) {
    if (code < 0 || code > 0xFF) return code;
    const std::int16_t upper = upperOf(static_cast<std::uint8_t>(code));
    return upper == '?' ? code : upper;
}

std::int16_t numericKey(std::int16_t code) {
    return isOneOf(code, "0123456789") || code == backspace ? code : refusedKey;
}

std::int16_t fileKey(std::int16_t code, eKeyFileType type) {
    const bool isRefused =
        isOneOf(code, "/*|?\"<>") || (type != eKeyFileType::ekftPathAndFileName && isOneOf(code, "\\:"));
    return isRefused ? refusedKey : code;
}

bool isKeyOn(ToucheCtl key, std::int16_t state) {
    // A key that is down has -128 or, toggled on, -127.
    constexpr std::int16_t toggledOn = 1, belowForDown = -126;
    return state < belowForDown || (isToggle(key) && state == toggledOn);
}

}  // namespace vorla
