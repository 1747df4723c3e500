// A text described as a few pieces side by side. A rule returns it to say what a result looks like, and the
// caller builds the result with a single allocation.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "frame/values/text.h"

namespace vorla {

/// One piece: a view of a text, which must outlive the piece, or a repeated character.
class Piece {
public:
    constexpr Piece() = default;
    constexpr Piece(TextView text) : text_(text.data()), length_(text.size()) {}
    constexpr Piece(wchar_t character, std::size_t count) : character_(character), length_(count) {}

    constexpr std::size_t length() const { return length_; }

    /// Writes the piece at `out` and returns the end of it.
    constexpr wchar_t* copyTo(wchar_t* out) const {
        return text_ ? std::copy_n(text_, length_, out) : std::fill_n(out, length_, character_);
    }

private:
    const wchar_t* text_ = nullptr;
    wchar_t character_ = 0;
    std::size_t length_ = 0;
};

/// Up to three pieces, joined in order.
class Joined {
public:
    constexpr Joined() = default;
    constexpr Joined(Piece first, Piece second = {}, Piece third = {}) : pieces_{first, second, third} {}

    constexpr std::size_t length() const {
        return pieces_[0].length() + pieces_[1].length() + pieces_[2].length();
    }

    /// Writes `length()` characters at `out`.
    constexpr void copyTo(wchar_t* out) const {
        for (const Piece& piece : pieces_) out = piece.copyTo(out);
    }

    Text text() const {
        Text result(length(), L'\0');
        copyTo(result.data());
        return result;
    }

private:
    std::array<Piece, 3> pieces_;
};

}  // namespace vorla
