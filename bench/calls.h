// Calls of automation objects in the three ways of hosts: through the object's own dispatch, through the
// system's dispatch over a type library, and through the vtable.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "frame/values/com_pointer.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla::bench {

using Dispatch = ComPointer<IDispatch>;
using Description = ComPointer<ITypeInfo>;
using Factory = ComPointer<IClassFactory>;

/// Throws when a call that the measurement needs has failed. Inline, because measured code calls it too.
void failed(HRESULT code);
inline void demand(HRESULT code) {
    if (FAILED(code)) failed(code);
}

/// The component in a file, without registration.
class Component {
public:
    explicit Component(const wchar_t* path);

    Factory factory(std::uint16_t classNumber) const;

private:
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    GetClassObject getClassObject_;
};

/// An object from its class factory. Inline, because measured code calls it too.
inline Dispatch create(IClassFactory* factory) {
    Dispatch object;
    demand(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.put())));
    return object;
}

/// Positional arguments, written in the order of the parameters.
class Arguments {
public:
    Arguments(std::initializer_list<Variant> inOrder);

    DISPPARAMS* parameters() { return &parameters_; }

private:
    std::vector<Variant> reversed_;
    DISPPARAMS parameters_;
};

Description descriptionOf(IDispatch* object);

inline DISPID idByObject(IDispatch* object, const wchar_t* name) {
    auto asked = const_cast<LPOLESTR>(name);
    DISPID id;
    demand(object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id));
    return id;
}

inline DISPID idByTypeInfo(ITypeInfo* description, const wchar_t* name) {
    auto asked = const_cast<LPOLESTR>(name);
    DISPID id;
    demand(description->GetIDsOfNames(&asked, 1, &id));
    return id;
}

constexpr WORD methodCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

inline void invokeByObject(IDispatch* object, DISPID id, Arguments& arguments, VARIANT& result) {
    EXCEPINFO exception;
    UINT badArgument;
    demand(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, methodCall, arguments.parameters(), &result,
                          &exception, &badArgument));
}

inline void invokeByTypeInfo(ITypeInfo* description, IDispatch* object, DISPID id, Arguments& arguments,
                             VARIANT& result) {
    EXCEPINFO exception;
    UINT badArgument;
    demand(description->Invoke(object, id, methodCall, arguments.parameters(), &result, &exception,
                               &badArgument));
}

/// The offset of a method in the vtable of the described object's dual interface, in bytes.
SHORT vtableOffset(ITypeInfo* description, DISPID id);

/// A method with these raw arguments, called through the vtable.
template <class... Raw>
class Slot {
public:
    Slot(IDispatch* object, const wchar_t* name)
        : object_(object), offset_(vtableOffset(descriptionOf(object).get(), idByObject(object, name))) {}

    void operator()(Raw... arguments) const {
        using Method = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Raw...);
        const char* const vtable = *reinterpret_cast<const char* const*>(object_);
        demand((*reinterpret_cast<const Method*>(vtable + offset_))(object_, arguments...));
    }

private:
    IDispatch* object_;
    SHORT offset_;
};

}  // namespace vorla::bench
