#include "support/forms/object.h"

#include <cwchar>

#include "support/item_enumerator.h"
#include "support/named_type.h"

namespace vorla::forms {
namespace {

// Above all standard identifiers. The identifiers of an object's own properties follow those of its class.
constexpr DISPID firstId = 1000, firstOwnId = 5000;

bool sameName(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && _wcsnicmp(a.data(), b.data(), a.size()) == 0;
}

}  // namespace

Variant Object::get(std::wstring_view name) {
    DISPPARAMS none{};
    return answer(find(name), HostCall(none, DISPATCH_PROPERTYGET, LOCALE_USER_DEFAULT));
}

void Object::write(std::wstring_view name, Variant value) {
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS given{value.put(), &named, 1, 1};
    answer(find(name), HostCall(given, DISPATCH_PROPERTYPUT, LOCALE_USER_DEFAULT));
}

void Object::addProperty(const wchar_t* name, Variant value) {
    own_.push_back({name, std::move(value), false});
}
void Object::removeMember(const wchar_t* name) { own_.push_back({name, {}, true}); }

HRESULT Object::QueryInterface(REFIID id, void** object) {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch) *object = static_cast<IDispatch*>(this);
    if (id == IID_IProvideClassInfo) *object = static_cast<IProvideClassInfo*>(this);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG Object::Release() {
    const auto left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT Object::GetTypeInfoCount(UINT* count) {
    *count = 1;
    return S_OK;
}

HRESULT Object::GetTypeInfo(UINT index, LCID, ITypeInfo** type) {
    *type = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    if (!interface_) interface_ = test::typeNamed((L"_" + typeName_).c_str(), TKIND_DISPATCH);
    return test::give(interface_, type);
}

HRESULT Object::GetClassInfo(ITypeInfo** type) {
    if (!class_) class_ = test::typeNamed(typeName_.c_str(), TKIND_COCLASS);
    return test::give(class_, type);
}

HRESULT Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (count != 1) return E_INVALIDARG;
    ids[0] = DISPID_UNKNOWN;
    if (const auto failed = record_.noteLookup(L"lookup " + path() + L"." + names[0]); FAILED(failed))
        return failed;
    ids[0] = find(names[0]);
    return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT Object::Invoke(DISPID id, REFIID, LCID locale, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                       EXCEPINFO* exception, UINT*) {
    // The caller may release the last reference during the call.
    const HostObject alive(this);
    if (id == DISPID_VALUE && members().defaultMember() >= 0)
        id = firstId + static_cast<DISPID>(members().defaultMember());
    const HostCall call(*parameters, kind, locale);
    const auto line = call.verb() + (L" " + path()) + L"." + nameOf(id);
    if (const auto* failure = record_.noteCall(line)) return failure->raise(exception);
    try {
        auto given = answer(id, call);
        if (result) *result = given.detach();
        return S_OK;
    } catch (const RuntimeError& error) {
        const auto number = static_cast<std::uint32_t>(error.number());
        // Hosts see a missing member, not one that failed.
        if (error.number() == ErrorNumber::propertyOrMethodNotSupported) return DISP_E_MEMBERNOTFOUND;
        return test::HostFailure{static_cast<HRESULT>(0x800A0000u + number)}.raise(exception);
    }
}

DISPID Object::find(std::wstring_view name) const {
    for (std::size_t i = own_.size(); i-- > 0;)
        if (sameName(own_[i].name, name))
            return own_[i].removed ? DISPID_UNKNOWN : firstOwnId + static_cast<DISPID>(i);
    const auto place = members().find(name);
    return place < 0 ? DISPID_UNKNOWN : firstId + static_cast<DISPID>(place);
}

std::wstring Object::nameOf(DISPID id) const {
    if (id == DISPID_NEWENUM) return L"(enumerator)";
    if (id >= firstOwnId) return own_.at(static_cast<std::size_t>(id - firstOwnId)).name;
    const auto place = static_cast<std::size_t>(id - firstId);
    return id >= firstId && place < members().count() ? members().at(place).name : std::to_wstring(id);
}

Variant Object::answer(DISPID id, const HostCall& call) {
    if (id == DISPID_NEWENUM && isCollection()) {
        Variant enumerator;
        enumerator.put()->vt = VT_UNKNOWN;
        enumerator.put()->punkVal =
            new test::ItemEnumerator(*static_cast<IDispatch*>(this), items(), record_, L"next " + path());
        return enumerator;
    }
    if (id >= firstOwnId) {
        auto& value = own_.at(static_cast<std::size_t>(id - firstOwnId)).value;
        if (call.isPut()) value = Variant(call.argument(0));
        return value;
    }
    const auto place = static_cast<std::size_t>(id - firstId);
    if (id < firstId || place >= members().count())
        throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
    return answer(members().at(place), call);
}

Variant Object::answer(const Member& member, const HostCall& call) {
    const auto& body = call.isPut()                                     ? member.put
                       : (call.kind() & DISPATCH_METHOD) && member.call ? member.call
                       : (call.kind() & DISPATCH_PROPERTYGET)           ? member.get
                                                                        : Member::Body();
    if (!body) throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
    return body(*this, call);
}

}  // namespace vorla::forms
