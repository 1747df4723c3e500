#include "contract/signatures.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "frame/values/bstr.h"
#include "frame/values/com_pointer.h"

namespace vorla::test {
namespace {

std::wstring nameOf(ITypeInfo& description, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_VOID: return L"void";
        case VT_UI1: return L"UI1";
        case VT_I2: return L"I2";
        case VT_I4: return L"I4";
        case VT_R4: return L"R4";
        case VT_R8: return L"R8";
        case VT_CY: return L"CY";
        case VT_DATE: return L"DATE";
        case VT_BOOL: return L"BOOL";
        case VT_BSTR: return L"BSTR";
        case VT_VARIANT: return L"VARIANT";
        case VT_DISPATCH: return L"object";
        case VT_PTR: return L"&" + nameOf(description, *type.lptdesc);
        case VT_USERDEFINED: break;
        default: return L"?" + std::to_wstring(type.vt);
    }
    ComPointer<ITypeInfo> defined;
    Bstr name;
    EXPECT_EQ(S_OK, description.GetRefTypeInfo(type.hreftype, defined.put()));
    EXPECT_EQ(S_OK, defined->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
    return std::wstring(name.view());
}

std::wstring defaultOf(const PARAMDESC& parameter) {
    if (!(parameter.wParamFlags & PARAMFLAG_FHASDEFAULT)) return {};
    const VARIANT& value = parameter.pparamdescex->varDefaultValue;
    switch (value.vt) {
        case VT_BSTR: return L"=\"" + std::wstring(viewOf(value.bstrVal)) + L'"';
        case VT_BOOL:
        case VT_I2: return L'=' + std::to_wstring(value.iVal);
        case VT_R4: return L'=' + std::to_wstring(static_cast<int>(value.fltVal));
        default: return L'=' + std::to_wstring(value.lVal);
    }
}

std::wstring signature(ITypeInfo& description, const FUNCDESC& function) {
    BSTR raw[20] = {};
    UINT count = 0;
    EXPECT_EQ(S_OK, description.GetNames(function.memid, raw, 20, &count));
    std::vector<Bstr> names;
    for (UINT i = 0; i < count; ++i) names.push_back(Bstr::adopt(raw[i]));

    wchar_t id[12];
    std::swprintf(id, 12, L"%08lx ", function.memid);
    std::wstring line = id;
    if (function.invkind == INVOKE_PROPERTYGET) line += L"get ";
    if (function.invkind == INVOKE_PROPERTYPUT) line += L"put ";
    line += nameOf(description, function.elemdescFunc.tdesc) + L' ' + std::wstring(names.at(0).view()) + L'(';
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        const bool optional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
        if (i > 0) line += L", ";
        if (optional) line += L'[';
        line += nameOf(description, parameter.tdesc);
        const auto place = static_cast<std::size_t>(i) + 1;
        if (place < names.size()) line += L' ' + std::wstring(names[place].view());
        line += defaultOf(parameter.paramdesc);
        if (optional) line += L']';
    }
    return line + L')';
}

}  // namespace

std::vector<std::wstring> signatures(IDispatch* object) {
    // Slots of IUnknown and IDispatch come first.
    constexpr SHORT ownSlots = 7 * sizeof(void*);
    ComPointer<ITypeInfo> description;
    EXPECT_EQ(S_OK, object->GetTypeInfo(0, 0, description.put()));
    std::vector<std::wstring> lines;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(description->GetFuncDesc(i, &function)); ++i) {
        const bool hidden = (function->wFuncFlags & (FUNCFLAG_FHIDDEN | FUNCFLAG_FRESTRICTED)) != 0;
        if (function->oVft >= ownSlots && !hidden) lines.push_back(signature(*description.get(), *function));
        description->ReleaseFuncDesc(function);
    }
    return lines;
}

}  // namespace vorla::test
