#include "support/forms/collection.h"

namespace vorla::forms {

HostObject Collection::at(const std::vector<HostObject>& items, VariantView position) {
    constexpr std::uint16_t outOfRange = 9;
    const auto number = fromHost<std::int32_t>(position);
    if (number < 0 || static_cast<std::size_t>(number) >= items.size()) throw RuntimeError(outOfRange);
    return items[static_cast<std::size_t>(number)];
}

const Members& Collection::members() const {
    static const auto table = Members()
                                  .readOnly(L"Count", &Collection::count)
                                  .method(L"Item", &Collection::item)
                                  .byDefault(L"Item");
    return table;
}

std::vector<Variant> Collection::items() const {
    std::vector<Variant> result;
    for (const auto& item : items_()) result.push_back(toHost(item));
    return result;
}

Variant Collection::item(const HostCall& call) {
    Members::expectArguments(call, 1);
    return toHost(find_(call.argument(0)));
}

}  // namespace vorla::forms
