// References to the host's objects.
#pragma once

#include <utility>

#include "frame/values/winapi.h"

namespace vorla {

/// Owns one reference to an object of the host, or Nothing. It has the layout of a plain pointer, so a
/// by-reference parameter of this type is the caller's own variable.
template <class Interface>
class HostReference {
public:
    HostReference() = default;
    HostReference(Interface* object) noexcept : object_(object) {
        if (object_) object_->AddRef();
    }
    HostReference(const HostReference& other) noexcept : HostReference(other.object_) {}
    HostReference(HostReference&& other) noexcept : object_(other.detach()) {}
    HostReference& operator=(HostReference other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~HostReference() {
        if (object_) object_->Release();
    }

    Interface* get() const { return object_; }
    Interface* detach() noexcept { return std::exchange(object_, nullptr); }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Interface* object_ = nullptr;
};

using HostObject = HostReference<IDispatch>;
using HostPicture = HostReference<IPictureDisp>;
using HostFont = HostReference<IFontDisp>;

}  // namespace vorla
