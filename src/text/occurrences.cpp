#include "text/occurrences.h"

#include "frame/shared/matcher.h"
#include "frame/values/runtime_error.h"

namespace vorla {

float occurrences(TextView text, TextView sought, std::int16_t start) {
    if (text.empty() || sought.empty()) return 0;
    const Matcher matcher(sought);
    float count = 0;
    std::size_t matched = 0;
    for (std::size_t i = start < 1 ? 0 : static_cast<std::size_t>(start) - 1; i < text.size(); ++i) {
        matched = matcher.read(matched, text[i]);
        if (!matcher.isWhole(matched)) continue;
        checkedPosition(i + 2 - matcher.length());
        ++count;
    }
    return count;
}

}  // namespace vorla
