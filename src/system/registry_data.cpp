#include "system/registry_data.h"

#include "frame/shared/fields.h"

namespace vorla {
namespace {

std::string_view withoutLast(std::string_view data) { return data.substr(0, data.size() - 1); }

}  // namespace

TextView normalisedKey(TextView path) { return path.starts_with(L'\\') ? path.substr(1) : path; }

TextView storedText(TextView text) { return trimmed(TronqueNul(text)); }

std::optional<std::string_view> readString(std::string_view data) {
    if (data.empty()) return std::nullopt;
    return data.back() == '\0' ? withoutLast(data) : data;
}

std::optional<std::string_view> readBinary(std::string_view data) {
    if (data.empty()) return std::nullopt;
    return withoutLast(data);
}

}  // namespace vorla
