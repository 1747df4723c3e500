// One late-bound call of a foreign object, with its failures as run-time errors.
#pragma once

#include "frame/values/runtime_error.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Throws a failed call's RuntimeError, or std::bad_alloc, and frees the texts of the object's report.
[[noreturn]] void throwReported(HRESULT failure, EXCEPINFO& report);

/// Invokes one member and returns its result. `arguments` are in Invoke's own order, the last first; for a
/// property put the value stands first. By-reference arguments are written by the object.
/// Errors: the object's own number when it gives one (wCode, or the low half of 0x800Axxxx); otherwise 438
/// for a member it has not, 13 for arguments that do not fit, 440 for the rest. Without an object: 91.
inline Variant invoked(IDispatch* object, DISPID id, WORD kind, const DISPPARAMS& arguments,
                       LCID locale = LOCALE_USER_DEFAULT) {
    if (!object) throw RuntimeError(ErrorNumber::objectNotSet);
    Variant result;
    EXCEPINFO report{};
    const bool writes = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    // Nobody writes to the list of arguments, which its declaration does not say.
    const auto answer = object->Invoke(id, IID_NULL, locale, kind, const_cast<DISPPARAMS*>(&arguments),
                                       writes ? nullptr : result.put(), &report, nullptr);
    if (FAILED(answer)) throwReported(answer, report);
    return result;
}

}  // namespace vorla
