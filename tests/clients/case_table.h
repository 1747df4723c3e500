// The cases of the files in cases/ as C++ values, and answers in the form that every client writes.
// cases/README.md explains the lines.
#pragma once

#include <string>
#include <vector>

#include "frame/values/variant.h"

namespace vorla::test {

/// An argument of a case. One that is left out is a missing variant.
struct CaseArgument {
    Variant value;
    bool byReference = false;
};

/// How the host uses the member.
enum class Use { call, get, put };

struct Case {
    std::string name;  // of its file and line
    std::wstring className;
    std::wstring member;
    Use use = Use::call;
    std::vector<CaseArgument> arguments;  // the one that is put, for a property
};

/// Appends a file's cases for the settings of one language, "fr" or "en". The runner reads what they expect.
/// Throws std::runtime_error for a file that cannot be read and for a line that cannot be understood.
void readCases(const std::string& path, const std::string& language, std::vector<Case>& cases);

/// A result in the form of the answers: as the cases write it, with its type.
std::string describeResult(const VARIANT& result);

/// A by-reference variable in the form of the answers: its value, in whatever type it has.
std::string describeVariable(const VARIANT& variable);

}  // namespace vorla::test
