#include "frame/com/catalogue.h"

#include <new>

#include "frame/contract/identifiers.h"
#include "frame/values/module.h"

namespace vorla {
namespace {

// A running object loads the type library from the DLL that contains its code.
HRESULT loadOwn(ITypeLib** library) {
    try {
        return LoadTypeLibEx(module::path().c_str(), REGKIND_NONE, library);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace

const Library vorla6{L"Vorla6", identifier(numbers::library), 6, 0, &loadOwn};

std::span<const Publication* const> catalogue() {
    static const Publication* const classes[] = {
#define PUBLIC_CLASS(name, number, instancing, documentation) &publicationOf(Of<name>()),
#include "frame/com/classes.def"
    };
    return classes;
}

}  // namespace vorla
