#include "text/replacement.h"

#include <vector>

#include "frame/shared/matcher.h"
#include "frame/values/runtime_error.h"

namespace vorla {
namespace {

// A removal may join the two halves of a new occurrence. So the state of the match is kept for every
// character of the result and restored where a removal ends.
Text removed(TextView text, const Matcher& matcher, std::size_t first, std::size_t limit) {
    Text result(text.substr(0, first));
    std::vector<std::uint32_t> matched(1, 0);
    matched.reserve(text.size() - first + 1);
    std::size_t count = 0;
    for (std::size_t i = first; i < text.size(); ++i) {
        result += text[i];
        matched.push_back(static_cast<std::uint32_t>(matcher.read(matched.back(), text[i])));
        if (!matcher.isWhole(matched.back())) continue;
        result.resize(result.size() - matcher.length());
        matched.resize(matched.size() - matcher.length());
        checkedPosition(result.size() + 1);
        if (++count == limit) return result.append(text.substr(i + 1));
    }
    return result;
}

Text exchanged(TextView text, const Matcher& matcher, TextView replacement, std::size_t first,
               std::size_t limit) {
    Text result;
    result.reserve(text.size());
    std::size_t copied = 0;
    std::size_t count = 0;
    std::size_t matched = 0;
    for (std::size_t i = first; i < text.size(); ++i) {
        matched = matcher.read(matched, text[i]);
        if (!matcher.isWhole(matched)) continue;
        result.append(text.substr(copied, i + 1 - matcher.length() - copied));
        const auto position = checkedPosition(result.size() + 1);
        result.append(replacement);
        copied = i + 1;
        if (++count == limit) break;
        checkedPosition(position + replacement.size() + 1);
        matched = 0;
        ++i;
    }
    return result.append(text.substr(copied));
}

}  // namespace

Text replaced(TextView text, TextView sought, TextView replacement, std::int16_t start, std::int16_t limit) {
    const auto most = limit < 1 ? checkedPosition(text.size()) : static_cast<std::size_t>(limit);
    const auto first = start < 1 ? 0 : static_cast<std::size_t>(start) - 1;
    if (sought.empty() || first >= text.size()) return Text(text);
    const Matcher matcher(sought);
    return replacement.empty() ? removed(text, matcher, first, most)
                               : exchanged(text, matcher, replacement, first, most);
}

}  // namespace vorla
