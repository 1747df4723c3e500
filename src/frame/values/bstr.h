// Automation strings: views of them, and an owner that makes one with a single allocation.
#pragma once

#include <new>
#include <utility>

#include "frame/values/joined.h"
#include "frame/values/text.h"
#include "frame/values/winapi.h"

namespace vorla {

/// The characters of a BSTR; empty for an absent one. An odd last byte is ignored.
inline TextView viewOf(BSTR text) { return {text, SysStringLen(text)}; }

/// Owns one BSTR.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(TextView text) : text_(allocate(text.data(), text.size())) {}
    explicit Bstr(const Joined& joined) : text_(allocate(nullptr, joined.length())) { joined.copyTo(text_); }
    // Deleted, because a reader could not tell whether it copies the string or takes it over.
    explicit Bstr(BSTR) = delete;

    Bstr(Bstr&& other) noexcept : text_(other.detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() {
        // Most are empty by then, because they have given up what they owned.
        if (text_) SysFreeString(text_);
    }

    /// Takes over the caller's string.
    static Bstr adopt(BSTR owned) noexcept {
        Bstr result;
        result.text_ = owned;
        return result;
    }

    TextView view() const { return viewOf(text_); }
    BSTR get() const { return text_; }
    BSTR detach() noexcept { return std::exchange(text_, nullptr); }

    /// For a function that stores a string through a pointer. The object must be empty.
    BSTR* put() noexcept { return &text_; }

private:
    static BSTR allocate(const wchar_t* text, std::size_t length) {
        const auto result = SysAllocStringLen(text, static_cast<UINT>(length));
        if (!result) throw std::bad_alloc();
        return result;
    }

    BSTR text_ = nullptr;
};

}  // namespace vorla
