#include "support/scripted_object.h"

#include <cwchar>
#include <stdexcept>

#include "frame/values/runtime_error.h"
#include "support/item_enumerator.h"
#include "support/named_type.h"

namespace vorla::test {
namespace {

constexpr WORD invalidIndex = 381;

// Above all standard identifiers.
constexpr DISPID firstId = 1000;

}  // namespace

HRESULT ScriptedObject::ClassInfo::GetClassInfo(ITypeInfo** type) { return test::give(owner_.class_, type); }

ScriptedObject::ScriptedObject(Variant defaultValue) {
    readOnly(L"(default)", std::move(defaultValue)).defaultMember(L"(default)");
}

ScriptedObject::Member& ScriptedObject::add(const wchar_t* name) {
    members_.push_back({});
    members_.back().name = name;
    return members_.back();
}

ScriptedObject& ScriptedObject::property(const wchar_t* name, Variant value) {
    add(name).values.push_back(std::move(value));
    return *this;
}

ScriptedObject& ScriptedObject::readOnly(const wchar_t* name, Variant value) {
    property(name, std::move(value));
    members_.back().writable = false;
    return *this;
}

ScriptedObject& ScriptedObject::indexed(const wchar_t* name, std::vector<Variant> values) {
    auto& member = add(name);
    member.values = std::move(values);
    member.indexed = true;
    return *this;
}

ScriptedObject& ScriptedObject::method(const wchar_t* name, Method body) {
    add(name).body = std::move(body);
    return *this;
}

ScriptedObject& ScriptedObject::defaultMember(const wchar_t* name) {
    default_ = firstId + static_cast<DISPID>(&known(name) - members_.data());
    return *this;
}

ScriptedObject& ScriptedObject::items(std::vector<Variant> values, Walk walk) {
    readOnly(L"Count", static_cast<std::int32_t>(values.size()));
    if (walk == Walk::byEnumerator) {
        enumerates_ = true;
        items_ = std::move(values);
        return *this;
    }
    const auto* const name = walk == Walk::byCountAndItem ? L"Item" : L"(default)";
    indexed(name, std::move(values));
    return walk == Walk::byCountAndItem ? *this : defaultMember(name);
}

ScriptedObject& ScriptedObject::numberedFrom(std::int32_t first) {
    members_.back().firstIndex = first;
    return *this;
}

ScriptedObject& ScriptedObject::className(const wchar_t* name) {
    class_ = typeNamed(name, TKIND_COCLASS);
    return *this;
}

ScriptedObject& ScriptedObject::interfaceName(const wchar_t* name) {
    interface_ = typeNamed(name, TKIND_DISPATCH);
    return *this;
}

ScriptedObject& ScriptedObject::failCall(int number, HRESULT code) {
    record_.fail(number, {code});
    return *this;
}

ScriptedObject& ScriptedObject::failCallWithNumber(int number, WORD errorNumber) {
    record_.fail(number, {DISP_E_EXCEPTION, errorNumber});
    return *this;
}

ScriptedObject& ScriptedObject::failCallExplained(int number, HRESULT code) {
    record_.fail(number, {code, 0, false, true});
    return *this;
}

ScriptedObject& ScriptedObject::failCallDeferred(int number, WORD errorNumber) {
    record_.fail(number, {DISP_E_EXCEPTION, errorNumber, true});
    return *this;
}

ScriptedObject& ScriptedObject::failLookup(int number, HRESULT code) {
    record_.failLookup(number, code);
    return *this;
}

Variant& ScriptedObject::value(const wchar_t* name) { return known(name).values.at(0); }
Variant& ScriptedObject::value(const wchar_t* name, std::size_t index) {
    return known(name).values.at(index);
}

ScriptedObject::Member* ScriptedObject::find(std::wstring_view name) {
    for (Member& member : members_)
        if (member.name.size() == name.size() && _wcsnicmp(member.name.data(), name.data(), name.size()) == 0)
            return &member;
    return nullptr;
}

ScriptedObject::Member& ScriptedObject::known(const wchar_t* name) {
    auto* const member = find(name);
    if (!member) throw std::logic_error("no such member in the script");
    return *member;
}

HRESULT ScriptedObject::QueryInterface(REFIID id, void** object) {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch) *object = static_cast<IDispatch*>(this);
    if (id == IID_IProvideClassInfo && class_) *object = static_cast<IProvideClassInfo*>(&classInfo_);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT ScriptedObject::GetTypeInfoCount(UINT* count) {
    *count = interface_ ? 1 : 0;
    return S_OK;
}

HRESULT ScriptedObject::GetTypeInfo(UINT index, LCID, ITypeInfo** type) {
    *type = nullptr;
    return index == 0 && interface_ ? give(interface_, type) : DISP_E_BADINDEX;
}

HRESULT ScriptedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (count != 1) return E_INVALIDARG;
    ids[0] = DISPID_UNKNOWN;
    if (const auto failed = record_.noteLookup(L"lookup " + std::wstring(names[0])); FAILED(failed))
        return failed;
    const auto* const member = names[0][0] == L'(' ? nullptr : find(names[0]);
    ids[0] = member ? firstId + static_cast<DISPID>(member - members_.data()) : DISPID_UNKNOWN;
    return member ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ScriptedObject::answer(Member& member, const Call& call, Variant& result) {
    if (member.body) {
        if (call.isPut()) return DISP_E_MEMBERNOTFOUND;
        // A method cannot be read as a property unless the caller accepts either.
        if (!(call.kind() & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
        try {
            result = member.body(call);
            return S_OK;
        } catch (const RuntimeError& error) {
            return codeOf(error.number());
        }
    }
    const std::size_t indices = member.indexed ? 1 : 0;
    const std::size_t values = call.isPut() ? 1 : 0;
    if (call.count() != indices + values) return DISP_E_BADPARAMCOUNT;
    if (!(call.isPut() || (call.kind() & DISPATCH_PROPERTYGET))) return DISP_E_MEMBERNOTFOUND;
    std::size_t index = 0;
    if (member.indexed) {
        Variant number;
        if (FAILED(VariantChangeType(number.put(), const_cast<VARIANT*>(&call.argument(0).raw()), 0, VT_I4)))
            return DISP_E_TYPEMISMATCH;
        index = static_cast<std::size_t>(number.raw().lVal - member.firstIndex);
        if (index >= member.values.size()) return static_cast<HRESULT>(0x800A0000u + invalidIndex);
    }
    if (!values) {
        result = member.values[index];
        return S_OK;
    }
    if (!member.writable) return DISP_E_MEMBERNOTFOUND;
    member.values[index] = Variant(call.argument(indices));
    return S_OK;
}

HRESULT ScriptedObject::Invoke(DISPID id, REFIID, LCID locale, WORD kind, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* exception, UINT*) {
    if (id == DISPID_VALUE && default_ != DISPID_UNKNOWN) id = default_;
    const auto number = static_cast<std::size_t>(id - firstId);
    const bool isMember = id >= firstId && number < members_.size();
    const auto name = isMember               ? members_[number].name
                      : id == DISPID_NEWENUM ? std::wstring(L"(enumerator)")
                      : id == DISPID_VALUE   ? std::wstring(L"(default)")
                                             : std::to_wstring(id);
    const Call call(*parameters, kind, locale);
    if (const auto* failure = record_.noteCall(call.verb() + (L" " + name))) return failure->raise(exception);

    if (id == DISPID_NEWENUM && enumerates_) {
        if (!result) return S_OK;
        result->vt = VT_UNKNOWN;
        result->punkVal = new ItemEnumerator(*this, items_, record_, L"next");
        return S_OK;
    }
    if (!isMember) return DISP_E_MEMBERNOTFOUND;
    // The new value of a property is the only named argument.
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (parameters->cNamedArgs != (puts ? 1u : 0u)) return DISP_E_NONAMEDARGS;
    if (puts && parameters->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) return DISP_E_PARAMNOTFOUND;
    Variant given;
    const auto code = answer(members_[number], call, given);
    if (FAILED(code)) return HostFailure{code}.raise(exception);
    if (result) *result = given.detach();
    return S_OK;
}

}  // namespace vorla::test
