#include "support/host_call.h"

#include <stdexcept>

namespace vorla::test {
namespace {

// The number of the exception that is still to be filled in. The caller asks immediately, on the same thread.
WORD deferredNumber = 0;

HRESULT STDMETHODCALLTYPE fillIn(EXCEPINFO* exception) {
    exception->wCode = deferredNumber;
    exception->bstrDescription = SysAllocString(L"filled in later");
    return S_OK;
}

}  // namespace

void HostCall::store(std::size_t index, Variant value) const {
    VARIANT& argument = raw(index);
    if (argument.vt != (VT_BYREF | VT_VARIANT)) throw std::logic_error("not a variable");
    VariantClear(argument.pvarVal);
    *argument.pvarVal = value.detach();
}

const wchar_t* HostCall::verb() const {
    return kind_ & DISPATCH_PROPERTYPUTREF ? L"putref"
           : kind_ & DISPATCH_PROPERTYPUT  ? L"put"
           : kind_ & DISPATCH_PROPERTYGET  ? L"get"
                                           : L"call";
}

HRESULT HostFailure::raise(EXCEPINFO* exception) const {
    const bool reported = number != 0 || explained || HRESULT_FACILITY(code) == FACILITY_CONTROL;
    if (!reported) return code;
    if (exception) {
        *exception = {};
        if (deferred) {
            deferredNumber = number;
            exception->pfnDeferredFillIn = &fillIn;
            return DISP_E_EXCEPTION;
        }
        exception->wCode = number;
        exception->scode = number != 0 ? 0 : code;
        // The caller must free these; a test that counts memory sees whether it does.
        exception->bstrSource = SysAllocString(source);
        exception->bstrDescription = SysAllocString(description);
        exception->bstrHelpFile = SysAllocString(helpFile);
        exception->dwHelpContext = helpContext;
    }
    return DISP_E_EXCEPTION;
}

void CallRecord::clear() {
    log_.clear();
    failures_.clear();
    failing_.clear();
    failedLookups_.clear();
}

HRESULT CallRecord::noteLookup(std::wstring line) {
    log_.push_back(std::move(line));
    const auto ordered = failedLookups_.find(++lookups_);
    return ordered == failedLookups_.end() ? S_OK : ordered->second;
}

const HostFailure* CallRecord::noteCall(std::wstring line) {
    const auto ordered = failures_.find(++calls_);
    const auto named = failing_.find(line);
    log_.push_back(std::move(line));
    if (ordered != failures_.end()) return &ordered->second;
    return named == failing_.end() ? nullptr : &named->second;
}

std::size_t CallRecord::logged(const std::wstring& beginning) const {
    std::size_t count = 0;
    for (const auto& line : log_) count += line.starts_with(beginning);
    return count;
}

}  // namespace vorla::test
