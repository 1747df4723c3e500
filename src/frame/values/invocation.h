// One late-bound call of a foreign object, with its failures as run-time errors.
#pragma once

#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Invokes one member and returns its result. `arguments` are in Invoke's own order, the last first; for a
/// property put the value stands first. By-reference arguments are written by the object.
/// Errors: the object's own number when it gives one (wCode, or the low half of 0x800Axxxx); otherwise 438
/// for a member it has not, 13 for arguments that do not fit, 440 for the rest. Without an object: 91.
/// What the object says about its failure comes with it, as a ReportedError.
Variant invoked(IDispatch* object, DISPID id, WORD kind, const DISPPARAMS& arguments,
                LCID locale = LOCALE_USER_DEFAULT);

}  // namespace vorla
