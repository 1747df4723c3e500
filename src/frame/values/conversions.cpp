#include "frame/values/conversions.h"

#include <cmath>
#include <new>

#include "frame/values/com_pointer.h"
#include "frame/values/invocation.h"
#include "frame/values/leading_number.h"

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

void throwFailure(HRESULT failure) {
    if (failure == E_OUTOFMEMORY) throw std::bad_alloc();
    throw RuntimeError(errorNumberOf(failure));
}

namespace {

// Hosts join a boolean to text in the user's language.
constexpr USHORT asHostsJoin = VARIANT_LOCALBOOL;

}  // namespace

namespace {

// Hosts nest two or three objects: an item, its field, the field's value. An object that leads back to itself
// would never end.
constexpr int mostObjects = 8;

Variant defaultProperty(VariantView object) {
    if (!object.raw().punkVal) throw RuntimeError(ErrorNumber::objectNotSet);
    const auto dispatch = queried<IDispatch>(object.raw().punkVal);
    if (!dispatch) throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
    return invoked(dispatch.get(), DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {});
}

bool isDispatch(const VARIANT& value) { return value.vt == VT_DISPATCH && value.pdispVal; }

// Follows default properties as the automation runtime does, but with a limit. Returns whether there is a
// value.
bool readPlainValue(VariantView object, LCID locale, Variant& value) {
    auto asked = ComPointer<IDispatch>(object.raw().pdispVal);
    for (int objects = 0; objects < mostObjects; ++objects) {
        DISPPARAMS none{};
        value = Variant();
        const auto answer = asked->Invoke(DISPID_VALUE, IID_NULL, locale, DISPATCH_PROPERTYGET, &none,
                                          value.put(), nullptr, nullptr);
        if (FAILED(answer)) return false;
        if (!isDispatch(value.view().raw())) return true;
        asked = value.view().raw().pdispVal;
    }
    return false;
}

}  // namespace

HRESULT changeType(VARIANT& result, const VARIANT& source, LCID locale, USHORT flags, VARTYPE type) {
    const VariantView given(source);
    if (!isDispatch(given.raw()) || type == VT_DISPATCH || type == VT_UNKNOWN)
        return VariantChangeTypeEx(&result, const_cast<VARIANT*>(&source), locale, flags, type);
    Variant value;
    return readPlainValue(given, locale, value)
               ? VariantChangeTypeEx(&result, value.put(), locale, flags, type)
               : DISP_E_TYPEMISMATCH;
}

Variant plainValue(VariantView value) {
    if (!value.isObject()) return Variant(value);
    auto result = defaultProperty(value);
    for (int objects = 1; result.view().isObject(); ++objects) {
        if (objects == mostObjects) throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
        result = defaultProperty(result.view());
    }
    return result;
}

Variant converted(VariantView value, VARTYPE type) {
    if (value.isNull()) throw RuntimeError(ErrorNumber::invalidUseOfNull);
    if (value.isObject()) return converted(plainValue(value).view(), type);
    Variant result;
    throwIfFailed(changeType(*result.put(), value.raw(), LOCALE_USER_DEFAULT, 0, type));
    return result;
}

namespace {

Bstr written(VariantView value, LCID locale, USHORT flags) {
    if (value.isNull()) throw RuntimeError(ErrorNumber::invalidUseOfNull);
    if (value.isObject()) return written(plainValue(value).view(), locale, flags);
    Variant text;
    throwIfFailed(changeType(*text.put(), value.raw(), locale, flags, VT_BSTR));
    return Bstr::adopt(text.detach().bstrVal);
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

template <>
bool convertedTo(VariantView value) {
    return converted(value, VT_BOOL).raw().boolVal != VARIANT_FALSE;
}
template <>
std::uint8_t convertedTo(VariantView value) {
    return converted(value, VT_UI1).raw().bVal;
}
template <>
std::int16_t convertedTo(VariantView value) {
    return converted(value, VT_I2).raw().iVal;
}
template <>
std::int32_t convertedTo(VariantView value) {
    return converted(value, VT_I4).raw().lVal;
}
template <>
float convertedTo(VariantView value) {
    return converted(value, VT_R4).raw().fltVal;
}
template <>
double convertedTo(VariantView value) {
    return converted(value, VT_R8).raw().dblVal;
}
template <>
Currency convertedTo(VariantView value) {
    return {converted(value, VT_CY).raw().cyVal.int64};
}
template <>
Date convertedTo(VariantView value) {
    return {converted(value, VT_DATE).raw().date};
}
template <>
Text convertedTo(VariantView value) {
    return Text(ValueText(value).view());
}

std::int32_t colourIn(VariantView value) {
    // A double holds every number of 32 bits, with a sign or without.
    const double number = std::nearbyint(convertedTo<double>(value));
    if (!(number >= INT32_MIN && number <= UINT32_MAX)) throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::int64_t>(number)));
}

