// Registration where the registry refuses: nothing is half done, nothing loops, nothing is called a success
// that was none. The tests work in a key of their own, which this process sees as HKEY_CLASSES_ROOT.
#include <algorithm>
#include <functional>

#include "contract/component.h"
#include "support/import_patch.h"
#include "support/temporary_key.h"

namespace vorla::test {
namespace {

using Lines = std::vector<std::wstring>;

// A key and all below it, a line for each key and value.
void list(HKEY key, const std::wstring& path, Lines& lines) {
    lines.push_back(path);
    wchar_t name[300];
    BYTE data[1000];
    for (DWORD i = 0;; ++i) {
        DWORD length = 300, size = sizeof data, type = 0;
        if (RegEnumValueW(key, i, name, &length, nullptr, &type, data, &size) != ERROR_SUCCESS) break;
        std::wstring line = path + L" : " + name + L" = " + std::to_wstring(type);
        for (DWORD j = 0; j < size; ++j) line += L' ' + std::to_wstring(data[j]);
        lines.push_back(line);
    }
    Lines names;
    for (DWORD i = 0;; ++i) {
        DWORD length = 300;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        names.emplace_back(name);
    }
    std::sort(names.begin(), names.end());
    for (const auto& below : names) {
        RegistryKey opened;
        EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(key, below.c_str(), 0, KEY_READ, opened.put()));
        list(opened.get(), path + L'\\' + below, lines);
    }
}

class Registration : public testing::Test {
protected:
    Registration() {
        EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, temporary.path().c_str(), 0, KEY_ALL_ACCESS,
                                               classes.put()));
        EXPECT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CLASSES_ROOT, classes.get()));
        // Where type libraries and interfaces of others stand.
        for (const wchar_t* name : {L"CLSID", L"TypeLib", L"Interface"}) write(name, L"", L"");
    }
    ~Registration() override { RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr); }

    HRESULT add() { return component.entry<HRESULT WINAPI()>("DllRegisterServer")(); }
    HRESULT remove() { return component.entry<HRESULT WINAPI()>("DllUnregisterServer")(); }

    Lines registry() const {
        Lines lines;
        list(classes.get(), L"", lines);
        return lines;
    }

    void write(const std::wstring& path, const wchar_t* name, const std::wstring& value) {
        RegistryKey key;
        EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(classes.get(), path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                                 nullptr, key.put(), nullptr));
        EXPECT_EQ(ERROR_SUCCESS,
                  RegSetValueExW(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                                 static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
    }

    static std::wstring textOf(const GUID& id) {
        wchar_t text[39];
        StringFromGUID2(id, text, 39);
        return text;
    }

    // A good registration of another place, with things of its own, such as an older version leaves.
    Lines registerElsewhere() {
        EXPECT_EQ(S_OK, add());
        const auto first = L"CLSID\\" + textOf(classId(0));
        write(first + L"\\InprocServer32", L"", L"C:\\Elsewhere\\Vorla6.dll");
        write(first + L"\\InprocServer32", L"Note", L"kept");
        write(first + L"\\Own\\Deeper", L"Note", L"kept");
        write(L"Vorla6.VorlaDate", L"", L"VorlaDate of another version");
        const auto library = L"TypeLib\\" + textOf(identifier(numbers::library)) + L"\\6.0";
        write(library + L"\\0\\" + (sizeof(void*) == 8 ? L"win64" : L"win32"), L"",
              L"C:\\Elsewhere\\Vorla6.dll");
        write(library, L"", L"of another version");
        write(L"Interface\\" + textOf(interfaceId(3)), L"", L"of another version");
        return registry();
    }

    const Component component;
    const TemporaryKey temporary;
    RegistryKey classes;
};

using Open = Intercept<decltype(RegOpenKeyExW)>;

// Keys whose path ends so cannot be opened for writing. Somebody who asks again and again is let in at last.
void deny(Open& open, int& denials, std::function<bool(const std::wstring&)> denied) {
    open.answer([&open, &denials, denied](HKEY root, LPCWSTR path, DWORD options, REGSAM access,
                                          PHKEY key) -> LSTATUS {
        constexpr int endless = 1000;
        if ((access & KEY_SET_VALUE) != 0 && denied(path) && ++denials < endless) return ERROR_ACCESS_DENIED;
        return open.callOriginal(root, path, options, access, key);
    });
}

TEST_F(Registration, comesAndGoes) {
    const auto before = registry();
    EXPECT_EQ(S_OK, add());
    const auto registered = registry();
    EXPECT_GT(registered.size(), before.size() + 12 * 10);
    EXPECT_EQ(S_OK, add());
    EXPECT_EQ(registered, registry());
    EXPECT_EQ(S_OK, remove());
    EXPECT_EQ(before, registry());
    EXPECT_EQ(S_OK, remove());
    EXPECT_EQ(before, registry());
}

TEST_F(Registration, aKeyBelowThatCannotBeOpenedEndsNoHost) {
    const auto before = registry();
    EXPECT_EQ(S_OK, add());
    const auto kept = L"CLSID\\" + textOf(classId(5));
    int denials = 0;
    {
        Open open(component.module(), "advapi32.dll", "RegOpenKeyExW");
        deny(open, denials, [&](const std::wstring& path) { return path == kept + L"\\InprocServer32"; });
        EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), remove());
    }
    EXPECT_EQ(1, denials);
    // Everything else is gone.
    auto left = registry();
    std::erase_if(left, [&](const std::wstring& line) { return line.find(kept) != line.npos; });
    EXPECT_EQ(before, left);
    EXPECT_EQ(S_OK, remove());
    EXPECT_EQ(before, registry());
}

