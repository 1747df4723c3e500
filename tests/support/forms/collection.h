// The collections of the forms host: its forms, a form's controls, the elements of a control array.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/forms/object.h"

namespace vorla::forms {

/// `Count`, `Item` (the default member) and an enumerator over what the collection holds at that moment.
/// Forms and controls count from 0. A missing item is an error of the function that looks it up.
class Collection final : public Object {
public:
    using Items = std::function<std::vector<HostObject>()>;
    using Find = std::function<HostObject(VariantView key)>;

    Collection(const wchar_t* typeName, std::wstring path, test::CallRecord& record, Items items, Find find)
        : Object(typeName, record),
          path_(std::move(path)),
          items_(std::move(items)),
          find_(std::move(find)) {}

    std::wstring path() const override { return path_; }
    std::int32_t count() const { return static_cast<std::int32_t>(items_().size()); }

    /// The item at a position, from 0. Error 9 outside.
    static HostObject at(const std::vector<HostObject>& items, VariantView position);

private:
    const Members& members() const override;
    bool isCollection() const override { return true; }
    std::vector<Variant> items() const override;
    Variant item(const HostCall& call);

    const std::wstring path_;
    const Items items_;
    const Find find_;
};

}  // namespace vorla::forms
