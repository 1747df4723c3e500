#include "frame/host/bound_object.h"

#include "frame/host/member_names.h"
#include "frame/values/failure.h"
#include "frame/values/invocation.h"
#include "frame/values/unique_handle.h"

namespace vorla {

Variant ByReference::argument() const {
    Variant argument;
    argument.put()->vt = VT_BYREF | VT_VARIANT;
    argument.put()->pvarVal = variable_->put();
    return argument;
}

Variant hostArgument(IDispatch* object) {
    Variant argument;
    argument.put()->vt = VT_DISPATCH;
    argument.put()->pdispVal = object;
    if (object) object->AddRef();
    return argument;
}

HostObject objectIn(VariantView value) {
    if (!value.isObject()) throw RuntimeError(ErrorNumber::objectRequired);
    const auto unknown = value.raw().punkVal;
    if (!unknown) throw RuntimeError(ErrorNumber::objectNotSet);
    ComPointer<IDispatch> dispatch;
    if (FAILED(unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(dispatch.put()))))
        throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
    return HostObject(dispatch.get());
}

namespace {

// Names are short, and compared for every read: without a call.
bool isName(const Text& known, const wchar_t* name) {
    for (const wchar_t character : known)
        if (character != *name++) return false;
    return *name == L'\0';
}

}  // namespace

HRESULT BoundObject::find(const wchar_t* name, DISPID& found) {
    if (!object_) throw RuntimeError(ErrorNumber::objectNotSet);
    for (const Name& known : names_) {
        if (isName(known.name, name)) {
            found = known.id;
            return S_OK;
        }
    }
    const auto answer = findMember(object_.get(), name, LOCALE_USER_DEFAULT, found);
    if (SUCCEEDED(answer)) names_.push_back({name, found});
    return answer;
}

bool BoundObject::knows(const wchar_t* name) {
    DISPID found;
    return object_ && SUCCEEDED(find(name, found));
}

bool BoundObject::hasProperty(const wchar_t* name) {
    return endOnError(false, [&] {
        run(id(name), DISPATCH_PROPERTYGET);
        return true;
    });
}

DISPID BoundObject::id(const wchar_t* name) {
    DISPID found = DISPID_UNKNOWN;
    check(find(name, found));
    return found;
}

Variant BoundObject::invoke(DISPID member, WORD kind, std::span<Variant> reversed) const {
    DISPID value = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.empty() ? nullptr : reversed.data()->put(), nullptr,
                          static_cast<UINT>(reversed.size()), 0};
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        parameters.rgdispidNamedArgs = &value;
        parameters.cNamedArgs = 1;
    }
    return invoked(object_.get(), member, kind, parameters);
}

}  // namespace vorla
