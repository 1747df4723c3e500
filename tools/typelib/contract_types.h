// The enumerations and records of the contract as the type library needs them: names, values, types, and the
// actual layout of the C++ structures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "frame/com/crossing.h"

namespace vorla::typelib {

struct EnumerationMember {
    const wchar_t* name;
    std::int32_t value;
};

struct Enumeration {
    const wchar_t* name;
    std::uint16_t number;
    std::vector<EnumerationMember> members;
};

struct Field {
    const wchar_t* name;
    TypeUse type;
    std::size_t offset;
    std::size_t count;  // elements of a fixed array; 0 for a plain field
};

struct Record {
    const wchar_t* name;
    std::uint16_t number;
    std::size_t size;
    std::size_t alignment;
    std::vector<Field> fields;
};

/// The enumerations in the order of publication.
const std::vector<Enumeration>& enumerations();
const std::vector<Record>& records();

}  // namespace vorla::typelib
