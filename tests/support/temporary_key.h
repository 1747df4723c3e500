// A registry key below HKEY_CURRENT_USER for one test, removed with its contents at the end.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"

namespace vorla::test {

/// A value as it is stored: its type and its bytes.
struct StoredValue {
    DWORD type = REG_NONE;
    std::string bytes;

    bool operator==(const StoredValue&) const = default;
};

class TemporaryKey {
public:
    TemporaryKey() : path_(L"Software\\Essai été " + std::to_wstring(GetCurrentProcessId())) {
        // Process numbers are reused, and an interrupted run may have left its key.
        if (exists(L"")) remove(path_);
        make(L"");
    }
    TemporaryKey(const TemporaryKey&) = delete;
    TemporaryKey& operator=(const TemporaryKey&) = delete;
    ~TemporaryKey() { remove(path_); }

    /// The key itself or one below it, relative to HKEY_CURRENT_USER.
    const std::wstring& path() const { return path_; }
    std::wstring path(std::wstring_view below) const {
        return below.empty() ? path_ : path_ + L'\\' + std::wstring(below);
    }

    std::wstring make(std::wstring_view below) const {
        RegistryKey key;
        EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, path(below).c_str(), 0, nullptr, 0,
                                                 KEY_ALL_ACCESS, nullptr, key.put(), nullptr));
        return path(below);
    }
    bool exists(std::wstring_view below) const { return static_cast<bool>(opened(path(below))); }

    void set(const std::wstring& name, DWORD type, std::string_view bytes) const {
        EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(opened(path_).get(), name.c_str(), 0, type,
                                                reinterpret_cast<const BYTE*>(bytes.data()),
                                                static_cast<DWORD>(bytes.size())));
    }
    /// Stores exactly these characters; a NUL is stored only if the text contains it.
    void setText(const std::wstring& name, DWORD type, std::wstring_view text) const {
        set(name, type, {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)});
    }
    std::optional<StoredValue> get(const std::wstring& name, std::wstring_view below = {}) const {
        const auto key = opened(path(below));
        StoredValue value;
        DWORD size = 0;
        if (!key || RegQueryValueExW(key.get(), name.c_str(), nullptr, &value.type, nullptr, &size) != 0)
            return std::nullopt;
        value.bytes.resize(size);
        EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key.get(), name.c_str(), nullptr, &value.type,
                                                  reinterpret_cast<BYTE*>(value.bytes.data()), &size));
        return value;
    }

private:
    static RegistryKey opened(const std::wstring& path) {
        RegistryKey key;
        RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, key.put());
        return key;
    }

    static void remove(const std::wstring& path) {
        std::vector<std::wstring> names;
        {
            const auto key = opened(path);
            wchar_t name[300];
            for (DWORD size = 300; RegEnumKeyExW(key.get(), static_cast<DWORD>(names.size()), name, &size,
                                                 nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
                 size = 300)
                names.push_back(name);
        }
        for (const auto& name : names) remove(path + L'\\' + name);
        EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(HKEY_CURRENT_USER, path.c_str()));
    }

    const std::wstring path_;
};

}  // namespace vorla::test
