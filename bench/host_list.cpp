#include "host_list.h"

#include <string>
#include <utility>

namespace vorla::bench {
namespace {

enum : DISPID { listCount = 1, list, itemData };

}  // namespace

HostList::HostList(std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) lines_.push_back(Bstr(TextView(L"ligne " + std::to_wstring(i))));
}

HRESULT HostList::QueryInterface(REFIID id, void** object) {
    *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    return *object ? S_OK : E_NOINTERFACE;
}

HRESULT HostList::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT HostList::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    ++lookups;
    for (const auto& [name, id] :
         {std::pair(L"ListCount", listCount), {L"List", list}, {L"ItemData", itemData}})
        if (_wcsicmp(names[0], name) == 0) {
            ids[0] = id;
            return S_OK;
        }
    return DISP_E_UNKNOWNNAME;
}

HRESULT HostList::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                         UINT*) {
    ++calls;
    if (id == listCount) {
        result->vt = VT_I4;
        result->lVal = count();
        return S_OK;
    }
    if (parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    const VARIANT& index = parameters->rgvarg[0];
    if (index.vt != VT_I4) return DISP_E_TYPEMISMATCH;
    if (index.lVal < 0 || index.lVal >= count()) return DISP_E_BADINDEX;
    if (id == itemData) {
        result->vt = VT_I4;
        result->lVal = index.lVal * 2;
        return S_OK;
    }
    const auto text = lines_[static_cast<std::size_t>(index.lVal)].view();
    result->bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    result->vt = VT_BSTR;
    return S_OK;
}

}  // namespace vorla::bench
