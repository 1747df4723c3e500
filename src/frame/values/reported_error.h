// A failure that an object of the host, or another component, has described in its own words.
#pragma once

#include <utility>

#include "frame/values/bstr.h"
#include "frame/values/runtime_error.h"
#include "frame/values/winapi.h"

namespace vorla {

/// What there is to say about a failure beside its code; what is empty is not said.
struct ErrorReport {
    Bstr source;
    Bstr description;
    Bstr helpFile;
    DWORD helpContext = 0;
};

/// The RuntimeError of such a failure. The code and the report reach our own host as they came.
class ReportedError : public RuntimeError {
public:
    /// `number` is what members that look at it see; `code` is what the host gets.
    ReportedError(std::uint16_t number, HRESULT code, ErrorReport report) noexcept
        : RuntimeError(number), code_(code), report_(std::move(report)) {}

    HRESULT code() const noexcept { return code_; }
    const ErrorReport& report() const noexcept { return report_; }

private:
    HRESULT code_;
    ErrorReport report_;
};

}  // namespace vorla
