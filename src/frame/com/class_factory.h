// Class factories: how hosts get their first object of a class.
#pragma once

#include "frame/com/publication.h"
#include "frame/values/winapi.h"

namespace vorla {

/// A factory of the class, answering the interface `id`. The factory keeps the module loaded.
HRESULT makeClassFactory(const Publication& publication, REFIID id, void** factory) noexcept;

}  // namespace vorla
