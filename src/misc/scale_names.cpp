#include "misc/scale_names.h"

#include <algorithm>
#include <iterator>

namespace vorla {

std::int16_t scaleModeNamed(TextView name) {
    constexpr TextView names[] = {L"user",      L"twip", L"point",      L"pixel",
                                  L"character", L"inch", L"millimeter", L"centimeter"};
    constexpr std::int16_t twips = 1;
    const auto found = std::find(std::begin(names), std::end(names), name);
    return found == std::end(names) ? twips : static_cast<std::int16_t>(found - std::begin(names));
}

}  // namespace vorla
