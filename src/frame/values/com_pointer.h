// References to COM objects, the host's and the system's.
#pragma once

#include <utility>

#include "frame/values/winapi.h"

namespace vorla {

/// Owns one reference to an object, or to Nothing. Laid out as the pointer itself, so that a by-reference
/// one is the caller's own variable.
template <class Interface>
class ComPointer {
public:
    ComPointer() = default;
    /// A reference of its own, beside the caller's.
    ComPointer(Interface* object) noexcept : object_(object) {
        if (object_) object_->AddRef();
    }
    ComPointer(const ComPointer& other) noexcept : ComPointer(other.object_) {}
    ComPointer(ComPointer&& other) noexcept : object_(other.detach()) {}
    ComPointer& operator=(ComPointer other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPointer() {
        if (object_) object_->Release();
    }

    /// Takes over a reference that the caller owned.
    static ComPointer adopt(Interface* owned) noexcept {
        ComPointer result;
        result.object_ = owned;
        return result;
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Gives the reference to somebody else.
    Interface* detach() noexcept { return std::exchange(object_, nullptr); }

    /// Where a function leaves the reference that this object then owns. Only for an object that owns none.
    Interface** put() noexcept { return &object_; }
    void** putVoid() noexcept { return reinterpret_cast<void**>(&object_); }

    /// Another interface of the same object; Nothing when it has none such, or is Nothing itself.
    template <class Other>
    ComPointer<Other> query(REFIID id = __uuidof(Other)) const noexcept {
        ComPointer<Other> other;
        // Some objects leave something behind when they refuse.
        if (object_ && FAILED(object_->QueryInterface(id, other.putVoid()))) other.detach();
        return other;
    }

private:
    Interface* object_ = nullptr;
};

static_assert(sizeof(ComPointer<IUnknown>) == sizeof(IUnknown*));

/// Another interface of an object that somebody else owns, as ComPointer::query().
template <class Other>
ComPointer<Other> queried(IUnknown* object, REFIID id = __uuidof(Other)) noexcept {
    return ComPointer<IUnknown>(object).query<Other>(id);
}

}  // namespace vorla
