// A folder for the files of one test, removed with its contents at the end.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"

namespace vorla::test {

class TemporaryFolder {
public:
    TemporaryFolder() {
        wchar_t shortForm[MAX_PATH], root[MAX_PATH];
        GetTempPathW(MAX_PATH, shortForm);
        GetLongPathNameW(shortForm, root, MAX_PATH);
        path_ = root + (L"essai été " + std::to_wstring(GetCurrentProcessId()));
        // Process numbers are reused, and an interrupted run may have left its folder.
        if (exists(path_)) remove(path_);
        EXPECT_TRUE(CreateDirectoryW(path_.c_str(), nullptr)) << GetLastError();
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { remove(path_); }

    /// The path of the folder, or of something in it.
    const std::wstring& path() const { return path_; }
    std::wstring path(std::wstring_view name) const { return path_ + L'\\' + std::wstring(name); }

    std::wstring folder(std::wstring_view name) const {
        EXPECT_TRUE(CreateDirectoryW(path(name).c_str(), nullptr)) << GetLastError();
        return path(name);
    }

    std::wstring file(std::wstring_view name, std::string_view content = {}) const {
        const File made(CreateFileW(path(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        EXPECT_TRUE(static_cast<bool>(made)) << GetLastError();
        DWORD written = 0;
        WriteFile(made.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        EXPECT_EQ(content.size(), written);
        return path(name);
    }

    /// A file of this length that needs no space on the disk.
    std::wstring sparseFile(std::wstring_view name, LONGLONG length) const {
        const auto made = file(name);
        const File open(CreateFileW(made.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        LARGE_INTEGER end;
        end.QuadPart = length;
        EXPECT_TRUE(SetFilePointerEx(open.get(), end, nullptr, FILE_BEGIN));
        EXPECT_TRUE(SetEndOfFile(open.get())) << GetLastError();
        return made;
    }

    static bool exists(const std::wstring& path) {
        return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
    }

private:
    static void remove(const std::wstring& folder) {
        WIN32_FIND_DATAW found;
        {
            const FileSearch search(FindFirstFileW((folder + L"\\*").c_str(), &found));
            for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found)) {
                const std::wstring name = found.cFileName, inside = folder + L'\\' + name;
                if (name == L"." || name == L"..") continue;
                SetFileAttributesW(inside.c_str(), FILE_ATTRIBUTE_NORMAL);
                if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                    remove(inside);
                else
                    EXPECT_TRUE(DeleteFileW(inside.c_str())) << GetLastError();
            }
        }
        EXPECT_TRUE(RemoveDirectoryW(folder.c_str())) << GetLastError();
    }

    std::wstring path_;
};

}  // namespace vorla::test
