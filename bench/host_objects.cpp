// The cost of driving the host by name beyond the host's own work: a loop over a long list through
// BoundObject, compared with the same loop written by hand on IDispatch::Invoke.
#include "frame/host/bound_object.h"

#include "host_list.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

// One property without or with one index, as the object's own caller would write it.
void read(IDispatch* object, DISPID id, VARIANT* index, VARIANT& result) {
    DISPPARAMS parameters{index, nullptr, index ? 1u : 0u, 0};
    demand(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, methodCall, &parameters, &result, nullptr,
                          nullptr));
}

// Walks the list by hand and passes each item's value to `use`.
template <class Use>
void walkByHand(IDispatch* object, const wchar_t* name, Use use) {
    const auto countId = idByObject(object, L"ListCount"), id = idByObject(object, name);
    VARIANT count{};
    read(object, countId, nullptr, count);
    for (LONG i = 0; i < count.lVal; ++i) {
        VARIANT index{}, value{};
        index.vt = VT_I4;
        index.lVal = i;
        read(object, id, &index, value);
        use(value);
        VariantClear(&value);
    }
}

template <class Use>
void walk(IDispatch* object, Literal name, Use use) {
    BoundObject list{HostObject(object)};
    const auto count = list.getAs<std::int32_t>(L"ListCount");
    for (std::int32_t i = 0; i < count; ++i) use(list.get(name, i));
}

// The loop must ask the host for nothing but the items; otherwise the measurement would be meaningless.
template <class Loop>
void demandOneCallAnItem(const std::string& row, HostList& list, Loop loop) {
    list.lookups = list.calls = 0;
    loop();
    if (list.lookups != 2 || list.calls != 1 + HostList::lineCount) throw WrongResult(row);
}

template <class Ours, class Peer>
void compareLoops(Bench& bench, const std::string& row, HostList& list, Ours ours, Peer peer) {
    demandOneCallAnItem(row, list, ours);
    demandOneCallAnItem(row, list, peer);
    bench.compare(row, 1.2, ours, "the same loop on IDispatch::Invoke", peer);
}

}  // namespace

void measureHostObjects(Bench& bench, const Component&) {
    HostList list;
    compareLoops(
        bench, "10,000 texts of a host's list, looked through", list,
        [&list] {
            std::size_t length = 0;
            walk(&list, L"List",
                 [&](const Variant& value) { length += ValueText(value.view()).view().size(); });
            return length;
        },
        [&list] {
            std::size_t length = 0;
            walkByHand(&list, L"List", [&](const VARIANT& value) { length += SysStringLen(value.bstrVal); });
            return length;
        });
    compareLoops(
        bench, "10,000 numbers of a host's list, added up", list,
        [&list] {
            std::int64_t sum = 0;
            walk(&list, L"ItemData", [&](const Variant& value) { sum += value.raw().lVal; });
            return sum;
        },
        [&list] {
            std::int64_t sum = 0;
            walkByHand(&list, L"ItemData", [&](const VARIANT& value) { sum += value.lVal; });
            return sum;
        });
}

}  // namespace vorla::bench
