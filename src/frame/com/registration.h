// What the component writes to the registry so that hosts find its classes by name, and its removal.
#pragma once

#include <span>

#include "frame/com/publication.h"
#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla::registration {

/// Registers the type library in the file `server`, with its interfaces, and every class. A failure
/// leaves the registry as it was, with an earlier registration if there was one.
HRESULT add(const Library& library, std::span<const Publication* const> classes, const Text& server) noexcept;

/// Removes everything that `add` wrote; a missing key is not a failure. Continues after a key that cannot be
/// removed, and returns the first such failure.
HRESULT remove(const Library& library, std::span<const Publication* const> classes) noexcept;

}  // namespace vorla::registration
