#include "support/named_type.h"

#include "frame/values/conversions.h"

namespace vorla::test {

ComPointer<ITypeInfo> typeNamed(const wchar_t* name, TYPEKIND kind) {
    ComPointer<ICreateTypeLib2> library;
    ComPointer<ICreateTypeInfo> created;
    ComPointer<ITypeInfo> type;
    throwIfFailed(CreateTypeLib2(sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32, L"unsaved.tlb", library.put()));
    throwIfFailed(library->CreateTypeInfo(const_cast<LPOLESTR>(name), kind, created.put()));
    throwIfFailed(created->QueryInterface(IID_ITypeInfo, reinterpret_cast<void**>(type.put())));
    return type;
}

HRESULT give(const ComPointer<ITypeInfo>& type, ITypeInfo** asked) {
    *asked = type.get();
    if (!type) return E_FAIL;
    type->AddRef();
    return S_OK;
}

}  // namespace vorla::test
