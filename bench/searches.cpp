// Searches that look at everything and find nothing: a host's list against the bare loop on
// IDispatch::Invoke, and arrays against arrays of a tenth of the size.
#include "host_list.h"
#include "subjects.h"

#include "frame/com/catalogue.h"

namespace vorla::bench {
namespace {

constexpr std::int32_t lines = 32'000;
constexpr LONG elements = 1'000'000;

using FindLine = Slot<IDispatch*, BSTR, VARIANT_BOOL*, VARIANT_BOOL*, VARIANT_BOOL*, BSTR*, BYTE*, LONG*>;
using FindElement = Slot<VARIANT, VARIANT, LONG*>;

LONG lineByHand(IDispatch* list, TextView key) {
    const auto read = [list](DISPID id, VARIANT* index, VARIANT& result) {
        DISPPARAMS parameters{index, nullptr, index ? 1u : 0u, 0};
        demand(list->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, methodCall, &parameters, &result, nullptr,
                            nullptr));
    };
    VARIANT count{};
    read(idByObject(list, L"ListCount"), nullptr, count);
    const auto id = idByObject(list, L"List");
    for (LONG i = 0; i < count.lVal; ++i) {
        VARIANT index{}, line{};
        index.vt = VT_I4;
        index.lVal = i;
        read(id, &index, line);
        const bool found = viewOf(line.bstrVal) == key;
        VariantClear(&line);
        if (found) return i;
    }
    return -1;
}

// An array of zeros, or of Empty values.
Variant arrayOf(VARTYPE type, LONG size) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(size), 0};
    Variant owner;
    owner.put()->parray = SafeArrayCreate(type, 1, &bound);
    owner.put()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    return owner;
}

void measureList(Bench& bench, IDispatch* divers) {
    HostList list(lines);
    const FindLine find(divers, L"ListeCherche");
    const Bstr key{TextView(L"Ligne 40000")};
    for (const bool caseSensitive : {true, false}) {
        bench.compare(
            caseSensitive ? "ListeCherche, 32,000 lines, case counts" : "ListeCherche, 32,000 lines", 1.2,
            [&] {
                VARIANT_BOOL onItemData = VARIANT_FALSE, whole = VARIANT_TRUE;
                VARIANT_BOOL sensitive = caseSensitive ? VARIANT_TRUE : VARIANT_FALSE;
                BSTR separator = nullptr;
                BYTE rank = 0;
                LONG found = 0;
                find(&list, key.get(), &onItemData, &sensitive, &whole, &separator, &rank, &found);
                return found;
            },
            "the bare loop on IDispatch::Invoke", [&] { return lineByHand(&list, key.view()); });
    }
}

void measureArray(Bench& bench, IDispatch* divers, VARTYPE type, const char* name) {
    const FindElement find(divers, L"TabCherche");
    const Variant key(std::int32_t{7});
    std::vector<Batch> subjects;
    for (const LONG size : {elements, elements / 10}) {
        const auto search = [find, key, array = arrayOf(type, size)] {
            LONG found = 0;
            find(array.raw(), key.raw(), &found);
            return found;
        };
        if (search() != -1) throw WrongResult(name);
        subjects.push_back(batchOf(search));
    }
    const auto times = medians(bench.effort, subjects);
    bench.report.add({name, times[0] / elements, "each element of a tenth", times[1] / (elements / 10), 1.5});
}

}  // namespace

void measureSearches(Bench& bench, const Component& component) {
    const auto divers = create(component.factory(classEntry<VorlaDivers>.number).get());
    measureList(bench, divers.get());
    measureArray(bench, divers.get(), VT_I4, "TabCherche, each of 1,000,000 integers");
    measureArray(bench, divers.get(), VT_VARIANT, "TabCherche, each of 1,000,000 variants");
}

}  // namespace vorla::bench
