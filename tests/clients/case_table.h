// The cases of the files in cases/ as C++ values, and answers in the form that every client writes.
// cases/README.md says what a line means.
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

/// What the host does with the member.
enum class Use { call, get, put };

struct Case {
    std::string name;  // of its file and line
    std::wstring className;
    std::wstring member;
    Use use = Use::call;
    std::vector<CaseArgument> arguments;  // the one that is put, for a property
};

/// Appends a file's cases for the settings of one language, "fr" or "en"; what they expect is left to the
/// runner. Throws std::runtime_error for a file that cannot be read and a line that makes no sense.
void readCases(const std::string& path, const std::string& language, std::vector<Case>& cases);

/// What a result looks like among the answers: as the cases write it, with its type.
std::string describeResult(const VARIANT& result);

/// What a by-reference variable looks like there: its value, whatever its type has become.
std::string describeVariable(const VARIANT& variable);

}  // namespace vorla::test
