// A late-bound call of a host object. Failures become run-time errors.
#pragma once

#include "frame/values/runtime_error.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla {

/// Throws the RuntimeError of a failed call, or std::bad_alloc, and frees the texts in the object's report.
[[noreturn]] void throwReported(HRESULT failure, EXCEPINFO& report);

/// Invokes one member and returns its result. `arguments` are in Invoke's order, the last first; a property's
/// new value stands first. The object can change by-reference arguments. Errors: the object's own number when
/// it gives one (wCode, or the low half of 0x800Axxxx); otherwise 438 for an unknown member, 13 for arguments
/// that do not fit, 440 for everything else. 91 for Nothing.
inline Variant invoked(IDispatch* object, DISPID id, WORD kind, const DISPPARAMS& arguments,
                       LCID locale = LOCALE_USER_DEFAULT) {
    if (!object) throw RuntimeError(ErrorNumber::objectNotSet);
    Variant result;
    EXCEPINFO report{};
    const bool writes = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    // Invoke does not change the list of arguments, although its declaration does not say so.
    const auto answer = object->Invoke(id, IID_NULL, locale, kind, const_cast<DISPPARAMS*>(&arguments),
                                       writes ? nullptr : result.put(), &report, nullptr);
    if (FAILED(answer)) throwReported(answer, report);
    return result;
}

}  // namespace vorla
