// Texts in the source.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// A text in the source. It lasts as long as the code that contains it, and the characters at its address
/// never change.
class Literal {
public:
    // Not at run time: any other text may be replaced by a different one at the same address.
    consteval Literal(const wchar_t* text) : text_(text) {}

    constexpr const wchar_t* get() const { return text_; }
    constexpr operator TextView() const { return text_; }

    /// Whether both are the same place in the source. Different places may hold the same characters.
    constexpr bool isSame(Literal other) const { return text_ == other.text_; }

private:
    const wchar_t* text_;
};

}  // namespace vorla
