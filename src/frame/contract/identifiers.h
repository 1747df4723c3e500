// Every identifier that Vorla6 publishes comes from this block, chosen once: the first group says what is
// identified, the rest never changes. A number that has been published is not used again.
#pragma once

#include <cstdint>

#include "frame/values/winapi.h"

namespace vorla {

/// The identifier with this number.
constexpr GUID identifier(std::uint16_t number) {
    return {0x57AB0000u | number, 0x7BA1, 0x412D, {0xBD, 0x16, 0x32, 0x9B, 0x0A, 0x86, 0xB1, 0xAB}};
}

namespace numbers {
// Enumerations have 0x0100 and up, records 0x0200 and up; their lists give the numbers.
constexpr std::uint16_t library = 0x0001;
constexpr std::uint16_t classes = 0x0010;     // plus the class's number in the catalogue
constexpr std::uint16_t interfaces = 0x0030;  // plus the class's number in the catalogue
}  // namespace numbers

}  // namespace vorla
