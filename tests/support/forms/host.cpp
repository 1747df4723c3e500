#include "support/forms/host.h"

#include <algorithm>

namespace vorla::forms {

Host::~Host() {
    while (!forms_.empty()) forms_.back()->unload();
}

Form& Host::load(const wchar_t* name, const FormDesign& design) {
    forms_.push_back(ComPointer<Form>::adopt(new Form(*this, name, design)));
    return *forms_.back().get();
}

void Host::forget(Form& form) {
    forms_.erase(
        std::find_if(forms_.begin(), forms_.end(), [&](const auto& kept) { return kept.get() == &form; }));
}

std::vector<HostObject> Host::formObjects() const {
    std::vector<HostObject> result;
    for (const auto& form : forms_) result.emplace_back(form.get());
    return result;
}

HostObject Host::forms() {
    auto collection = ComPointer<Collection>::adopt(new Collection(
        L"Forms", L"Forms", record_, [this] { return formObjects(); },
        [this](VariantView number) { return Collection::at(formObjects(), number); }));
    return HostObject(collection.get());
}

}  // namespace vorla::forms
