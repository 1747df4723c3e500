// The cases of cases.txt as C++ values, and answers in the form that every client writes. The file itself
// says what a line means.
#pragma once

#include <string>
#include <vector>

#include "frame/values/variant.h"

namespace vorla::test {

/// An argument as the case gives it; one that is left out says that it is missing.
struct CaseArgument {
    Variant value;
    bool byReference = false;
};

struct Case {
    int line = 0;
    std::wstring member;
    std::vector<CaseArgument> arguments;
};

/// The cases for the settings of one language, "fr" or "en"; what they expect is left to the runner.
/// Throws std::runtime_error for a file that cannot be read and a line that makes no sense.
std::vector<Case> readCases(const char* path, const std::string& language);

/// What a result looks like among the answers: texts quoted, singles marked, other types named.
std::string describeResult(const VARIANT& result);

/// What a by-reference variable looks like there: its value, whatever its type has become.
std::string describeVariable(const VARIANT& variable);

}  // namespace vorla::test
