// Types that have just a name, for objects that tell their class.
#pragma once

#include "frame/values/com_pointer.h"
#include "frame/values/winapi.h"

namespace vorla::test {

ComPointer<ITypeInfo> typeNamed(const wchar_t* name, TYPEKIND kind);

/// Returns another reference to the type; E_FAIL when there is none.
HRESULT give(const ComPointer<ITypeInfo>& type, ITypeInfo** asked);

}  // namespace vorla::test
