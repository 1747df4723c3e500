// Owners of Windows handles: one line for each kind, with its invalid value and the function that closes it.
// Owners that need two values have classes of their own below. References to COM objects: com_pointer.h.
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

    /// Gives up ownership and returns the handle.
    Handle release() noexcept { return std::exchange(handle_, Kind::invalid()); }

    /// For a function that stores a handle through a pointer. The object must be empty.
    Handle* put() noexcept { return &handle_; }

private:
    Handle handle_ = Kind::invalid();
};

// The owner's name, the type of the handle, its invalid value, and the function that closes it.
#define VORLA_HANDLE(Owner, Type, none, closer)              \
    struct Owner##Kind {                                     \
        using Handle = Type;                                 \
        static Handle invalid() { return none; }             \
        static void close(Handle handle) { closer(handle); } \
    };                                                       \
    using Owner = UniqueHandle<Owner##Kind>

// clang-format off
VORLA_HANDLE(RegistryKey,   HKEY,         nullptr,              RegCloseKey);
VORLA_HANDLE(File,          HANDLE,       INVALID_HANDLE_VALUE, CloseHandle);
VORLA_HANDLE(FileSearch,    HANDLE,       INVALID_HANDLE_VALUE, FindClose);
VORLA_HANDLE(KernelObject,  HANDLE,       nullptr,              CloseHandle);  // a process, thread or event
VORLA_HANDLE(Desktop,       HDESK,        nullptr,              CloseDesktop);
VORLA_HANDLE(ShellItem,     LPITEMIDLIST, nullptr,              CoTaskMemFree);
VORLA_HANDLE(LoadedModule,  HMODULE,      nullptr,              FreeLibrary);
VORLA_HANDLE(GlobalBlock,   HGLOBAL,      nullptr,              GlobalFree);
VORLA_HANDLE(OpenMixer,     HMIXER,       nullptr,              mixerClose);
VORLA_HANDLE(Icon,          HICON,        nullptr,              DestroyIcon);
VORLA_HANDLE(Bitmap,        HBITMAP,      nullptr,              DeleteObject);
VORLA_HANDLE(Font,          HFONT,        nullptr,              DeleteObject);
VORLA_HANDLE(Brush,         HBRUSH,       nullptr,              DeleteObject);
VORLA_HANDLE(Pen,           HPEN,         nullptr,              DeleteObject);
VORLA_HANDLE(Region,        HRGN,         nullptr,              DeleteObject);
VORLA_HANDLE(Palette,       HPALETTE,     nullptr,              DeleteObject);
VORLA_HANDLE(MemoryContext, HDC,          nullptr,              DeleteDC);
// clang-format on
#undef VORLA_HANDLE

/// The device context of a window, or of the screen when there is no window.
class WindowContext {
public:
    static WindowContext ofClientArea(HWND window) noexcept { return {window, GetDC(window)}; }
    static WindowContext ofWholeWindow(HWND window) noexcept { return {window, GetWindowDC(window)}; }

    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() {
        if (context_) ReleaseDC(window_, context_);
    }

    HDC get() const { return context_; }
    explicit operator bool() const { return context_ != nullptr; }

private:
    WindowContext(HWND window, HDC context) noexcept : window_(window), context_(context) {}

    const HWND window_;
    const HDC context_;
};

/// Selects a bitmap, font, brush or pen into a context and selects the previous one back at the end. Declare
/// it after both: it must be destroyed first, because a selected object cannot be deleted.
class SelectedObject {
public:
    SelectedObject(HDC context, HGDIOBJ object) noexcept
        : context_(context), before_(SelectObject(context, object)) {}
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject() {
        if (before_) SelectObject(context_, before_);
    }

    /// Whether the object could be selected.
    explicit operator bool() const { return before_ != nullptr; }

private:
    const HDC context_;
    const HGDIOBJ before_;
};

/// Selects and realises a palette in a context, and selects the previous one back at the end. Without a
/// palette the context keeps its own.
class SelectedPalette {
public:
    SelectedPalette(HDC context, HPALETTE palette) noexcept
        : context_(context), before_(palette ? SelectPalette(context, palette, TRUE) : nullptr) {
        if (before_) RealizePalette(context_);
    }
    SelectedPalette(const SelectedPalette&) = delete;
    SelectedPalette& operator=(const SelectedPalette&) = delete;
    ~SelectedPalette() {
        if (!before_) return;
        SelectPalette(context_, before_, TRUE);
        RealizePalette(context_);
    }

private:
    const HDC context_;
    const HPALETTE before_;
};

}  // namespace vorla
