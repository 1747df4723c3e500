#include "frame/com/dispatch.h"

#include <cstring>
#include <utility>

#include "frame/com/instance.h"
#include "frame/contract/identifiers.h"
#include "frame/values/conversions.h"
#include "frame/values/unique_handle.h"

namespace vorla::dispatch {

HRESULT findNames(const Publication& publication, std::span<const LPOLESTR> names,
                  std::span<DISPID> ids) noexcept {
    for (DISPID& id : ids) id = DISPID_UNKNOWN;
    if (names.empty()) return E_INVALIDARG;
    const Member* const member = names[0] ? publication.find(names[0]) : nullptr;
    if (!member) return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    HRESULT answer = S_OK;
    const auto parameters = publication.parametersOf(*member);
    for (std::size_t i = 1; i < names.size(); ++i) {
        for (std::size_t position = 0; position < parameters.size(); ++position)
            if (names[i] && parameters[position].name && sameName(parameters[position].name, names[i]))
                ids[i] = static_cast<DISPID>(position);
        if (ids[i] == DISPID_UNKNOWN) answer = DISP_E_UNKNOWNNAME;
    }
    return answer;
}

namespace {

bool isMissing(const VARIANT& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

// A required variant may well hold a missing value: the member tells what it makes of it.
bool takesMissing(const Parameter& parameter) {
    return parameter.type.type == VT_VARIANT && !parameter.optional;
}

// A script's variable stands for what it holds.
VARIANT& held(VARIANT& argument) {
    return argument.vt == (VT_BYREF | VT_VARIANT) ? *argument.pvarVal : argument;
}

// The value of an optional argument that is left out.
HRESULT missingValue(const Parameter& parameter, VARIANT& value) {
    const auto type = parameter.type.type;
    if (type == VT_VARIANT && parameter.whenMissing.kind == Default::Kind::none) {
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
        return S_OK;
    }
    if (parameter.whenMissing.kind == Default::Kind::text || type == VT_BSTR) {
        value.bstrVal = SysAllocString(parameter.whenMissing.text);
        value.vt = VT_BSTR;
        return value.bstrVal ? S_OK : E_OUTOFMEMORY;
    }
    value.vt = VT_I4;
    value.lVal = parameter.whenMissing.number;
    switch (type) {
        case VT_VARIANT:
        case VT_I4: return S_OK;
        case VT_DISPATCH:
            value.vt = VT_DISPATCH;
            value.pdispVal = nullptr;
            return S_OK;
        case VT_BOOL:
            value.vt = VT_BOOL;
            value.boolVal = parameter.whenMissing.number ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        default: return VariantChangeType(&value, &value, 0, type);
    }
}

// Whether an object is what a parameter of this kind takes. Nothing always is.
HRESULT checkObject(Described described, IDispatch* object) {
    if (!object || described == Described::no) return S_OK;
    ComPointer<IUnknown> asked;
    const auto answer =
        object->QueryInterface(described == Described::picture ? IID_IPictureDisp : IID_IFontDisp,
                               reinterpret_cast<void**>(asked.put()));
    return FAILED(answer) ? DISP_E_TYPEMISMATCH : S_OK;
}

// Stores a value in a variable of whatever type, which keeps its type.
HRESULT storeTyped(const VARIANT& variable, VARIANT& value, LCID locale) {
    const auto type = static_cast<VARTYPE>(variable.vt & ~VT_BYREF);
    const auto size = sizeOfValue(type);
    if (size == 0) return DISP_E_TYPEMISMATCH;
    const auto converted = changeType(value, value, locale, 0, type);
    if (FAILED(converted)) return converted;
    VARIANT before;
    VariantInit(&before);
    std::memcpy(&before.byref, variable.byref, size);
    before.vt = type;
    std::memcpy(variable.byref, &value.byref, size);
    value.vt = VT_EMPTY;
    VariantClear(&before);
    return S_OK;
}

HRESULT explain(HRESULT failure, EXCEPINFO* exception) {
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = failure;
    ComPointer<IErrorInfo> information;
    if (GetErrorInfo(0, information.put()) == S_OK) {
        information->GetSource(&exception->bstrSource);
        information->GetDescription(&exception->bstrDescription);
    }
    return DISP_E_EXCEPTION;
}

}  // namespace

Call::~Call() {
    for (std::size_t i = 0; i < filled_; ++i)
        if (cells_[i].own.vt != VT_EMPTY) VariantClear(&cells_[i].own);
}

HRESULT Call::run(VARIANT& result, EXCEPINFO* exception, UINT* badArgument) noexcept {
    auto answer = assignSources();
    while (SUCCEEDED(answer) && filled_ < parameters_.size()) {
        Cell& cell = cells_[filled_];
        cell.own.vt = VT_EMPTY;
        cell.writeTo = nullptr;
        answer = fill(cell, parameters_[filled_++]);
        if (FAILED(answer) && cell.source) badArgument_ = indexOf(cell);
    }
    if (FAILED(answer)) {
        if (badArgument) *badArgument = badArgument_;
        return answer;
    }
    answer = callSlot(result);
    const auto written = writeBack();
    if (FAILED(answer)) return explain(answer, exception);
    if (FAILED(written)) {
        VariantClear(&result);
        if (badArgument) *badArgument = badArgument_;
    }
    return written;
}

HRESULT Call::assignSources() noexcept {
    const auto count = parameters_.size();
    if (given_.cArgs > count || given_.cNamedArgs > given_.cArgs) return DISP_E_BADPARAMCOUNT;
    if (given_.cArgs != 0 && !given_.rgvarg) return E_POINTER;
    if (given_.cNamedArgs != 0 && !given_.rgdispidNamedArgs) return E_POINTER;
    const auto positional = given_.cArgs - given_.cNamedArgs;
    for (std::size_t i = 0; i < count; ++i)
        cells_[i].source = i < positional ? &given_.rgvarg[given_.cArgs - 1 - i] : nullptr;
    for (UINT i = 0; i < given_.cNamedArgs; ++i) {
        const DISPID id = given_.rgdispidNamedArgs[i];
        const auto place =
            id == DISPID_PROPERTYPUT && member_.stores() ? count - 1 : static_cast<std::size_t>(id);
        if (place >= count || cells_[place].source) {
            badArgument_ = i;
            return DISP_E_PARAMNOTFOUND;
        }
        cells_[place].source = &given_.rgvarg[i];
    }
    return S_OK;
}

HRESULT Call::fill(Cell& cell, const Parameter& parameter) noexcept {
    const auto type = parameter.type.type;
    const bool byReference = parameter.type.byReference;
    if (cell.source && (cell.source->vt & VT_BYREF) && !cell.source->byref) return E_POINTER;
    if (!cell.source && !parameter.optional) return DISP_E_BADPARAMCOUNT;
    if (!cell.source || (isMissing(held(*cell.source)) && !takesMissing(parameter))) {
        if (!parameter.optional) return DISP_E_PARAMNOTOPTIONAL;
        const auto answer = missingValue(parameter, cell.own);
        if (FAILED(answer)) return answer;
    } else {
        VARIANT& source = *cell.source;
        if (type == VT_RECORD) return fillRecord(cell, parameter, source);

        VARIANT& value = held(source);
        // The caller's own variable, of the very type, alone or inside a script's variable.
        const bool exactVariable = source.vt == (VT_BYREF | type);
        if (byReference && (exactVariable || (&value != &source && value.vt == type))) {
            cell.passed.byref = exactVariable ? source.byref : &value.byref;
            return type == VT_DISPATCH ? checkObject(parameter.type.described, *cell.passed.ppdispVal) : S_OK;
        }
        if (!byReference && (value.vt == type || type == VT_VARIANT) && type != VT_DISPATCH) {
            cell.passed = value;
            return S_OK;
        }
        const auto answer = convert(cell, parameter, value);
        if (FAILED(answer)) return answer;
        if (byReference && (source.vt & VT_BYREF)) cell.writeTo = &source;
    }
    if (!byReference)
        cell.passed = cell.own;
    else if (type == VT_VARIANT)
        cell.passed.pvarVal = &cell.own;
    else
        cell.passed.byref = &cell.own.byref;
    return S_OK;
}

HRESULT Call::fillRecord(Cell& cell, const Parameter& parameter, VARIANT& source) noexcept {
    VARIANT& value = held(source);
    GUID given;
    if ((value.vt & ~VT_BYREF) != VT_RECORD || !value.pRecInfo || !value.pvRecord ||
        FAILED(value.pRecInfo->GetGuid(&given)) || given != identifier(parameter.type.number))
        return DISP_E_TYPEMISMATCH;
    cell.passed.byref = value.pvRecord;
    return S_OK;
}

// A copy for a by-reference parameter, a value of the right type for any other.
HRESULT Call::convert(Cell& cell, const Parameter& parameter, const VARIANT& source) noexcept {
    const auto type = parameter.type.type;
    if (type == VT_VARIANT) return copyValue(cell.own, source);
    const auto answer = changeType(cell.own, source, locale_, 0, type);
    if (FAILED(answer)) return answer;
    return type == VT_DISPATCH ? checkObject(parameter.type.described, cell.own.pdispVal) : S_OK;
}

HRESULT Call::callSlot(VARIANT& result) noexcept {
    VARIANT arguments[parameterLimit];
    for (std::size_t i = 0; i < filled_; ++i) arguments[i] = cells_[i].passed;
    switch (const auto type = member_.result.type; type) {
        case VT_VARIANT: return member_.invoke(object_, arguments, &result);
        case VT_VOID: return member_.invoke(object_, arguments, nullptr);
        case VT_RECORD: return callForRecord(arguments, result);
        default: {
            const auto answer = member_.invoke(object_, arguments, &result.byref);
            if (SUCCEEDED(answer)) result.vt = type;
            return answer;
        }
    }
}

HRESULT Call::callForRecord(VARIANT* arguments, VARIANT& result) noexcept {
    ComPointer<ITypeInfo> description;
    ComPointer<IRecordInfo> record;
    auto answer = publication_.library.describe(identifier(member_.result.number), description.put());
    if (SUCCEEDED(answer)) answer = GetRecordInfoFromTypeInfo(description.get(), record.put());
    if (FAILED(answer)) return answer;
    void* const made = record->RecordCreate();
    if (!made) return E_OUTOFMEMORY;
    answer = member_.invoke(object_, arguments, made);
    if (FAILED(answer)) {
        record->RecordDestroy(made);
        return answer;
    }
    result.vt = VT_RECORD;
    result.pvRecord = made;
    result.pRecInfo = record.release();
    return answer;
}

HRESULT Call::writeBack() noexcept {
    HRESULT answer = S_OK;
    for (std::size_t i = 0; i < filled_; ++i) {
        Cell& cell = cells_[i];
        if (!cell.writeTo) continue;
        VARIANT& variable = held(*cell.writeTo);
        HRESULT stored = S_OK;
        if (variable.vt & VT_BYREF) {
            stored = storeTyped(variable, cell.own, locale_);
        } else {
            VARIANT before = std::exchange(variable, cell.own);
            cell.own.vt = VT_EMPTY;
            VariantClear(&before);
        }
        if (FAILED(stored)) {
            badArgument_ = indexOf(cell);
            answer = stored;
        }
    }
    return answer;
}

}  // namespace vorla::dispatch
