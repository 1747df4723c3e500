// VorlaRegistre's tests use the user's own registry, below a key that each test makes and removes.
#pragma once

#include <functional>

#include "contract/component.h"
#include "support/import_patch.h"
#include "support/scripted_object.h"
#include "support/temporary_key.h"

namespace vorla::test {

using Names = std::vector<std::wstring>;

inline constexpr std::uint16_t numberOfRegistre = 6;
inline constexpr std::int32_t classesRoot = -2147483647 - 1, currentUser = -2147483647,
                              localMachine = -2147483646, users = -2147483645, currentConfig = -2147483643;
inline constexpr std::int32_t regString = 1, regExpandable = 2, regBinary = 3, regNumber = 4;
inline constexpr HRESULT hostFailure = static_cast<HRESULT>(0x800A01C9);

/// A collection of the host's: it keeps what is added, and has no member but Add.
class Collection : public ScriptedObject {
public:
    Collection() {
        method(L"Add", [this](const Call& call) {
            EXPECT_EQ(1u, call.count());
            EXPECT_EQ(VT_BSTR, call.argument(0).type());
            names.emplace_back(viewOf(call.argument(0).raw().bstrVal));
            return Variant();
        });
    }

    Names names;
};

class Registre : public testing::Test {
protected:
    Registre() { setRoot(object.get(), long32(currentUser)); }

    static void setRoot(IDispatch* registre, Variant root) {
        EXPECT_EQ(S_OK, invoke(registre, L"RegClePrimaire",
                               Arguments().named(DISPID_PROPERTYPUT, std::move(root)), DISPATCH_PROPERTYPUT)
                            .code);
    }
    Outcome call(const wchar_t* name, Arguments arguments) {
        return invoke(object.get(), name, std::move(arguments));
    }
    bool isTrue(const wchar_t* name, Arguments arguments) {
        const auto outcome = call(name, std::move(arguments));
        EXPECT_EQ(S_OK, outcome.code) << narrow(name);
        EXPECT_EQ(VT_BOOL, outcome.result.raw().vt) << narrow(name);
        return outcome.result.raw().boolVal != VARIANT_FALSE;
    }
    Outcome read(const std::wstring& name) { return call(L"RegLitValeur", {text(key.path()), text(name)}); }
    bool write(const std::wstring& name, Variant value, std::int32_t type) {
        return isTrue(L"RegEcritValeur", {text(key.path()), text(name), std::move(value), type});
    }
    Names listed(const wchar_t* member, const std::wstring& path) {
        Collection collection;
        EXPECT_EQ(S_OK, call(member, {text(path), vorla::test::object(&collection)}).code);
        EXPECT_EQ(0, collection.references());
        return collection.names;
    }
    Names keysOf(const std::wstring& path) { return listed(L"RegLireCles", path); }
    Names valuesOf(const std::wstring& path) { return listed(L"RegLireValeurs", path); }

    const Component component;
    const Dispatch object = component.create(numberOfRegistre);
    const TemporaryKey key;
};

/// The registry's functions as the component calls them, and those that convert its texts. The test counts,
/// answers or fails them, and checks that every opened key is closed.
class RegistryCalls {
public:
    explicit RegistryCalls(HMODULE module) : module_(module) {
        open.answer([this](HKEY root, LPCSTR path, DWORD options, REGSAM access, PHKEY key) {
            return counted(open.callOriginal(root, path, options, access, key));
        });
        create.answer([this](HKEY root, LPCSTR path, DWORD reserved, LPSTR kind, DWORD options, REGSAM access,
                             const SECURITY_ATTRIBUTES* security, PHKEY key, LPDWORD disposition) {
            return counted(create.callOriginal(root, path, reserved, kind, options, access,
                                               const_cast<SECURITY_ATTRIBUTES*>(security), key, disposition));
        });
    }

    int leftOpen() const { return opened_ - close.calls(); }

    /// One of the functions, to be failed at its n-th call.
    struct Function {
        std::string name;
        std::function<void(int)> fail;
        std::function<int()> calls;
    };
    std::vector<Function> functions() {
        return {failing("RegOpenKeyExA", open, ERROR_ACCESS_DENIED),
                failing("RegCreateKeyExA", create, ERROR_ACCESS_DENIED),
                failing("RegDeleteKeyA", remove, ERROR_ACCESS_DENIED),
                failing("RegEnumKeyExA", enumKey, ERROR_ACCESS_DENIED),
                failing("RegEnumValueA", enumValue, ERROR_ACCESS_DENIED),
                failing("RegQueryValueExA", query, ERROR_ACCESS_DENIED),
                failing("RegSetValueExA", set, ERROR_ACCESS_DENIED),
                failing("RegDeleteValueA", removeValue, ERROR_ACCESS_DENIED),
                failing("RegCloseKey", close, ERROR_INVALID_HANDLE),
                failing("WideCharToMultiByte", narrowing, 0),
                failing("MultiByteToWideChar", widening, 0)};
    }

private:
    template <class Interceptor>
    static Function failing(const char* name, Interceptor& function, int result) {
        return {name, [&function, result](int n) { function.failCall(n, result); },
                [&function] { return function.calls(); }};
    }
    LSTATUS counted(LSTATUS status) {
        opened_ += status == ERROR_SUCCESS;
        return status;
    }

    const HMODULE module_;
    int opened_ = 0;

public:
    Intercept<decltype(RegOpenKeyExA), class OpenCall> open{module_, "advapi32.dll", "RegOpenKeyExA"};
    Intercept<decltype(RegCreateKeyExA), class CreateCall> create{module_, "advapi32.dll", "RegCreateKeyExA"};
    Intercept<decltype(RegDeleteKeyA), class RemoveCall> remove{module_, "advapi32.dll", "RegDeleteKeyA"};
    Intercept<decltype(RegEnumKeyExA), class EnumKeyCall> enumKey{module_, "advapi32.dll", "RegEnumKeyExA"};
    Intercept<decltype(RegEnumValueA), class EnumValueCall> enumValue{module_, "advapi32.dll",
                                                                      "RegEnumValueA"};
    Intercept<decltype(RegQueryValueExA), class QueryCall> query{module_, "advapi32.dll", "RegQueryValueExA"};
    Intercept<decltype(RegSetValueExA), class SetCall> set{module_, "advapi32.dll", "RegSetValueExA"};
    Intercept<decltype(RegDeleteValueA), class RemoveValueCall> removeValue{module_, "advapi32.dll",
                                                                            "RegDeleteValueA"};
    Intercept<decltype(RegCloseKey), class CloseCall> close{module_, "advapi32.dll", "RegCloseKey"};
    Intercept<decltype(WideCharToMultiByte), class NarrowingCall> narrowing{module_, "kernel32.dll",
                                                                            "WideCharToMultiByte"};
    Intercept<decltype(MultiByteToWideChar), class WideningCall> widening{module_, "kernel32.dll",
                                                                          "MultiByteToWideChar"};
};

}  // namespace vorla::test
