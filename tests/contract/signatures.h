// Signatures of a class's members, as hosts would declare them.
#pragma once

#include <string>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla::test {

/// One line for each member of the object's interface that hosts see, in the order of its slots:
///
///     60030002 BSTR StringEscape(&BSTR strMsg)
///     68030000 get BSTR LngFolder([eFileN TypeRep=1])
///
/// "&" is by reference, "[" optional with its default, "put" the writing of a property, whose new value has
/// no name.
std::vector<std::wstring> signatures(IDispatch* object);

}  // namespace vorla::test
