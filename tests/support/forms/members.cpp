#include "support/forms/members.h"

#include <cwchar>

#include "frame/host/bound_object.h"

namespace vorla::forms {

Variant toHost(IDispatch* value) { return hostArgument(value); }

void* interfaceIn(VariantView value, REFIID id) {
    if (!value.isObject()) throw RuntimeError(ErrorNumber::objectRequired);
    void* asked = nullptr;
    if (value.raw().punkVal && FAILED(value.raw().punkVal->QueryInterface(id, &asked)))
        throw RuntimeError(ErrorNumber::typeMismatch);
    return asked;
}

Members& Members::byDefault(const wchar_t* name) {
    default_ = find(name);
    return *this;
}

std::ptrdiff_t Members::find(std::wstring_view name) const {
    for (std::size_t place = 0; place < members_.size(); ++place) {
        const auto& known = members_[place].name;
        if (known.size() == name.size() && _wcsnicmp(known.data(), name.data(), name.size()) == 0)
            return static_cast<std::ptrdiff_t>(place);
    }
    return -1;
}

void Members::expectArguments(const HostCall& call, std::size_t count) {
    // The hosts' error for a wrong number of arguments.
    constexpr std::uint16_t wrongNumberOfArguments = 450;
    if (call.count() != count) throw RuntimeError(wrongNumberOfArguments);
}

Member& Members::add(const wchar_t* name) {
    const auto known = find(name);
    last_ = known < 0 ? members_.size() : static_cast<std::size_t>(known);
    if (known < 0) members_.emplace_back();
    members_[last_] = {name, {}, {}, {}};
    return members_[last_];
}

}  // namespace vorla::forms
