// Delimiters around a text. Inline, as the columns of padding.h.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/joined.h"

namespace vorla {

/// The delimiter of a kind; `custom` is that of `epsCustom`. Empty for an unknown kind.
constexpr TextView delimiter(eParseSeparator kind, TextView custom) {
    switch (kind) {
        case eParseSeparator::epsDoubleQuote: return L"\"";
        case eParseSeparator::epsSimpleQuote: return L"'";
        case eParseSeparator::epsSlash: return L"/";
        case eParseSeparator::epsBackSlash: return L"\\";
        case eParseSeparator::epsCustom: return custom;
    }
    return {};
}

/// `text` between two delimiters of the given kind. The result views its arguments.
constexpr Joined quoted(TextView text, eParseSeparator kind, TextView custom) {
    const auto mark = delimiter(kind, custom);
    return {mark, text, mark};
}

}  // namespace vorla
