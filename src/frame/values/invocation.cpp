#include "frame/values/invocation.h"

#include "frame/values/conversions.h"
#include "frame/values/reported_error.h"

namespace vorla {
namespace {

// Throws the RuntimeError of a failed call, or std::bad_alloc. The texts of the object's report are freed.
[[noreturn]] void throwReported(HRESULT failure, EXCEPINFO& exception) {
    const bool hasReport = failure == DISP_E_EXCEPTION;
    if (hasReport && exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    ErrorReport report{Bstr::adopt(exception.bstrSource), Bstr::adopt(exception.bstrDescription),
                       Bstr::adopt(exception.bstrHelpFile), exception.dwHelpContext};
    if (!hasReport) throwFailure(failure);
    if (exception.wCode == 0 && exception.scode == E_OUTOFMEMORY) throwFailure(E_OUTOFMEMORY);

    const auto number = exception.wCode != 0 ? exception.wCode : errorNumberOf(exception.scode);
    const bool isDescribed = !report.description.view().empty();
    if (!isDescribed && report.source.view().empty()) throw RuntimeError(number);
    // A code that is not a run-time number is kept only if the object describes it.
    const bool keepsCode = isDescribed && exception.wCode == 0 && FAILED(exception.scode);
    throw ReportedError(number, keepsCode ? exception.scode : codeOf(static_cast<ErrorNumber>(number)),
                        std::move(report));
}

}  // namespace

Variant invoked(IDispatch* object, DISPID id, WORD kind, const DISPPARAMS& arguments, LCID locale) {
    if (!object) throw RuntimeError(ErrorNumber::objectNotSet);
    Variant result;
    EXCEPINFO exception{};
    const bool writes = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    // Invoke does not change the list of arguments, although its declaration does not say so.
    const auto answer = object->Invoke(id, IID_NULL, locale, kind, const_cast<DISPPARAMS*>(&arguments),
                                       writes ? nullptr : result.put(), &exception, nullptr);
    if (FAILED(answer)) throwReported(answer, exception);
    return result;
}

}  // namespace vorla
