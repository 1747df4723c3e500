// A failure that a host object or another component has described.
#pragma once

#include <utility>

#include "frame/values/bstr.h"
#include "frame/values/runtime_error.h"
#include "frame/values/winapi.h"

namespace vorla {

/// The description of a failure. Any of these may be empty.
struct ErrorReport {
    Bstr source;
    Bstr description;
    Bstr helpFile;
    DWORD helpContext = 0;
};

/// The RuntimeError of such a failure. Its code and description reach the host unchanged.
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
