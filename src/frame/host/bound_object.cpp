#include "frame/host/bound_object.h"

#include <algorithm>

#include "frame/host/member_names.h"
#include "frame/values/com_pointer.h"
#include "frame/values/failure.h"

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
    auto object = queried<IDispatch>(unknown);
    if (!object) throw RuntimeError(ErrorNumber::propertyOrMethodNotSupported);
    return object;
}

Variant BoundObject::run(DISPID member, WORD kind, std::span<Variant> reversed) {
    const bool writes = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPID value = DISPID_PROPERTYPUT;
    const DISPPARAMS parameters{reversed.empty() ? nullptr : reversed.front().put(),
                                writes ? &value : nullptr, static_cast<UINT>(reversed.size()),
                                writes ? 1u : 0u};
    return invoked(object_.get(), member, kind, parameters);
}

DISPID BoundObject::newId(Literal name) {
    DISPID found = DISPID_UNKNOWN;
    throwIfFailed(lookUp(name, found));
    return found;
}

// A name that another literal has used is not looked up again.
HRESULT BoundObject::lookUp(Literal name, DISPID& found) {
    if (!object_) throw RuntimeError(ErrorNumber::objectNotSet);
    const auto used = std::find_if(names_.begin(), names_.end(), [name](const Name& other) {
        return TextView(other.name) == TextView(name);
    });
    HRESULT answer = S_OK;
    if (used != names_.end())
        found = used->id;
    else
        answer = findMember(object_.get(), name.get(), LOCALE_USER_DEFAULT, found);
    if (SUCCEEDED(answer)) names_.push_back({name, found});
    return answer;
}

bool BoundObject::knows(Literal name) {
    DISPID found;
    return object_ && (known(name) || SUCCEEDED(lookUp(name, found)));
}

bool BoundObject::hasProperty(Literal name) {
    return endOnError(false, [&] {
        run(id(name), DISPATCH_PROPERTYGET, {});
        return true;
    });
}

}  // namespace vorla
