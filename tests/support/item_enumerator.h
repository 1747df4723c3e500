// The enumerator of a test host's collection.
#pragma once

#include <string>
#include <vector>

#include "frame/values/winapi.h"
#include "support/host_call.h"

namespace vorla::test {

/// One walk over the items that a collection has when the walk begins. Lives on the heap, as hosts'
/// enumerators do, and holds a reference to its collection. Each request for an item is a call in the record,
/// logged as the given line.
class ItemEnumerator final : public IEnumVARIANT {
public:
    ItemEnumerator(IUnknown& collection, std::vector<Variant> items, CallRecord& record, std::wstring line)
        : collection_(collection), items_(std::move(items)), record_(record), line_(std::move(line)) {
        collection_.AddRef();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    ~ItemEnumerator() { collection_.Release(); }

    IUnknown& collection_;
    const std::vector<Variant> items_;
    CallRecord& record_;
    const std::wstring line_;
    std::size_t position_ = 0;
    ULONG references_ = 1;
};

}  // namespace vorla::test
