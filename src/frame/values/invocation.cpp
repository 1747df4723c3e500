#include "frame/values/invocation.h"

#include "frame/values/conversions.h"

namespace vorla {
namespace {

// What an object says about its failure, with the texts that come with it.
class ReportedFailure {
public:
    ReportedFailure() = default;
    ReportedFailure(const ReportedFailure&) = delete;
    ReportedFailure& operator=(const ReportedFailure&) = delete;
    ~ReportedFailure() {
        SysFreeString(information_.bstrSource);
        SysFreeString(information_.bstrDescription);
        SysFreeString(information_.bstrHelpFile);
    }

    EXCEPINFO* put() { return &information_; }

    void raise() {
        if (information_.pfnDeferredFillIn) information_.pfnDeferredFillIn(&information_);
        if (information_.wCode != 0) throw RuntimeError(information_.wCode);
        check(information_.scode);
    }

private:
    EXCEPINFO information_{};
};

}  // namespace

Variant invoked(IDispatch* object, DISPID id, WORD kind, DISPPARAMS arguments, LCID locale) {
    if (!object) throw RuntimeError(ErrorNumber::objectNotSet);
    Variant result;
    ReportedFailure failure;
    const bool writes = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const auto answer = object->Invoke(id, IID_NULL, locale, kind, &arguments,
                                       writes ? nullptr : result.put(), failure.put(), nullptr);
    if (answer == DISP_E_EXCEPTION) failure.raise();
    check(answer);
    return result;
}

}  // namespace vorla
