#include "text/padding.h"

#include <algorithm>

#include "frame/values/runtime_error.h"

namespace vorla {

Joined leftAligned(TextView text, std::int16_t width) {
    const auto columns = checkedLength(width);
    const auto kept = trimmed(text).substr(0, columns);
    return {kept, Piece(L' ', columns - kept.size())};
}

Joined rightAligned(TextView text, std::int16_t width) {
    const auto columns = checkedLength(width);
    auto kept = trimmed(text);
    kept.remove_prefix(kept.size() - std::min(kept.size(), columns));
    return {Piece(L' ', columns - kept.size()), kept};
}

}  // namespace vorla
