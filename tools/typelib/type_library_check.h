// Reads a written type library back and compares it with the tables it was made from, since a system's
// writer may get a value wrong without saying so.
#pragma once

#include <span>
#include <string>

#include "frame/com/publication.h"

namespace vorla::typelib {

/// Throws WriteError with the first thing that is not as published.
void check(std::span<const Publication* const> classes, const std::wstring& file);

}  // namespace vorla::typelib
