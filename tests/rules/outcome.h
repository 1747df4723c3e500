// The outcome of a rule: a value or a run-time error. Both are one C++ value here, so that a row or a naive
// twin can state either.
#pragma once

#include <concepts>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

#include "frame/values/joined.h"
#include "frame/values/runtime_error.h"
#include "shown.h"

namespace vorla {

struct Raises {
    explicit Raises(int raised) : number(raised) {}

    int number;
};

template <class Value>
class Outcome {
public:
    template <class Given>
    requires std::convertible_to<Given, Value> Outcome(Given&& value) : value_(std::forward<Given>(value)) {}

    Outcome(Raises raised) : error_(raised.number) {}

    /// The number of the run-time error; 0 when there is a value.
    int error() const { return error_; }

    std::string shown() const { return error_ ? "error " + std::to_string(error_) : vorla::shown(value_); }

    bool operator==(const Outcome&) const = default;

    friend void PrintTo(const Outcome& outcome, std::ostream* out) { *out << outcome.shown(); }

private:
    Value value_{};
    int error_ = 0;
};

inline Text given(const Joined& joined) { return joined.text(); }
inline Text given(TextView text) { return Text(text); }
inline Text given(Text&& text) { return std::move(text); }
inline float given(float number) { return number; }
template <std::integral Number>
Number given(Number number) {
    return number;
}

/// Runs `rule`. Errors other than run-time errors are the test's own and pass through.
template <class Rule>
auto outcomeOf(Rule&& rule) -> Outcome<decltype(given(rule()))> {
    try {
        return given(rule());
    } catch (const RuntimeError& error) {
        return Raises(static_cast<int>(error.number()));
    }
}

}  // namespace vorla
