// The catalogue: which classes Vorla6 publishes.
#pragma once

#include <span>

#include "frame/com/publication.h"

namespace vorla {

extern const Library vorla6;

#define PUBLIC_CLASS(name, number, instancing, documentation)                                       \
    class name;                                                                                     \
    template <>                                                                                     \
    inline constexpr ClassEntry classEntry<name>{L"" #name, number, Instancing::instancing, vorla6, \
                                                 documentation};                                    \
    const Publication& publicationOf(Of<name>);
#include "frame/com/classes.def"

/// Every public class.
std::span<const Publication* const> catalogue();

}  // namespace vorla
