// The items of a host's collection, in the collection's own order.
#pragma once

#include "frame/host/bound_object.h"
#include "frame/values/com_pointer.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Walks a collection once: by its enumerator when it has one, so that an item costs one call; otherwise by
/// `Count` and `Item`, or the default property in place of `Item`. Items are numbered from 0, as hosts number
/// their forms and controls, or from 1, as they number what programs collect; the collection is asked which.
///
///     HostItems controls(form.getObject(L"Controls"));
///     for (Variant control; controls.next(control);) …
///
/// Errors: 91 for Nothing, 438 for an object that is no collection, or the host's own number.
class HostItems {
public:
    explicit HostItems(HostObject collection);

    /// Puts the next item into `item`. False, with `item` Empty, when there is none left. After a failure the
    /// next call goes on: behind the item when items are asked for by number, where the host's enumerator is
    /// when it has one.
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

}  // namespace vorla
