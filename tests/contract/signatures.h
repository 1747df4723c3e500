// Members as the type library declares them to hosts.
#pragma once

#include <ocidl.h>

#include <string>
#include <vector>

#include "support/automation.h"

namespace vorla::test {

/// The signatures of an object's own members, in the order of their declaration: "BSTR CBR(BSTR Chaine,
/// &I4 Longueur, [BOOL Option=-1])", where "&" is by reference and "[" optional with its default. A property
/// begins with "get ", "put " or "set ".
std::vector<std::wstring> signaturesOf(IDispatch* object);

}  // namespace vorla::test
