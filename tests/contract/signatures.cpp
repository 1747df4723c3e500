#include "contract/signatures.h"

namespace vorla::test {
namespace {

std::wstring nameOf(ITypeInfo* description, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_VOID: return L"void";
        case VT_BSTR: return L"BSTR";
        case VT_BOOL: return L"BOOL";
        case VT_UI1: return L"UI1";
        case VT_I2: return L"I2";
        case VT_I4: return L"I4";
        case VT_R4: return L"R4";
        case VT_R8: return L"R8";
        case VT_CY: return L"CY";
        case VT_DATE: return L"DATE";
        case VT_VARIANT: return L"VARIANT";
        case VT_DISPATCH: return L"DISPATCH";
        case VT_USERDEFINED: break;
        default: return L"?" + std::to_wstring(type.vt);
    }
    ComPointer<ITypeInfo> defined;
    Bstr name;
    EXPECT_EQ(S_OK, description->GetRefTypeInfo(type.hreftype, defined.put()));
    EXPECT_EQ(S_OK, defined->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
    return std::wstring(name.view());
}

std::wstring written(const VARIANT& value) {
    if (value.vt == VT_BSTR) return L'"' + std::wstring(viewOf(value.bstrVal)) + L'"';
    return std::to_wstring(value.vt == VT_BOOL ? value.boolVal : value.lVal);
}

std::wstring parameterOf(ITypeInfo* description, const ELEMDESC& parameter, TextView name) {
    const bool byReference = parameter.tdesc.vt == VT_PTR;
    auto text = (byReference ? L"&" : L"") +
                nameOf(description, byReference ? *parameter.tdesc.lptdesc : parameter.tdesc) + L' ' +
                std::wstring(name);
    if (parameter.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT)
        text += L'=' + written(parameter.paramdesc.pparamdescex->varDefaultValue);
    return parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT ? L'[' + text + L']' : text;
}

std::wstring signatureOf(ITypeInfo* description, const FUNCDESC& function) {
    constexpr UINT most = 12;
    BSTR raw[most] = {};
    UINT count = 0;
    EXPECT_EQ(S_OK, description->GetNames(function.memid, raw, most, &count));
    std::vector<Bstr> names;
    for (UINT i = 0; i < most; ++i) names.emplace_back(raw[i]);
    const wchar_t* kind = L"";
    if (function.invkind == INVOKE_PROPERTYGET) kind = L"get ";
    if (function.invkind == INVOKE_PROPERTYPUT) kind = L"put ";
    if (function.invkind == INVOKE_PROPERTYPUTREF) kind = L"set ";
    auto text = kind + nameOf(description, function.elemdescFunc.tdesc) + L' ' + Text(names[0].view()) + L'(';
    for (SHORT i = 0; i < function.cParams; ++i) {
        if (i > 0) text += L", ";
        text += parameterOf(description, function.lprgelemdescParam[i],
                            names[static_cast<std::size_t>(i) + 1].view());
    }
    return text + L')';
}

}  // namespace

std::vector<std::wstring> signaturesOf(IDispatch* object) {
    std::vector<std::wstring> signatures;
    ComPointer<ITypeInfo> description;
    EXPECT_EQ(S_OK, object->GetTypeInfo(0, 0, description.put()));
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(description->GetFuncDesc(i, &function)); ++i) {
        // 0x6000 and 0x6001 stand for IUnknown and IDispatch; own members have a 3 there.
        constexpr MEMBERID own = 0x00030000;
        if ((function->memid & own) == own) signatures.push_back(signatureOf(description.get(), *function));
        description->ReleaseFuncDesc(function);
    }
    return signatures;
}

}  // namespace vorla::test
