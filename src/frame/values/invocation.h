// A late-bound call of a host object. Failures become run-time errors.
#pragma once

#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Invokes one member and returns its result. `arguments` are in Invoke's order, the last first; a property's
/// new value stands first. The object can change by-reference arguments.
///
/// Errors: the object's own number when it gives one (wCode, or the low half of 0x800Axxxx); otherwise 438
/// for an unknown member, 13 for arguments that do not fit, 440 for everything else. 91 for Nothing. What the
/// object says about its failure comes with the error, as a ReportedError.
Variant invoked(IDispatch* object, DISPID id, WORD kind, const DISPPARAMS& arguments,
                LCID locale = LOCALE_USER_DEFAULT);

}  // namespace vorla
