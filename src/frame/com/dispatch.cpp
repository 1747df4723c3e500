#include "frame/com/dispatch.h"

#include <cstring>
#include <utility>

#include "frame/com/instance.h"
#include "frame/contract/identifiers.h"
#include "frame/values/com_pointer.h"
#include "frame/values/conversions.h"

namespace vorla::dispatch {

HRESULT findNames(const Publication& publication, std::span<const LPOLESTR> names,
                  std::span<DISPID> ids) noexcept {
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

// A required variant may hold a missing value; the member decides what that means.
bool takesMissing(const Parameter& parameter) {
    return parameter.type.type == VT_VARIANT && !parameter.optional;
}

// A script's variable stands for what it holds.
VARIANT& held(VARIANT& argument) {
    return argument.vt == (VT_BYREF | VT_VARIANT) ? *argument.pvarVal : argument;
}

bool ownsText(const Default& whenMissing) { return whenMissing.text[0] != 0; }

// The value of an optional argument that is left out.
HRESULT missingValue(const Parameter& parameter, VARIANT& value) {
    const auto type = parameter.type.type;
    if (type == VT_VARIANT && parameter.whenMissing.kind == Default::Kind::none) {
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
        return S_OK;
    }
    if (parameter.whenMissing.kind == Default::Kind::text || type == VT_BSTR) {
        // Members treat an absent string as empty, and it costs no allocation.
        const bool owned = ownsText(parameter.whenMissing);
        value.bstrVal = owned ? SysAllocString(parameter.whenMissing.text) : nullptr;
        value.vt = VT_BSTR;
        return owned && !value.bstrVal ? E_OUTOFMEMORY : S_OK;
    }
    value.vt = VT_I4;
    value.lVal = parameter.whenMissing.number;
    switch (type) {
        case VT_VARIANT:
        case VT_I4: return S_OK;
        case VT_I2:
            value.vt = VT_I2;
            value.iVal = static_cast<SHORT>(parameter.whenMissing.number);
            return S_OK;
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

// Whether a parameter of this kind takes the object. It always takes Nothing.
HRESULT checkObject(Described described, IDispatch* object) {
    if (!object || described == Described::no) return S_OK;
    ComPointer<IUnknown> asked;
    const auto answer =
        object->QueryInterface(described == Described::picture ? IID_IPictureDisp : IID_IFontDisp,
                               reinterpret_cast<void**>(asked.put()));
    return FAILED(answer) ? DISP_E_TYPEMISMATCH : S_OK;
}

HRESULT explain(HRESULT failure, EXCEPINFO* exception) {
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = failure;
    ComPointer<IErrorInfo> information;
    if (GetErrorInfo(0, information.put()) == S_OK) {
        information->GetSource(&exception->bstrSource);
        information->GetDescription(&exception->bstrDescription);
        information->GetHelpFile(&exception->bstrHelpFile);
        information->GetHelpContext(&exception->dwHelpContext);
    }
    return DISP_E_EXCEPTION;
}

// The description of a record, from the class's own library.
HRESULT describeRecord(const Publication& publication, std::uint16_t number, IRecordInfo** record) {
    ComPointer<ITypeInfo> description;
    const auto answer = publication.library.describe(identifier(number), description.put());
    return FAILED(answer) ? answer : GetRecordInfoFromTypeInfo(description.get(), record);
}

// A host cannot read a record without its description, so the member does not run without one.
HRESULT callForRecord(Instance* object, const Publication& publication, const Member& member,
                      VARIANT* arguments, VARIANT& result) {
    ComPointer<IRecordInfo> record;
    auto answer = describeRecord(publication, member.result.number, record.put());
    void* const made = SUCCEEDED(answer) ? record->RecordCreate() : nullptr;
    if (!made) {
        // No member has failed, so the error information of an older failure must not stay.
        SetErrorInfo(0, nullptr);
        return FAILED(answer) ? answer : E_OUTOFMEMORY;
    }
    answer = member.invoke(publication.slotOf(member), object, arguments, made);
    result.vt = VT_RECORD;
    result.pvRecord = made;
    result.pRecInfo = record.detach();
    if (FAILED(answer)) discard(result);
    return answer;
}

HRESULT callSlot(Instance* object, const Publication& publication, const Member& member, VARIANT* arguments,
                 VARIANT& result) {
    const auto slot = publication.slotOf(member);
    switch (const auto type = member.result.type; type) {
        case VT_VARIANT: return member.invoke(slot, object, arguments, &result);
        case VT_VOID: return member.invoke(slot, object, arguments, nullptr);
        case VT_RECORD: return callForRecord(object, publication, member, arguments, result);
        default: {
            const auto answer = member.invoke(slot, object, arguments, &result.byref);
            if (SUCCEEDED(answer)) result.vt = type;
            return answer;
        }
    }
}

// Whether each argument already has the type that the slot takes, so that the caller's array can be used.
bool fitsAsItIs(std::span<const Parameter> parameters, const DISPPARAMS& given) {
    if (given.cNamedArgs != 0 || given.cArgs != parameters.size() || !given.rgvarg) return false;
    const VARIANT* argument = given.rgvarg + given.cArgs;
    for (const Parameter& parameter : parameters) {
        --argument;
        if (argument->vt != parameter.exactType) return false;
        if ((argument->vt & VT_BYREF) && !argument->byref) return false;
    }
    return true;
}

bool isRecordOf(const VARIANT& value, REFGUID type) {
    GUID given;
    return (value.vt & ~VT_BYREF) == VT_RECORD && value.pRecInfo && value.pvRecord &&
           SUCCEEDED(value.pRecInfo->GetGuid(&given)) && given == type;
}

bool isObject(const VARIANT& value) {
    const auto type = value.vt & ~VT_BYREF;
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

// Whether converting this argument runs host code: an object is asked for its default property or for an
// interface.
bool asksTheHost(const VARIANT* source, const Parameter& parameter) {
    if (!source || ((source->vt & VT_BYREF) && !source->byref)) return false;
    const VARIANT& value = source->vt == (VT_BYREF | VT_VARIANT) ? *source->pvarVal : *source;
    if (!isObject(value) || parameter.type.type == VT_VARIANT) return false;
    return parameter.type.type != VT_DISPATCH || parameter.type.described != Described::no;
}

// One call of one member. An argument that does not have the type that the slot takes is converted into
// a cell.
class LateBoundCall {
public:
    LateBoundCall(Instance* object, const Publication& publication, const Member& member,
                  const DISPPARAMS& given, LCID locale) noexcept
        : object_(object),
          publication_(publication),
          member_(member),
          parameters_(publication.parametersOf(member)),
          given_(given),
          locale_(locale) {}
    LateBoundCall(const LateBoundCall&) = delete;
    LateBoundCall& operator=(const LateBoundCall&) = delete;
    ~LateBoundCall();

    HRESULT run(VARIANT& result, EXCEPINFO* exception, UINT* badArgument) noexcept;

private:
    // A value that the slot gets in place of the caller's: a default, a copy, or a converted value. A record
    // is held twice, as the slot gets it and as it was.
    struct Cell {
        VARIANT value;
        VARIANT before;    // what the slot was given
        VARIANT* writeTo;  // the caller's argument that receives the change; null if there is none

        bool isChanged() const;
        HRESULT store(LCID locale) noexcept;
    };

    HRESULT assignSources() noexcept;
    HRESULT fill(VARIANT& passed, VARIANT* source, const Parameter& parameter) noexcept;
    HRESULT fillRecord(VARIANT& passed, const Parameter& parameter, VARIANT& source) noexcept;
    HRESULT fillCell(VARIANT& passed, VARIANT* source, const Parameter& parameter) noexcept;
    HRESULT convert(VARIANT& value, const Parameter& parameter, const VARIANT& source) noexcept;
    HRESULT changeTo(TypeUse type, VARIANT& value, const VARIANT& source) const noexcept;
    HRESULT writeBack() noexcept;
    UINT indexOf(const VARIANT* argument) const { return static_cast<UINT>(argument - given_.rgvarg); }

    Instance* const object_;
    const Publication& publication_;
    const Member& member_;
    const std::span<const Parameter> parameters_;
    const DISPPARAMS& given_;
    const LCID locale_;
    // Host code runs while the arguments are prepared, so the slot gets nothing that the host could change or
    // free in the meantime.
    bool hostRuns_ = false;
    UINT badArgument_ = 0;
    std::size_t cellCount_ = 0;
    // Only the elements that the call needs are ever written.
    VARIANT* sources_[parameterLimit];  // the caller's argument for each parameter; null when left out
    VARIANT passed_[parameterLimit];    // what the slot gets, in the payload, the last one first
    Cell cells_[parameterLimit];
};

LateBoundCall::~LateBoundCall() {
    for (std::size_t i = 0; i < cellCount_; ++i) {
        VARIANT& value = cells_[i].value;
        if (value.vt == VT_RECORD) {
            CoTaskMemFree(value.pvRecord);
            value.pRecInfo->Release();
        } else if (value.vt != VT_EMPTY) {
            VariantClear(&value);
        }
    }
}

HRESULT LateBoundCall::run(VARIANT& result, EXCEPINFO* exception, UINT* badArgument) noexcept {
    auto answer = assignSources();
    for (std::size_t i = 0; SUCCEEDED(answer) && i < parameters_.size(); ++i)
        hostRuns_ |= asksTheHost(sources_[i], parameters_[i]);
    for (std::size_t i = 0; SUCCEEDED(answer) && i < parameters_.size(); ++i) {
        answer = fill(passed_[parameters_.size() - 1 - i], sources_[i], parameters_[i]);
        if (FAILED(answer) && sources_[i]) badArgument_ = indexOf(sources_[i]);
    }
    if (FAILED(answer)) {
        if (badArgument) *badArgument = badArgument_;
        return answer;
    }
    answer = callSlot(object_, publication_, member_, passed_, result);
    const auto written = writeBack();
    if (FAILED(answer)) return explain(answer, exception);
    if (FAILED(written)) {
        discard(result);
        if (badArgument) *badArgument = badArgument_;
    }
    return written;
}

HRESULT LateBoundCall::assignSources() noexcept {
    const auto count = parameters_.size();
    if (given_.cArgs > count || given_.cNamedArgs > given_.cArgs) return DISP_E_BADPARAMCOUNT;
    if (given_.cArgs != 0 && !given_.rgvarg) return E_POINTER;
    if (given_.cNamedArgs != 0 && !given_.rgdispidNamedArgs) return E_POINTER;
    const auto positional = given_.cArgs - given_.cNamedArgs;
    for (std::size_t i = 0; i < count; ++i)
        sources_[i] = i < positional ? &given_.rgvarg[given_.cArgs - 1 - i] : nullptr;
    for (UINT i = 0; i < given_.cNamedArgs; ++i) {
        const DISPID id = given_.rgdispidNamedArgs[i];
        const auto place =
            id == DISPID_PROPERTYPUT && member_.stores() ? count - 1 : static_cast<std::size_t>(id);
        if (place >= count || sources_[place]) {
            badArgument_ = i;
            return DISP_E_PARAMNOTFOUND;
        }
        sources_[place] = &given_.rgvarg[i];
    }
    return S_OK;
}

HRESULT LateBoundCall::fill(VARIANT& passed, VARIANT* source, const Parameter& parameter) noexcept {
    const auto type = parameter.type.type;
    const bool byReference = parameter.type.byReference;
    if (source && (source->vt & VT_BYREF) && !source->byref) return E_POINTER;
    if (!source && !parameter.optional) return DISP_E_BADPARAMCOUNT;
    const bool leftOut = !source || (isMissing(held(*source)) && !takesMissing(parameter));
    if (leftOut && !parameter.optional) return DISP_E_PARAMNOTOPTIONAL;
    if (leftOut) {
        // A default that owns nothing needs no cell.
        if (!byReference && !ownsText(parameter.whenMissing)) return missingValue(parameter, passed);
        return fillCell(passed, nullptr, parameter);
    }
    if (type == VT_RECORD) return fillRecord(passed, parameter, *source);
    if (byReference && source->vt == (VT_BYREF | type)) {
        // The caller's own variable has exactly the type.
        passed.byref = source->byref;
        return type == VT_DISPATCH ? checkObject(parameter.type.described, *passed.ppdispVal) : S_OK;
    }
    VARIANT& value = held(*source);
    if (!hostRuns_ && type != VT_DISPATCH) {
        // The slot copies it, or runs no code that could change it.
        if (!byReference && (value.vt == type || type == VT_VARIANT)) {
            passed = value;
            return S_OK;
        }
        if (parameter.type.onlyRead && value.vt == type) {
            passed.byref = &value.byref;
            return S_OK;
        }
    }
    return fillCell(passed, source, parameter);
}

HRESULT LateBoundCall::fillCell(VARIANT& passed, VARIANT* source, const Parameter& parameter) noexcept {
    Cell& cell = cells_[cellCount_++];
    cell.value.vt = VT_EMPTY;
    const bool stored = source && parameter.type.byReference && !parameter.type.onlyRead;
    cell.writeTo = stored && (source->vt & VT_BYREF) ? source : nullptr;
    const auto answer =
        source ? convert(cell.value, parameter, held(*source)) : missingValue(parameter, cell.value);
    if (FAILED(answer)) return answer;
    cell.before = cell.value;
    if (!parameter.type.byReference)
        passed = cell.value;
    else if (parameter.type.type == VT_VARIANT)
        passed.pvarVal = &cell.value;
    else
        passed.byref = &cell.value.byref;
    return S_OK;
}

HRESULT LateBoundCall::fillRecord(VARIANT& passed, const Parameter& parameter, VARIANT& source) noexcept {
    VARIANT& value = held(source);
    if (!isRecordOf(value, identifier(parameter.type.number))) return DISP_E_TYPEMISMATCH;
    passed.byref = value.pvRecord;
    if (&value == &source || (value.vt & VT_BYREF)) return S_OK;
    // A script may release what its variable holds. The records that members take own no memory.
    ULONG size = 0;
    const auto told = value.pRecInfo->GetSize(&size);
    if (FAILED(told)) return told;
    auto* const memory = static_cast<char*>(CoTaskMemAlloc(2 * std::size_t{size}));
    if (!memory) return E_OUTOFMEMORY;
    std::memcpy(memory, value.pvRecord, size);
    std::memcpy(memory + size, value.pvRecord, size);
    Cell& cell = cells_[cellCount_++];
    cell.value = value;
    cell.value.pRecInfo->AddRef();
    cell.value.pvRecord = memory;
    cell.before = cell.value;
    cell.before.pvRecord = memory + size;
    cell.writeTo = parameter.type.onlyRead ? nullptr : &source;
    passed.byref = memory;
    return S_OK;
}

// A copy for a by-reference parameter, a value of the right type for any other.
HRESULT LateBoundCall::convert(VARIANT& value, const Parameter& parameter, const VARIANT& source) noexcept {
    const auto type = parameter.type.type;
    if (type == VT_VARIANT || source.vt == type) {
        const auto copied = copyValue(value, source);
        if (FAILED(copied) || type != VT_DISPATCH) return copied;
    } else if (isObject(source)) {
        // Its own default property may release it.
        VARIANT asked{};
        auto answer = copyValue(asked, source);
        if (SUCCEEDED(answer)) answer = changeTo(parameter.type, value, asked);
        VariantClear(&asked);
        if (FAILED(answer)) return answer;
    } else {
        const auto answer = changeTo(parameter.type, value, source);
        if (FAILED(answer)) return answer;
    }
    return type == VT_DISPATCH ? checkObject(parameter.type.described, value.pdispVal) : S_OK;
}

HRESULT LateBoundCall::changeTo(TypeUse type, VARIANT& value, const VARIANT& source) const noexcept {
    if (!type.eitherSign) return changeType(value, source, locale_, 0, type.type);
    const auto answer = changeType(value, source, locale_, 0, VT_I8);
    if (FAILED(answer)) return answer;
    const auto number = value.llVal;
    value.vt = VT_I4;
    value.lVal = static_cast<LONG>(number);
    return number >= INT32_MIN && number <= UINT32_MAX ? S_OK : DISP_E_OVERFLOW;
}

// The slot writes only what its member has changed. A new text is at a new address, so comparing addresses
// shows whether a text was written.
bool LateBoundCall::Cell::isChanged() const {
    if (value.vt != VT_RECORD) return std::memcmp(&value, &before, sizeof value) != 0;
    const auto size = static_cast<const char*>(before.pvRecord) - static_cast<const char*>(value.pvRecord);
    return std::memcmp(value.pvRecord, before.pvRecord, static_cast<std::size_t>(size)) != 0;
}

HRESULT LateBoundCall::Cell::store(LCID locale) noexcept {
    VARIANT& variable = held(*writeTo);
    if (value.vt != VT_RECORD) return crossing::store(variable, value, locale);
    GUID type;
    if (FAILED(value.pRecInfo->GetGuid(&type)) || !isRecordOf(variable, type)) return DISP_E_TYPEMISMATCH;
    const auto size = static_cast<const char*>(before.pvRecord) - static_cast<const char*>(value.pvRecord);
    std::memcpy(variable.pvRecord, value.pvRecord, static_cast<std::size_t>(size));
    return S_OK;
}

HRESULT LateBoundCall::writeBack() noexcept {
    HRESULT answer = S_OK;
    for (std::size_t i = 0; i < cellCount_; ++i) {
        Cell& cell = cells_[i];
        if (!cell.writeTo || !cell.isChanged()) continue;
        const auto stored = cell.store(locale_);
        if (FAILED(stored)) {
            badArgument_ = indexOf(cell.writeTo);
            answer = stored;
        }
    }
    return answer;
}

// Not inlined, so that the direct call does not pay for this function's large stack frame.
[[gnu::noinline]] HRESULT convertAndCall(Instance* object, const Publication& publication,
                                         const Member& member, const DISPPARAMS& given, LCID locale,
                                         VARIANT& result, EXCEPINFO* exception, UINT* badArgument) {
    return LateBoundCall(object, publication, member, given, locale).run(result, exception, badArgument);
}

}  // namespace

void discard(VARIANT& result) noexcept {
    if (result.vt == VT_RECORD) {
        // Some systems do not free a record's memory with the variant.
        result.pRecInfo->RecordDestroy(result.pvRecord);
        result.pRecInfo->Release();
        result.vt = VT_EMPTY;
    }
    VariantClear(&result);
}

HRESULT call(Instance* object, const Publication& publication, const Member& member, const DISPPARAMS& given,
             LCID locale, VARIANT& result, EXCEPINFO* exception, UINT* badArgument) noexcept {
    if (!fitsAsItIs(publication.parametersOf(member), given))
        return convertAndCall(object, publication, member, given, locale, result, exception, badArgument);
    const auto answer = callSlot(object, publication, member, given.rgvarg, result);
    return FAILED(answer) ? explain(answer, exception) : answer;
}

}  // namespace vorla::dispatch
