// A program that tests start.
//   patient_child wait EVENT CODE    ends with CODE when the named event is set, with 77 when it never is
//   patient_child mark FILE          writes the file's own path into it

#include <cstdlib>
#include <string>
#include <string_view>

#include <windows.h>

int wmain(int count, wchar_t** arguments) {
    const std::wstring_view task = count > 1 ? arguments[1] : L"";
    if (task == L"wait" && count == 4) {
        const HANDLE event = OpenEventW(SYNCHRONIZE, FALSE, arguments[2]);
        if (!event || WaitForSingleObject(event, 20'000) != WAIT_OBJECT_0) return 77;
        return std::atoi(std::string(arguments[3], arguments[3] + wcslen(arguments[3])).c_str());
    }
    if (task == L"mark" && count == 3) {
        wchar_t path[MAX_PATH];
        const auto length = GetFullPathNameW(arguments[2], MAX_PATH, path, nullptr);
        // The test that waits for the mark may have the file open at this moment.
        constexpr DWORD anybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        const HANDLE file = CreateFileW(path, GENERIC_WRITE, anybody, nullptr, OPEN_EXISTING, 0, nullptr);
        DWORD written = 0;
        return WriteFile(file, path, length * static_cast<DWORD>(sizeof(wchar_t)), &written, nullptr) ? 0 : 1;
    }
    return 2;
}
