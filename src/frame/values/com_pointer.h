// References to COM objects, the host's and the system's.
#pragma once

#include <utility>

#include "frame/values/winapi.h"

namespace vorla {

/// Owns one reference to an object, or Nothing. It has the layout of a plain pointer.
template <class Interface>
class ComPointer {
public:
    ComPointer() = default;
    /// Adds a reference; the caller keeps its own.
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

    /// Takes over the caller's reference.
    static ComPointer adopt(Interface* owned) noexcept {
        ComPointer result;
        result.object_ = owned;
        return result;
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Gives up ownership and returns the pointer.
    Interface* detach() noexcept { return std::exchange(object_, nullptr); }

    /// For a function that stores a reference through a pointer. The object must be empty.
    Interface** put() noexcept { return &object_; }
    void** putVoid() noexcept { return reinterpret_cast<void**>(&object_); }

    /// Another interface of the same object. Nothing when the object lacks it or is Nothing itself.
    template <class Other>
    ComPointer<Other> query(REFIID id = __uuidof(Other)) const noexcept {
        ComPointer<Other> other;
        // Some objects store a pointer even when they refuse.
        if (object_ && FAILED(object_->QueryInterface(id, other.putVoid()))) other.detach();
        return other;
    }

private:
    Interface* object_ = nullptr;
};

static_assert(sizeof(ComPointer<IUnknown>) == sizeof(IUnknown*));

/// The same for an object that the caller owns.
template <class Other>
ComPointer<Other> queried(IUnknown* object, REFIID id = __uuidof(Other)) noexcept {
    return ComPointer<IUnknown>(object).query<Other>(id);
}

}  // namespace vorla