TextView ValueText::write(const VariantView& value) {
    written_ = written(value, LOCALE_USER_DEFAULT, asHostsJoin);
    return written_.view();
}

bool isAmountType(VARTYPE type) noexcept {
    switch (type) {
        case VT_I2:
        case VT_I4:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DATE: return true;
        default: return false;
    }
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
    throwIfFailed(parseNumber(numeric, value));
    return value;
}

// Outside these limits the text of a double has an exponent, which the formats of some systems repeat.
constexpr double firstDigits = 1e-4, firstExponent = 1e15;

// Some systems write "-1.25E+17" with a point whatever the user's decimal sign is. This puts in that sign.
Text withUsersSign(TextView number) {
    Text result(number);
    const auto point = result.find(L'.');
    if (point == Text::npos || result.find(L'E') == Text::npos) return result;
    wchar_t sign[8];
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign, 8) > 1) result.replace(point, 1, sign);
    return result;
}

// The digits of a whole number: "-1.25E+17" is "-125" and fifteen zeros.
Text withoutExponent(TextView number) {
    const auto mark = number.find(L'E');
    if (mark == TextView::npos) return Text(number);
    Text digits(number.substr(0, mark));
    auto zeros = static_cast<std::size_t>(leadingNumber(number.substr(mark + 1)));
    if (const auto point = digits.find(L'.'); point != Text::npos) {
        digits.erase(point, 1);
        zeros -= digits.size() - point;
    }
    return digits.append(zeros, L'0');
}

}  // namespace

std::optional<double> numberIn(TextView text) {
    double value = 0;
    if (FAILED(parseNumber(text, value))) return {};
    return value;
}

bool isNumeric(TextView text) { return numberIn(text).has_value(); }

Bstr formattedValue(VariantView value, const wchar_t* format) {
    // The function changes neither argument, although its declaration does not say so.
    auto read = value.raw();
    Bstr result;
    throwIfFailed(VarFormat(&read, const_cast<LPOLESTR>(format), 0, 0, 0, result.put()));
    return result;
}

Text roundedNumber(TextView numeric) {
    const double number = numberOf(numeric);
    if (std::abs(number) < firstExponent) return Text(formatted(number, L"0").view());
    // The number is whole, and may have too many digits for a format.
    return withoutExponent(numberToInvariantText(Variant(number).view()).view());
}

Text generalNumber(TextView numeric) {
    Bstr result;
    throwIfFailed(VarBstrFromR8(numberOf(numeric), LOCALE_USER_DEFAULT, 0, result.put()));
    return withUsersSign(result.view());
}

namespace {

Variant decimalOf(double number) {
    if (!std::isfinite(number)) throw RuntimeError(ErrorNumber::overflow);
    Variant result;
    DECIMAL decimal;
    throwIfFailed(VarDecFromR8(number, &decimal));
    // A decimal fills the whole variant, including the place of its type.
    result.put()->decVal = decimal;
    result.put()->vt = VT_DECIMAL;
    return result;
}

}  // namespace

Bstr formatted(double number, const wchar_t* format) {
    const double size = std::abs(number);
    const bool hasDigits = number == 0 || (size >= firstDigits && size < firstExponent);
    const Variant value = hasDigits ? Variant(number) : decimalOf(number);
    return formattedValue(value.view(), format);
}

Bstr decimalText(double number) {
    Variant value = decimalOf(number);
    Bstr result;
    throwIfFailed(VarBstrFromDec(&value.put()->decVal, LOCALE_USER_DEFAULT, 0, result.put()));
    return result;
}

Text upperCased(TextView text) { return withCase(text, LCMAP_UPPERCASE); }
Text lowerCased(TextView text) { return withCase(text, LCMAP_LOWERCASE); }

}  // namespace vorla
