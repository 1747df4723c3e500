#include "frame/host/host_items.h"

#include "frame/values/invocation.h"

namespace vorla {
namespace {

ComPointer<IEnumVARIANT> enumeratorOf(const HostObject& collection) {
    Variant answer;
    try {
        answer = invoked(collection.get(), DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {});
    } catch (const RuntimeError& error) {
        // A collection without an enumerator is walked by number. Any other failure is the collection's own.
        if (error.number() != ErrorNumber::propertyOrMethodNotSupported) throw;
        return {};
    }
    const auto view = answer.view();
    if (!view.isObject() || !view.raw().punkVal)
        throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
    auto enumerator = queried<IEnumVARIANT>(view.raw().punkVal);
    if (!enumerator) throw RuntimeError(ErrorNumber::typeMismatch);
    return enumerator;
}

}  // namespace

HostItems::HostItems(HostObject collection)
    : collection_(std::move(collection)), enumerator_(enumeratorOf(collection_.object())) {
    if (enumerator_) return;
    count_ = collection_.getAs<std::int32_t>(L"Count");
    hasItem_ = collection_.knows(L"Item");
}

bool HostItems::next(Variant& item) {
    item = Variant();
    if (!enumerator_) return nextByNumber(item);
    ULONG fetched = 0;
    const auto answer = enumerator_->Next(1, item.put(), &fetched);
    throwIfFailed(answer);
    return answer == S_OK && fetched == 1;
}

bool HostItems::nextByNumber(Variant& item) {
    if (given_ >= count_) return false;
    // Counted even if the host fails to return the item, so that a walk can continue after it.
    const auto index = given_++;
    item = index == 0 ? first() : numbered(base_ + index);
    return true;
}

Variant HostItems::numbered(std::int32_t number) {
    return hasItem_ ? collection_.get(L"Item", number) : collection_.getDefault(number);
}

bool HostItems::has(std::int32_t number) {
    try {
        numbered(number);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

Variant HostItems::first() {
    try {
        return numbered(0);
    } catch (const RuntimeError&) {
        // The item whose number is `Count` exists only if items are numbered from 1. Otherwise the failure is
        // the collection's own, and item 1 would be its second item.
        if (!has(count_)) throw;
    }
    base_ = 1;
    return numbered(1);
}

}  // namespace vorla
