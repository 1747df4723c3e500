// A host's list for the benchmark.
#pragma once

#include <vector>

#include "frame/values/bstr.h"
#include "frame/values/winapi.h"

namespace vorla::bench {

/// `ListCount`, `List(i)` and `ItemData(i)`, with as little work as possible, so that the caller's own work
/// shows. Counts its calls. It is in a file of its own so that the compiler cannot inline it, as it cannot
/// inline a host.
class HostList final : public IDispatch {
public:
    static constexpr std::int32_t lineCount = 10'000;

    explicit HostList(std::int32_t count = lineCount);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    // Lives as long as the measurement, whatever refers to it.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO*, UINT*) override;

    int lookups = 0;
    int calls = 0;

private:
    std::int32_t count() const { return static_cast<std::int32_t>(lines_.size()); }

    std::vector<Bstr> lines_;
};

}  // namespace vorla::bench
