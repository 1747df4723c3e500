#include "frame/values/conversions.h"

#include <new>

#include "frame/values/unique_handle.h"

namespace vorla {

std::size_t sizeOfValue(VARTYPE type) noexcept {
    if (type & VT_ARRAY) return sizeof(SAFEARRAY*);
    switch (type) {
        case VT_I1:
        case VT_UI1: return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL: return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR: return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE: return 8;
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN: return sizeof(void*);
        default: return 0;
    }
}

std::uint16_t errorNumberOf(HRESULT failure) noexcept {
    if (HRESULT_FACILITY(failure) == FACILITY_CONTROL) return static_cast<std::uint16_t>(failure & 0xFFFF);
    const auto number = [failure] {
        switch (failure) {
            case DISP_E_OVERFLOW: return ErrorNumber::overflow;
            case DISP_E_DIVBYZERO: return ErrorNumber::divisionByZero;
            case DISP_E_TYPEMISMATCH:
            case DISP_E_BADVARTYPE:
            case E_NOINTERFACE: return ErrorNumber::typeMismatch;
            case DISP_E_MEMBERNOTFOUND:
            case DISP_E_UNKNOWNNAME: return ErrorNumber::propertyOrMethodNotSupported;
            case E_INVALIDARG: return ErrorNumber::invalidProcedureCall;
            case E_OUTOFMEMORY: return ErrorNumber::outOfMemory;
            default: return ErrorNumber::automationError;
        }
    };
    return static_cast<std::uint16_t>(number());
}

void check(HRESULT result) {
    if (SUCCEEDED(result)) return;
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    throw RuntimeError(errorNumberOf(result));
}

namespace {

// Hosts join a boolean to text in the user's language.
constexpr USHORT asHostsJoin = VARIANT_LOCALBOOL;

// What an object stands for where a value is wanted. A failure carries the object's own number.
Variant defaultProperty(VariantView object) {
    if (!object.raw().punkVal) throw RuntimeError(ErrorNumber::objectNotSet);
    ComPointer<IDispatch> dispatch;
    if (FAILED(object.raw().punkVal->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(dispatch.put()))))
        throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
    DISPPARAMS none{};
    Variant value;
    EXCEPINFO exception{};
    const auto answer =
        dispatch->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET | DISPATCH_METHOD,
                         &none, value.put(), &exception, nullptr);
    const Bstr source(exception.bstrSource), description(exception.bstrDescription),
        help(exception.bstrHelpFile);
    if (answer == DISP_E_EXCEPTION) {
        if (exception.wCode != 0) throw RuntimeError(exception.wCode);
        check(exception.scode);
    }
    check(answer);
    return value;
}

Bstr written(VariantView value, LCID locale, USHORT flags) {
    if (value.isNull()) throw RuntimeError(ErrorNumber::invalidUseOfNull);
    if (value.isObject()) return written(defaultProperty(value).view(), locale, flags);
    Variant text;
    check(changeType(*text.put(), value.raw(), locale, flags, VT_BSTR));
    return Bstr(text.detach().bstrVal);
}

Text withCase(TextView text, DWORD mapping) {
    Text result(text.size(), L'\0');
    const auto length = static_cast<int>(text.size());
    if (length != 0 &&
        LCMapStringW(LOCALE_USER_DEFAULT, mapping, text.data(), length, result.data(), length) == 0)
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return result;
}

}  // namespace

ValueText::ValueText(VariantView value) {
    if (value.type() == VT_BSTR) {
        view_ = viewOf(value.raw().bstrVal);
        return;
    }
    written_ = written(value, LOCALE_USER_DEFAULT, asHostsJoin);
    view_ = written_.view();
}

Bstr numberToInvariantText(VariantView number) {
    if (number.type() == VT_DATE) return written(number, LOCALE_USER_DEFAULT, 0);
    constexpr LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    return written(number, english, VARIANT_NOUSEROVERRIDE);
}

namespace {

HRESULT parseNumber(TextView text, double& value) {
    return VarR8FromStr(Bstr(text).get(), LOCALE_USER_DEFAULT, 0, &value);
}

double numberOf(TextView numeric) {
    double value = 0;
    check(parseNumber(numeric, value));
    return value;
}

}  // namespace

bool isNumeric(TextView text) {
    double value;
    return SUCCEEDED(parseNumber(text, value));
}

Bstr formattedValue(VariantView value, const wchar_t* format) {
    // The function writes to neither, which its declaration does not say.
    auto read = value.raw();
    Bstr result;
    check(VarFormat(&read, const_cast<LPOLESTR>(format), 0, 0, 0, result.put()));
    return result;
}

Variant converted(VariantView value, VARTYPE type) {
    Variant result;
    check(changeType(*result.put(), value.raw(), LOCALE_USER_DEFAULT, 0, type));
    return result;
}

Bstr roundedNumber(TextView numeric) { return formattedValue(Variant(numberOf(numeric)).view(), L"0"); }

Bstr generalNumber(TextView numeric) {
    Bstr result;
    check(VarBstrFromR8(numberOf(numeric), LOCALE_USER_DEFAULT, 0, result.put()));
    return result;
}

Text upperCased(TextView text) { return withCase(text, LCMAP_UPPERCASE); }
Text lowerCased(TextView text) { return withCase(text, LCMAP_LOWERCASE); }

}  // namespace vorla
