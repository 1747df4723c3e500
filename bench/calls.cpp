#include "calls.h"

#include <cstdio>
#include <iterator>
#include <stdexcept>

#include "frame/contract/identifiers.h"

namespace vorla::bench {

void failed(HRESULT code) {
    char text[40];
    std::snprintf(text, sizeof text, "a call failed: %08lX", static_cast<unsigned long>(code));
    throw std::runtime_error(text);
}

// The component stays loaded until the program ends, as in a host.
Component::Component(const wchar_t* path) {
    const auto module = LoadLibraryW(path);
    if (!module) throw std::runtime_error("the component does not load");
    const auto function = GetProcAddress(module, "DllGetClassObject");
    if (!function) throw std::runtime_error("the file is no component");
    getClassObject_ = reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(function));
}

Factory Component::factory(std::uint16_t classNumber) const {
    Factory factory;
    demand(getClassObject_(identifier(static_cast<std::uint16_t>(numbers::classes + classNumber)),
                           IID_IClassFactory, reinterpret_cast<void**>(factory.put())));
    return factory;
}

Arguments::Arguments(std::initializer_list<Variant> inOrder)
    : reversed_(std::rbegin(inOrder), std::rend(inOrder)), parameters_{} {
    parameters_.rgvarg = reversed_.data()->put();
    parameters_.cArgs = static_cast<UINT>(reversed_.size());
}

Description descriptionOf(IDispatch* object) {
    Description description;
    demand(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, description.put()));
    return description;
}

SHORT vtableOffset(ITypeInfo* description, DISPID id) {
    FUNCDESC* function;
    for (UINT i = 0; SUCCEEDED(description->GetFuncDesc(i, &function)); ++i) {
        const bool found = function->memid == id;
        const auto offset = function->oVft;
        description->ReleaseFuncDesc(function);
        if (found) return offset;
    }
    throw std::runtime_error("the method is not described");
}

}  // namespace vorla::bench
