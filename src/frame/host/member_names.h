// The names of a host object's members.
#pragma once

#include "frame/values/winapi.h"

namespace vorla {

/// Finds the identifier of a member by its name. Failures: the object's own; DISP_E_UNKNOWNNAME for an
/// unknown name.
HRESULT findMember(IDispatch* object, const wchar_t* name, LCID locale, DISPID& id);

}  // namespace vorla
