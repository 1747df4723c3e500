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
        free(information_.bstrSource);
        free(information_.bstrDescription);
        free(information_.bstrHelpFile);
    }

    EXCEPINFO* put() { return &information_; }

    void raise() {
        if (information_.pfnDeferredFillIn) information_.pfnDeferredFillIn(&information_);
        if (information_.wCode != 0) throw RuntimeError(information_.wCode);
        check(information_.scode);
    }

private:
    // Most calls succeed and leave no text.
    static void free(BSTR text) {
        if (text) SysFreeString(text);
    }

    EXCEPINFO information_{};
};

}  // namespace

Variant invoked(IDispatch* object, DISPID id, WORD kind, const DISPPARAMS& arguments, LCID locale) {
    if (!object) throw RuntimeError(ErrorNumber::objectNotSet);
    Variant result;
    ReportedFailure failure;
    const bool writes = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    // Nobody writes to the list of arguments, which its declaration does not say.
    const auto answer = object->Invoke(id, IID_NULL, locale, kind, const_cast<DISPPARAMS*>(&arguments),
                                       writes ? nullptr : result.put(), failure.put(), nullptr);
    if (answer == DISP_E_EXCEPTION) failure.raise();
    check(answer);
    return result;
}

}  // namespace vorla
