// The common part of VorlaLangue's tests: an application's folder with language files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "contract/component.h"
#include "frame/values/ansi.h"
#include "support/temporary_folder.h"
#include "support/thread.h"

namespace vorla::test {

constexpr std::uint16_t numberOfLangue = 8;

using Texts = std::vector<std::wstring>;

class Langue : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments = {}) {
        return invoke(langue.get(), name, std::move(arguments));
    }
    std::wstring textOf(const wchar_t* name, Arguments arguments = {}) {
        const auto outcome = call(name, std::move(arguments));
        EXPECT_EQ(S_OK, outcome.code) << narrow(name);
        EXPECT_EQ(VT_BSTR, outcome.result.raw().vt) << narrow(name);
        return outcome.result.raw().vt == VT_BSTR ? std::wstring(viewOf(outcome.result.raw().bstrVal)) : L"?";
    }
    void run(const wchar_t* name, Arguments arguments) {
        EXPECT_EQ(S_OK, call(name, std::move(arguments)).code) << narrow(name);
    }
    void put(const wchar_t* name, Variant value) {
        EXPECT_EQ(S_OK, invoke(langue.get(), name, Arguments().named(DISPID_PROPERTYPUT, std::move(value)),
                               DISPATCH_PROPERTYPUT)
                            .code)
            << narrow(name);
    }

    /// Writes a language file with exactly these bytes, and selects no language.
    std::wstring languageFile(std::wstring_view code, std::wstring_view content) {
        return application.file(L"Languages\\" + std::wstring(code) + L".lng", toAnsi(content));
    }
    void select(const wchar_t* code) { run(L"LngSetFileName", {text(application.path()), text(code)}); }

    static std::string bytesOf(const std::wstring& path) {
        WritePrivateProfileStringA(nullptr, nullptr, nullptr, nullptr);  // flushes Windows' cache
        const File file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(static_cast<bool>(file)) << narrow(path);
        std::string bytes(100'000, '\0');
        DWORD length = 0;
        ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &length, nullptr);
        bytes.resize(length);
        return bytes;
    }

    const Component component;
    const Dispatch langue = component.create(numberOfLangue);
    const TemporaryFolder application;
    const std::wstring languages = application.folder(L"Languages");
};

/// The strings in an array; none when it is unallocated.
inline Texts textsIn(const Outcome& outcome) {
    EXPECT_EQ(S_OK, outcome.code);
    EXPECT_EQ(VT_ARRAY | VT_BSTR, outcome.result.raw().vt);
    SAFEARRAY* const array = outcome.result.raw().parray;
    if (outcome.result.raw().vt != (VT_ARRAY | VT_BSTR) || !array) return {};
    LONG first = -1, last = -1;
    EXPECT_EQ(1u, SafeArrayGetDim(array));
    SafeArrayGetLBound(array, 1, &first);
    SafeArrayGetUBound(array, 1, &last);
    EXPECT_EQ(0, first);
    Texts texts;
    for (LONG i = first; i <= last; ++i) {
        Bstr element;
        EXPECT_EQ(S_OK, SafeArrayGetElement(array, &i, element.put()));
        texts.emplace_back(element.view());
    }
    return texts;
}

/// Runs the work on a thread of its own, with an object made on that thread.
template <class Work>
void onThread(const Component& component, Work work) {
    Thread([&] { work(component.create(numberOfLangue)); });
}

}  // namespace vorla::test
