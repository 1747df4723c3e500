// Types of which only the name is known, for objects that tell what they are.
#pragma once

#include "frame/values/com_pointer.h"
#include "frame/values/winapi.h"

namespace vorla::test {

ComPointer<ITypeInfo> typeNamed(const wchar_t* name, TYPEKIND kind);

/// Hands out one more reference to the type; E_FAIL when there is none.
HRESULT give(const ComPointer<ITypeInfo>& type, ITypeInfo** asked);

}  // namespace vorla::test
