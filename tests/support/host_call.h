// The common part of the test hosts' objects: a call as it arrives, the record of all calls, and the failures
// that a test orders.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla::test {

/// The contents of a call, in the order in which the caller wrote it. By-reference arguments can be stored.
class HostCall {
public:
    HostCall(DISPPARAMS& parameters, WORD kind, LCID locale)
        : parameters_(parameters), kind_(kind), locale_(locale) {}

    std::size_t count() const { return parameters_.cArgs; }
    VariantView argument(std::size_t index) const { return raw(index); }
    bool isByReference(std::size_t index) const { return (raw(index).vt & VT_BYREF) != 0; }
    void store(std::size_t index, Variant value) const;
    WORD kind() const { return kind_; }
    LCID locale() const { return locale_; }

    bool isPut() const { return (kind_ & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
    /// "get", "put", "putref" or "call". A read as hosts make it, of a property or a function, is a "get".
    const wchar_t* verb() const;

private:
    VARIANT& raw(std::size_t index) const { return parameters_.rgvarg[parameters_.cArgs - 1 - index]; }

    DISPPARAMS& parameters_;
    WORD kind_;
    LCID locale_;
};

/// A failure of the host: a code, or an exception that carries an error's number.
struct HostFailure {
    HRESULT code;
    WORD number = 0;
    bool deferred = false;   // the exception is filled in only when the caller asks for it
    bool explained = false;  // whatever the code is, it comes as an exception

    static constexpr const wchar_t* source = L"l'hôte du test";
    static constexpr const wchar_t* description = L"un échec de l'hôte";
    static constexpr const wchar_t* helpFile = L"hôte.chm";
    static constexpr DWORD helpContext = 77;

    /// What Invoke answers. Codes 0x800Axxxx come as an exception's `scode`, numbers as its `wCode`. An
    /// exception is described.
    HRESULT raise(EXCEPINFO* exception) const;
};

/// The log, with one line for each call from outside, and the failures ordered for later calls.
class CallRecord {
public:
    /// The `number`-th call from now (1 is the next) fails.
    void fail(int number, HostFailure failure) { failures_[calls_ + number] = failure; }
    /// Every call that is logged as this line fails, from now until the record is cleared.
    void failEvery(const std::wstring& line, HostFailure failure) { failing_[line] = failure; }
    /// The lookup of the `number`-th name from now fails with this code.
    void failLookup(int number, HRESULT code) { failedLookups_[lookups_ + number] = code; }
    /// Cancels all ordered failures and clears the log.
    void clear();

    /// Notes a lookup of a name. Returns the failure ordered for it, or success.
    HRESULT noteLookup(std::wstring line);
    /// Notes a call. Returns the failure ordered for it, or null.
    const HostFailure* noteCall(std::wstring line);

    const std::vector<std::wstring>& log() const { return log_; }
    void clearLog() { log_.clear(); }
    /// The number of lines that begin with this text.
    std::size_t logged(const std::wstring& beginning) const;
    /// The number of calls without lookups.
    int calls() const { return calls_; }

private:
    std::vector<std::wstring> log_;
    std::map<int, HostFailure> failures_;
    std::map<std::wstring, HostFailure> failing_;
    int calls_ = 0;
    std::map<int, HRESULT> failedLookups_;
    int lookups_ = 0;
};

}  // namespace vorla::test
