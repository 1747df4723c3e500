// Owners for what Windows hands out: one line per kind, closer and invalid value.
#pragma once

#include <utility>

#include "frame/values/winapi.h"

namespace vorla {

template <class Kind>
class UniqueHandle {
public:
    using Handle = typename Kind::Handle;

    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) noexcept : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~UniqueHandle() {
        if (*this) Kind::close(handle_);
    }

    Handle get() const { return handle_; }
    Handle operator->() const { return handle_; }
    explicit operator bool() const { return handle_ != Kind::invalid(); }

    /// Gives the handle to somebody else.
    Handle release() noexcept { return std::exchange(handle_, Kind::invalid()); }

    /// Where a function leaves the handle that this object then owns. Only for an object that owns none.
    Handle* put() noexcept { return &handle_; }

private:
    Handle handle_ = Kind::invalid();
};

namespace handle_kinds {

struct RegistryKey {
    using Handle = HKEY;
    static Handle invalid() { return nullptr; }
    static void close(Handle handle) { RegCloseKey(handle); }
};

struct File {
    using Handle = HANDLE;
    static Handle invalid() { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) { CloseHandle(handle); }
};

struct FileSearch {
    using Handle = HANDLE;
    static Handle invalid() { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) { FindClose(handle); }
};

}  // namespace handle_kinds

using RegistryKey = UniqueHandle<handle_kinds::RegistryKey>;
using File = UniqueHandle<handle_kinds::File>;
using FileSearch = UniqueHandle<handle_kinds::FileSearch>;

/// Owns one reference to a COM object.
template <class Interface>
struct ComReferenceKind {
    using Handle = Interface*;
    static Handle invalid() { return nullptr; }
    static void close(Handle handle) { handle->Release(); }
};

template <class Interface>
using ComPointer = UniqueHandle<ComReferenceKind<Interface>>;

}  // namespace vorla