TEST_F(Registration, whatCannotBeRemovedIsNoSuccess) {
    EXPECT_EQ(S_OK, add());
    for (const wchar_t* place : {L"CLSID\\", L"Vorla6.", L"TypeLib\\", L"Interface\\"}) {
        int denials = 0;
        {
            Open open(component.module(), "advapi32.dll", "RegOpenKeyExW");
            deny(open, denials, [&](const std::wstring& path) { return path.starts_with(place); });
            EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), remove()) << narrow(place);
        }
        EXPECT_GT(denials, 0) << narrow(place);
        EXPECT_EQ(S_OK, add());
    }
    const auto registered = registry();
    {
        Intercept<decltype(RegDeleteKeyW)> removal(component.module(), "advapi32.dll", "RegDeleteKeyW");
        removal.answer([](HKEY, LPCWSTR) -> LSTATUS { return ERROR_ACCESS_DENIED; });
        EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED), remove());
    }
    // A list of keys that breaks off is no end of it.
    EXPECT_EQ(S_OK, add());
    {
        Intercept<decltype(RegEnumKeyExW)> listing(component.module(), "advapi32.dll", "RegEnumKeyExW");
        listing.failCall(1, ERROR_BADKEY);
        EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_BADKEY), remove());
    }
    EXPECT_EQ(S_OK, add());
    EXPECT_EQ(registered, registry());
}

// Registers with one call failing, the first, the second and so on, in steps that keep the test short.
template <class Function>
void failSome(HMODULE module, const char* dll, const char* name, LSTATUS failure,
              const std::function<HRESULT()>& add, const std::function<void(const std::string&)>& check) {
    int failures = 0;
    for (int number = 1;; number += number < 4 ? 1 : 17) {
        HRESULT answer;
        bool failed;
        {
            Intercept<Function, Registration> intercepted(module, dll, name);
            intercepted.failCall(number, failure);
            answer = add();
            failed = intercepted.calls() >= number;
        }
        if (!failed) break;
        const auto where = std::string(name) + " " + std::to_string(number);
        EXPECT_EQ(HRESULT_FROM_WIN32(static_cast<DWORD>(failure)), answer) << where;
        check(where);
        if (++failures > 20) break;
    }
    EXPECT_GT(failures, 3) << name;
}

TEST_F(Registration, oneThatFailsLeavesTheEarlierOne) {
    const auto before = registerElsewhere();
    const auto asBefore = [&](const std::string& where) { EXPECT_EQ(before, registry()) << where; };
    const auto again = [this] { return add(); };
    // The last of several tries fails in nothing, and replaces the earlier registration.
    const auto anew = [&] { EXPECT_EQ(before, registerElsewhere()); };
    failSome<decltype(RegSetValueExW)>(component.module(), "advapi32.dll", "RegSetValueExW", ERROR_DISK_FULL,
                                       again, asBefore);
    anew();
    failSome<decltype(RegCreateKeyExW)>(component.module(), "advapi32.dll", "RegCreateKeyExW",
                                        ERROR_ACCESS_DENIED, again, asBefore);
    anew();
    {
        Intercept<decltype(LoadTypeLibEx)> load(component.module(), "oleaut32.dll", "LoadTypeLibEx");
        load.failCall(1, TYPE_E_CANTLOADLIBRARY);
        EXPECT_EQ(TYPE_E_CANTLOADLIBRARY, add());
        asBefore("LoadTypeLibEx");
    }
    {
        // The system has done all its part, or some of it, when it fails.
        Intercept<decltype(RegisterTypeLib)> types(component.module(), "oleaut32.dll", "RegisterTypeLib");
        types.answer([&types](auto... arguments) {
            EXPECT_EQ(S_OK, types.callOriginal(arguments...));
            return TYPE_E_REGISTRYACCESS;
        });
        EXPECT_EQ(TYPE_E_REGISTRYACCESS, add());
        asBefore("RegisterTypeLib");
    }
    // What cannot be remembered is not touched.
    failSome<decltype(RegQueryInfoKeyW)>(component.module(), "advapi32.dll", "RegQueryInfoKeyW",
                                         ERROR_ACCESS_DENIED, again, asBefore);
    anew();
    failSome<decltype(RegEnumValueW)>(component.module(), "advapi32.dll", "RegEnumValueW",
                                      ERROR_ACCESS_DENIED, again, asBefore);
    anew();
    EXPECT_EQ(S_OK, add());
}

TEST_F(Registration, oneThatFailsLeavesNothingWhereNothingWas) {
    const auto before = registry();
    const auto asBefore = [&](const std::string& where) { EXPECT_EQ(before, registry()) << where; };
    failSome<decltype(RegSetValueExW)>(
        component.module(), "advapi32.dll", "RegSetValueExW", ERROR_DISK_FULL, [this] { return add(); },
        asBefore);
}

}  // namespace
}  // namespace vorla::test
