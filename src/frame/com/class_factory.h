// Class factories: how hosts get their first object of a class.
#pragma once

#include "frame/com/publication.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Makes a factory of the class and returns its interface `id`. The factory keeps the module loaded.
HRESULT makeClassFactory(const Publication& publication, REFIID id, void** factory) noexcept;

}  // namespace vorla
