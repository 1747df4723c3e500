// Calls of automation objects as a script host makes them. Outputs are poisoned first, so that "cleared" and
// "left alone" differ.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "frame/values/com_pointer.h"
#include "frame/values/runtime_error.h"
#include "frame/values/variant.h"
#include "frame/values/winapi.h"

namespace vorla::test {

using Dispatch = ComPointer<IDispatch>;

/// All outputs of one Invoke.
struct Outcome {
    HRESULT code = E_FAIL;
    Variant result;
    UINT badArgument = 0xBAD;
    HRESULT exceptionCode = 0;
    std::wstring source;
    std::wstring description;
    std::wstring helpFile;
    DWORD helpContext = 0;
};

/// Arguments in the order in which a host writes them, named ones last.
struct Arguments {
    Arguments() = default;
    Arguments(std::initializer_list<Variant> positional);

    Arguments& named(DISPID id, Variant value);

    DISPPARAMS parameters();

    std::vector<VARIANT> reversed;  // in Invoke's order
    std::vector<DISPID> names;
    std::vector<Variant> owned;
};

/// A variant that refers to a variable of the test.
Variant byReference(VARTYPE type, void* variable);
Variant byReference(Variant& variable);
Variant nullValue();
Variant missing();
Variant nothing();
Variant object(IDispatch* object);
Variant text(std::wstring_view text);
Variant short16(int value);
Variant long32(int value);
Variant octet(int value);
Variant single(float value);

DISPID idOf(IDispatch* object, const wchar_t* name);

Outcome invoke(IDispatch* object, DISPID id, WORD flags, DISPPARAMS& parameters,
               LCID locale = LOCALE_USER_DEFAULT);
Outcome invoke(IDispatch* object, const wchar_t* name, Arguments arguments = {},
               WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET, LCID locale = LOCALE_USER_DEFAULT);

/// Type and value as readable text: BSTR "abc", I2 5, EMPTY.
std::string describe(const VARIANT& value);
std::string narrow(std::wstring_view text);

/// Expects success and a result of this type and value.
void expectResult(const Outcome& outcome, const Variant& expected, const std::string& what = {});

/// Expects the exception of a run-time error.
void expectError(const Outcome& outcome, int number, const std::string& what = {});

/// The number of the run-time error that ends the work; 0 when there is none.
template <class Work>
int errorOf(Work&& work) {
    try {
        work();
        return 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
}

/// Whether the user's settings are French. Each suite runs under French and under English settings.
bool isFrench();

}  // namespace vorla::test
