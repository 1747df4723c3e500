#include "language/language_format.h"

namespace vorla::language {
namespace {

constexpr wchar_t escape = 0xFF;

// Texts that a value cannot contain, and the groups written in their place. Where two begin alike, the longer
// comes first. "=" is only read: escaping converts line breaks and nothing else.
struct Group {
    TextView written;
    TextView text;
};

constexpr Group groups[] = {
    {L"\u00FF{l}", L"\r\n"}, {L"\u00FF{r}", L"\r"}, {L"\u00FF{f}", L"\n"}, {L"\u00FF{e}", L"="}};

}  // namespace

Text controlKey(TextView control, TextView index, TextView property) {
    Text key(control);
    if (index.empty() && property.empty()) return key;
    // Blanks alone count as an index, although nothing of it is written.
    if (!index.empty()) key.append(keySeparator).append(trimmed(index));
    return key.append(keySeparator).append(property);
}

TextView headerKey(enumLngSpecialInfos info) {
    switch (info) {
        case enumLngSpecialInfos::lngcVersion: return L"Version";
        case enumLngSpecialInfos::lngcNameIso: return L"NameISO";
        case enumLngSpecialInfos::lngcCodeIso: return L"CodeISO";
        case enumLngSpecialInfos::lngcTranslator: return L"Translator";
        case enumLngSpecialInfos::lngcUserComment: return L"UserComment";
        case enumLngSpecialInfos::lngcNumVersion: return L"2.0";
        case enumLngSpecialInfos::lngcMail: return L"e-Mail";
    }
    return {};
}

Text escaped(TextView text) {
    Text result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto plain = text.substr(0, text.find_first_of(L"\r\n"));
        result += plain;
        text.remove_prefix(plain.size());
        for (const Group& group : groups) {
            if (!text.starts_with(group.text)) continue;
            result += group.written;
            text.remove_prefix(group.text.size());
            break;
        }
    }
    return result;
}

Text unescaped(TextView text) {
    Text result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto plain = text.substr(0, text.find(escape));
        result += plain;
        text.remove_prefix(plain.size());
        const auto before = text.size();
        for (const Group& group : groups) {
            if (!text.starts_with(group.written)) continue;
            result += group.text;
            text.remove_prefix(group.written.size());
            break;
        }
        if (text.size() == before && !text.empty()) {
            // Not the beginning of a group, so an ordinary character.
            result += escape;
            text.remove_prefix(1);
        }
    }
    return result;
}

}  // namespace vorla::language
