// Failures as the standard run-time errors. A RuntimeError that leaves a member reaches the host as the
// automation error 0x800A0000 + number. Errors that a host object raised and described are in
// reported_error.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>

namespace vorla {

enum class ErrorNumber : std::uint16_t {
    invalidProcedureCall = 5,
    overflow = 6,
    outOfMemory = 7,
    divisionByZero = 11,
    typeMismatch = 13,
    fileNotFound = 53,
    pathNotFound = 76,
    objectNotSet = 91,
    invalidUseOfNull = 94,
    objectRequired = 424,
    propertyOrMethodNotSupported = 438,
    automationError = 440,
    invalidPicture = 481,
};

class RuntimeError : public std::exception {
public:
    explicit RuntimeError(ErrorNumber number) noexcept : number_(number) {}

    /// For a number that a host object or a conversion reported, listed above or not.
    explicit RuntimeError(std::uint16_t number) noexcept : number_(static_cast<ErrorNumber>(number)) {}

    ErrorNumber number() const noexcept { return number_; }
    const char* what() const noexcept override { return "run-time error"; }

private:
    ErrorNumber number_;
};

/// A length that a caller gave as a 16-bit integer. Error 5 when it is negative.
constexpr std::int32_t codeOf(ErrorNumber number) noexcept {
    return static_cast<std::int32_t>(0x800A0000u | static_cast<std::uint16_t>(number));
}

/// A length that a caller gave as a 16-bit integer. Negative: error 5.
constexpr std::size_t checkedLength(std::int16_t length) {
    if (length < 0) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return static_cast<std::size_t>(length);
}

/// A position or count that hosts see as a 16-bit integer. Error 6 past 32,767.
constexpr std::size_t checkedPosition(std::size_t position) {
    if (position > 32767) throw RuntimeError(ErrorNumber::overflow);
    return position;
}

}  // namespace vorla
