// Interception of a module's system calls, which are recorded, answered by the test, or failed.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla::test {

/// One entry of a module's import table, replaced as long as this exists. If several tables of the module
/// import the function, all are replaced. The test fails if the module does not import the function by name.
class ImportPatch {
public:
    /// `dll` is compared without regard to case ("kernel32.dll").
    ImportPatch(HMODULE module, const char* dll, const char* function, void* replacement);
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;
    ~ImportPatch();

    /// The entry's previous value.
    void* original() const { return original_; }

private:
    std::vector<void**> slots_;
    void* original_ = nullptr;
};

/// The calls of all intercepted functions, in order: `GetFileAttributesA("c:\\x")`.
using CallLog = std::vector<std::string>;

/// An argument as text for the log: numbers, texts in quotes, other pointers as "null" or "set", everything
/// else as "set".
template <class Argument>
std::string logged(Argument argument);
std::string loggedText(const char* text);
std::string loggedText(const wchar_t* text);

/// A function that a module imports, intercepted as long as this exists. Calls go on to the system unless the
/// test answers or fails them.
///
///     Intercept<decltype(GetTickCount)> ticks(module, "kernel32.dll", "GetTickCount");
///     ticks.answer([] { return 5u; });
///
/// A replaced function finds its interceptor through its type alone, so the tag makes each declaration a type
/// of its own.
template <class Function, class Tag = decltype([] {})>
class Intercept;

template <class Result, class... Arguments, class Tag>
class Intercept<Result WINAPI(Arguments...), Tag> {
public:
    Intercept(HMODULE module, const char* dll, const char* name, CallLog* log = nullptr)
        : name_(name), log_(log), patch_(module, dll, name, reinterpret_cast<void*>(&replacement)) {
        current_ = this;
    }
    ~Intercept() { current_ = nullptr; }

    /// From now on calls get this answer and do not reach the system. An empty function lets them through
    /// again.
    void answer(std::function<Result(Arguments...)> canned) { canned_ = std::move(canned); }

    /// The `number`-th call from now (1 is the next) gets `result` and this last error.
    void failCall(int number, Result result, DWORD lastError = ERROR_GEN_FAILURE) {
        failures_[calls_ + number] = {result, lastError};
    }

    /// The number of calls that the module has made.
    int calls() const { return calls_; }

    Result callOriginal(Arguments... arguments) const {
        return reinterpret_cast<Result(WINAPI*)(Arguments...)>(patch_.original())(arguments...);
    }

private:
    struct Failure {
        Result result;
        DWORD lastError;
    };

    static Result WINAPI replacement(Arguments... arguments) { return current_->intercepted(arguments...); }

    Result intercepted(Arguments... arguments) {
        ++calls_;
        if (log_) {
            std::string line = name_ + "(";
            [[maybe_unused]] const char* separator = "";
            ((line += separator, line += logged(arguments), separator = ", "), ...);
            log_->push_back(line + ")");
        }
        if (const auto failure = failures_.find(calls_); failure != failures_.end()) {
            SetLastError(failure->second.lastError);
            return failure->second.result;
        }
        return canned_ ? canned_(arguments...) : callOriginal(arguments...);
    }

    static inline Intercept* current_ = nullptr;

    const std::string name_;
    CallLog* const log_;
    std::function<Result(Arguments...)> canned_;
    std::map<int, Failure> failures_;
    int calls_ = 0;
    // Last, so that it is made after everything that the replacement uses, and undone first.
    ImportPatch patch_;
};

template <class Argument>
std::string logged(Argument argument) {
    if constexpr (std::is_same_v<Argument, LPCSTR> || std::is_same_v<Argument, LPCWSTR>) {
        return loggedText(argument);
    } else if constexpr (std::is_pointer_v<Argument>) {
        return argument ? "set" : "null";
    } else if constexpr (std::is_arithmetic_v<Argument>) {
        return std::to_string(argument);
    } else {
        return "set";
    }
}

}  // namespace vorla::test
