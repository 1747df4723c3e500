// Arguments and outcomes as text for failure messages.
#pragma once

#include <concepts>
#include <cstdio>
#include <string>

#include "frame/values/text.h"

namespace vorla {

/// The text in quotes. Other characters than printable ASCII are written as their codes, and a run of one
/// character as the character and its count, so that texts at the 16-bit limits stay readable.
inline std::string shown(TextView text) {
    std::string result = "\"";
    for (std::size_t i = 0; i < text.size();) {
        const auto end = text.find_first_not_of(text[i], i);
        const auto run = (end == TextView::npos ? text.size() : end) - i;
        const auto code = static_cast<unsigned>(text[i]);
        std::string character(1, static_cast<char>(code));
        if (code < 0x20 || code > 0x7E) {
            char escaped[16];
            std::snprintf(escaped, sizeof escaped, "\\x{%X}", code);
            character = escaped;
        }
        if (run > 16) {
            result += character + "{" + std::to_string(run) + "}";
            i += run;
        } else {
            result += character;
            ++i;
        }
    }
    return result + "\"";
}

inline std::string shown(const Text& text) { return shown(TextView(text)); }

template <std::integral Number>
std::string shown(Number number) {
    return std::to_string(number);
}

inline std::string shown(bool flag) { return flag ? "true" : "false"; }

inline std::string shown(float number) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.9g", static_cast<double>(number));
    return digits;
}

/// A call as it would be typed: rule("a;b", 2).
template <class First, class... Others>
std::string call(const char* rule, const First& first, const Others&... others) {
    return rule + ("(" + shown(first)) + (std::string() + ... + (", " + shown(others))) + ")";
}

}  // namespace vorla
