// The items of a host's collection, in the collection's own order.
#pragma once

#include "frame/host/bound_object.h"
#include "frame/values/com_pointer.h"
#include "frame/values/failure.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Walks a collection once. With an enumerator, each item costs one call. Without one, `Count` and `Item` are
/// used, or the default property in place of `Item`. Hosts number their forms and controls from 0 and the
/// collections that programs fill from 1; the walk finds out which.
///
///     HostItems controls(form.getObject(L"Controls"));
///     for (Variant control; controls.next(control);) …
///
/// Errors: 91 for Nothing, 438 for an object that is not a collection, or the host's own number.
class HostItems {
public:
    explicit HostItems(HostObject collection);

    /// Puts the next item into `item`. False, with `item` Empty, when there are no more. The walk can go on
    /// after a failure: by number it continues with the following item, by enumerator wherever the host's
    /// enumerator continues.
    bool next(Variant& item);

private:
    bool nextByNumber(Variant& item);
    Variant numbered(std::int32_t number);
    bool has(std::int32_t number);
    Variant first();

    BoundObject collection_;
    ComPointer<IEnumVARIANT> enumerator_;
    std::int32_t count_ = 0;
    std::int32_t given_ = 0;
    std::int32_t base_ = 0;
    bool hasItem_ = false;
};

/// Visits the objects of a collection. One that the host fails to return, or whose visit fails, is skipped.
/// After a hundred failures to return one in a row the walk ends.
template <class Visit>
void forEachItem(HostItems& items, Visit&& visit) {
    constexpr int patience = 100;
    for (int failures = 0; failures < patience;) {
        Variant item;
        bool found = false;
        if (!step([&] { found = items.next(item); })) {
            ++failures;
            continue;
        }
        if (!found) return;
        failures = 0;
        step([&] {
            BoundObject object(item.view());
            visit(object);
        });
    }
}

}  // namespace vorla
