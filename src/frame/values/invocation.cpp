#include "frame/values/invocation.h"

#include "frame/values/conversions.h"

namespace vorla {

void throwReported(HRESULT failure, EXCEPINFO& report) {
    const bool hasReport = failure == DISP_E_EXCEPTION;
    if (hasReport && report.pfnDeferredFillIn) report.pfnDeferredFillIn(&report);
    const Bstr texts[] = {Bstr::adopt(report.bstrSource), Bstr::adopt(report.bstrDescription),
                          Bstr::adopt(report.bstrHelpFile)};
    if (hasReport && report.wCode != 0) throw RuntimeError(report.wCode);
    if (hasReport) throwIfFailed(report.scode);
    throwFailure(failure);
}

}  // namespace vorla
