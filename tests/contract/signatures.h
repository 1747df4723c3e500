// Members as the type library describes them, in one line each.
#pragma once

#include <ocidl.h>

#include <gtest/gtest.h>

#include <string>

#include "frame/values/bstr.h"
#include "frame/values/unique_handle.h"

namespace vorla::test {

inline std::wstring typeName(ITypeInfo* description, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_VOID: return L"void";
        case VT_BSTR: return L"BSTR";
        case VT_BOOL: return L"BOOL";
        case VT_UI1: return L"UI1";
        case VT_I2: return L"I2";
        case VT_I4: return L"I4";
        case VT_R8: return L"R8";
        case VT_VARIANT: return L"VARIANT";
        case VT_DISPATCH: return L"IDispatch";
        case VT_PTR: return L"&" + typeName(description, *type.lptdesc);
        case VT_USERDEFINED: {
            ComPointer<ITypeInfo> defined;
            Bstr name;
            EXPECT_EQ(S_OK, description->GetRefTypeInfo(type.hreftype, defined.put()));
            EXPECT_EQ(S_OK, defined->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
            return std::wstring(name.view());
        }
        default: return std::to_wstring(type.vt);
    }
}

/// "BOOL Name(BSTR One, [&BOOL Two=-1])", with "&" for by reference and brackets around what is optional;
/// "get " or "let " stands before the accessors of a property. `index` counts the interface's functions.
inline std::wstring signature(ITypeInfo* description, UINT index) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(S_OK, description->GetFuncDesc(index, &function));
    if (!function) return {};
    constexpr UINT room = 17;
    BSTR raw[room] = {};
    UINT count = 0;
    EXPECT_EQ(S_OK, description->GetNames(function->memid, raw, room, &count));
    Bstr names[room];
    for (UINT i = 0; i < room; ++i) names[i] = Bstr(raw[i]);
    std::wstring written = function->invkind == INVOKE_PROPERTYGET   ? L"get "
                           : function->invkind == INVOKE_PROPERTYPUT ? L"let "
                                                                     : L"";
    written +=
        typeName(description, function->elemdescFunc.tdesc) + L' ' + std::wstring(names[0].view()) + L'(';
    for (SHORT i = 0; i < function->cParams; ++i) {
        const ELEMDESC& parameter = function->lprgelemdescParam[i];
        const bool optional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
        std::wstring one = typeName(description, parameter.tdesc);
        // The new value of a property has no name.
        if (const auto name = names[i + 1].view(); !name.empty()) one += L' ' + std::wstring(name);
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) {
            const VARIANT& value = parameter.paramdesc.pparamdescex->varDefaultValue;
            one += L'=';
            if (value.vt == VT_BSTR)
                one += L'"' + std::wstring(viewOf(value.bstrVal)) + L'"';
            else
                one += std::to_wstring(value.vt == VT_BOOL ? value.boolVal : value.lVal);
        }
        written += (i > 0 ? L", " : L"") + (optional ? L'[' + one + L']' : one);
    }
    description->ReleaseFuncDesc(function);
    return written + L')';
}

}  // namespace vorla::test
