// The component's code as a loaded module, and what keeps it loaded.
#pragma once

#include <utility>

#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla::module {

void addReference() noexcept;
void release() noexcept;

/// The module's type library, loaded by `load` at first use and kept until the last reference to the module
/// goes. Any thread may ask, but only for something that holds a reference. A description that the host still
/// has afterwards is the system's and lives on without the module.
HRESULT typeLibrary(HRESULT (*load)(ITypeLib**), ITypeLib** library) noexcept;

/// Whether nothing of ours is in use any more.
bool canUnload() noexcept;

/// Keeps the module loaded for as long as it lives. A member of whatever outlives the call that made it and
/// runs code of ours later: an object, a class factory, a subclassed window, a timer, a callback.
class Reference {
public:
    Reference() noexcept : held_(true) { addReference(); }
    Reference(Reference&& other) noexcept : held_(std::exchange(other.held_, false)) {}
    Reference& operator=(Reference&& other) noexcept {
        std::swap(held_, other.held_);
        return *this;
    }
    ~Reference() {
        if (held_) release();
    }

private:
    bool held_;
};

/// The absolute path of the file that this code was loaded from; empty when the system does not tell.
Text path();

}  // namespace vorla::module
