// Reads a written type library back and compares it with the tables it was made from, because a system's
// writer may store a wrong value without an error.
#pragma once

#include <span>
#include <string>

#include "frame/com/publication.h"

namespace vorla::typelib {

/// Throws WriteError with the first difference.
void check(std::span<const Publication* const> classes, const std::wstring& file);

}  // namespace vorla::typelib
