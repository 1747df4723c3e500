// Texts that stand in the source.
#pragma once

#include "frame/values/text.h"

namespace vorla {

/// A text that stands in the source: it lasts as long as the code that holds it, and what lies at its
/// address never changes.
class Literal {
public:
    // Never at run time: other texts come and go, and another may lie where one was.
    consteval Literal(const wchar_t* text) : text_(text) {}

    constexpr const wchar_t* get() const { return text_; }
    constexpr operator TextView() const { return text_; }

    /// Whether it is the same piece of the source. The same characters may stand at more than one place.
    constexpr bool isSame(Literal other) const { return text_ == other.text_; }

private:
    const wchar_t* text_;
};

}  // namespace vorla
