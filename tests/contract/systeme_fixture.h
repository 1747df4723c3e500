// VorlaSystem, called late-bound.
#pragma once

#include "contract/component.h"

namespace vorla::test {

class Systeme : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments = {}) {
        return invoke(object.get(), name, std::move(arguments));
    }
    std::wstring textOf(const wchar_t* name, Arguments arguments = {}) {
        const auto outcome = call(name, std::move(arguments));
        EXPECT_EQ(S_OK, outcome.code) << narrow(name);
        EXPECT_EQ(VT_BSTR, outcome.result.raw().vt) << narrow(name);
        return outcome.result.raw().vt == VT_BSTR ? std::wstring(viewOf(outcome.result.raw().bstrVal)) : L"?";
    }

    const Component component;
    const HMODULE module = component.module();
    const Dispatch object = component.create(7);
};

/// A path that is too long for the system, made of names that are not.
inline std::wstring tooLong() {
    std::wstring path = L"C:";
    for (int i = 0; i < 40; ++i) path += L"\\nom-de-dossier";
    return path;
}

}  // namespace vorla::test
