#include "language/message_text.h"

#include <algorithm>

namespace vorla::language {

Text withoutAccessKeys(TextView text) {
    Text result(text);
    std::erase(result, L'&');
    return result;
}

Text withValue(TextView text, int number, TextView value) {
    const Text placeholder = L"%%" + inDigits(number);
    Text result;
    for (;;) {
        const auto place = text.find(placeholder);
        result += text.substr(0, place);
        if (place == TextView::npos) return result;
        result += value;
        text.remove_prefix(place + placeholder.size());
    }
}

}  // namespace vorla::language
