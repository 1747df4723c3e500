#include "frame/host/bound_object.h"

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

HRESULT BoundObject::find(const wchar_t* name, DISPID& found) {
    if (!object_) throw RuntimeError(ErrorNumber::objectNotSet);
    for (const Name& known : names_) {
        if (known.name == name) {
            found = known.id;
            return S_OK;
        }
    }
    auto asked = const_cast<LPOLESTR>(name);
    const auto answer = object_.get()->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &found);
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

Variant BoundObject::invoke(DISPID member, WORD kind, std::span<const Variant> arguments) const {
    // Few members take more than these; the rest pay for an allocation.
    constexpr std::size_t few = 8;
    std::array<VARIANT, few> fewReversed;
    std::vector<VARIANT> manyReversed;
    VARIANT* reversed = fewReversed.data();
    if (arguments.size() > few) {
        manyReversed.resize(arguments.size());
        reversed = manyReversed.data();
    }
    auto last = reversed + arguments.size();
    for (const Variant& argument : arguments) *--last = argument.raw();

    DISPPARAMS parameters{reversed, nullptr, static_cast<UINT>(arguments.size()), 0};
    DISPID value = DISPID_PROPERTYPUT;
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        parameters.rgdispidNamedArgs = &value;
        parameters.cNamedArgs = 1;
    }
    return invoked(object_.get(), member, kind, parameters);
}

}  // namespace vorla
