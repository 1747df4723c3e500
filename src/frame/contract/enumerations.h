// The public enumerations as C++ types. All are 32-bit signed integers at the boundary.
// Their list, shared with the type library, is enumerations.def.
#pragma once

#include <cstdint>

namespace vorla {

#define ENUMERATION(name, number) enum class name : std::int32_t {
#define VALUE(name, value) name = value,
#define END_ENUMERATION(name) \
    }                         \
    ;
#include "frame/contract/enumerations.def"

}  // namespace vorla
