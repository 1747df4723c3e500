#include "language/theme.h"

namespace vorla::language {
namespace {

bool contains(TextView tag, TextView marker) { return tag.find(marker) != TextView::npos; }

bool keepsColour(TextView tag) { return contains(tag, L"**C**"); }

}  // namespace

std::optional<std::int32_t> formColour(const Theme& theme, std::int32_t present, TextView tag) {
    if (present != theme.marked) return {};
    return theme.applies && !keepsColour(tag) ? theme.back : buttonFace;
}

Colouring colouringOf(TextView tag, bool hasWindowColour) {
    if (keepsColour(tag) || hasWindowColour) return Colouring::none;
    return tag == L"**SmartTab**" ? Colouring::tab : Colouring::themed;
}

std::optional<std::int32_t> themedColour(const Theme& theme, std::int32_t present) {
    if (present != theme.marked) return {};
    return theme.applies ? theme.back : buttonFace;
}

bool keepsWidth(TextView tag) { return contains(tag, L"**L**"); }

}  // namespace vorla::language
