// Writes the type library that describes a set of published classes, with all public enumerations and
// records, through the system's own type-library writer.
#pragma once

#include <span>
#include <stdexcept>
#include <string>

#include "frame/com/publication.h"
#include "frame/values/winapi.h"

namespace vorla::typelib {

class WriteError : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

/// Writes the file for programs of this program's word size, reads it back, and compares it with the tables.
/// Throws WriteError with the cause.
void write(const Library& library, std::span<const Publication* const> classes, const std::wstring& file);

}  // namespace vorla::typelib
