// The questions about the system, with the real answers and with each possible one.
#include "frame/shared/system_queries.h"

#include <gtest/gtest.h>

#include "frame/values/unique_handle.h"
#include "support/automation.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

const HMODULE program = GetModuleHandleW(nullptr);

// A version reported by the system, as long as this exists.
class FakeVersion {
public:
    FakeVersion(DWORD major, DWORD minor, DWORD platform, std::string servicePack) {
        version_.answer([=](LPOSVERSIONINFOA record) -> WINBOOL {
            EXPECT_EQ(148u, record->dwOSVersionInfoSize);
            record->dwMajorVersion = major;
            record->dwMinorVersion = minor;
            record->dwPlatformId = platform;
            servicePack.copy(record->szCSDVersion, 127);
            return TRUE;
        });
    }

private:
    Intercept<decltype(GetVersionExA)> version_{program, "kernel32.dll", "GetVersionExA"};
};

TEST(VersionWindows, everyVersion) {
    struct Row {
        DWORD major, minor, platform;
        const char* servicePack;
        int version;
        const wchar_t* name;
    };
    const Row rows[] = {
        {3, 51, 2, "Service Pack 5", 1, L"Windows NT 3.51"},
        {4, 0, 2, "Service Pack 6a", 7, L"Windows NT 4"},
        {4, 0, 1, "", 2, L"Windows 95"},
        // The second release is not recognised by the field that the system fills.
        {4, 0, 1, "C", 2, L"Windows 95"},
        {4, 10, 1, "", 4, L"Windows 98"},
        {4, 10, 1, " A ", 5, L"Windows 98 Second Edition"},
        {4, 90, 1, " ", 6, L"Windows Millenium"},
        {5, 0, 2, "Service Pack 4", 8, L"Windows 2000"},
        {5, 1, 2, "Service Pack 3", 9, L"Windows XP"},
        {5, 2, 2, "Service Pack 2", 10, L"Windows Server 2003"},
        // Twice the word, and a trailing blank: hosts compare with these.
        {6, 0, 2, "Service Pack 2", 11, L"Windows Windows Vista"},
        {6, 1, 2, "Service Pack 1", 0, L"Windows "},
        {10, 0, 2, "", 0, L"Windows "},
    };
    for (const Row& row : rows) {
        const FakeVersion version(row.major, row.minor, row.platform, row.servicePack);
        Text name = L"before";
        EXPECT_EQ(row.version, static_cast<int>(VersionWindows(name))) << narrow(row.name);
        EXPECT_EQ(row.name, name);
    }
}

TEST(VersionWindows, aSystemThatDoesNotAnswerIsUnknown) {
    Intercept<decltype(GetVersionExA)> version(program, "kernel32.dll", "GetVersionExA");
    version.failCall(1, FALSE);
    Text name;
    EXPECT_EQ(0, static_cast<int>(VersionWindows(name)));
    EXPECT_EQ(L"Windows ", name);
}

// Under Wine the user can choose a version of Windows for each program.
class ProgramVersion {
public:
    explicit ProgramVersion(std::wstring_view version) {
        EXPECT_EQ(0, RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_WRITE, nullptr, key_.put(),
                                     nullptr));
        const Text value(version);
        EXPECT_EQ(
            0, RegSetValueExW(key_.get(), L"Version", 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                              static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
    }
    ~ProgramVersion() { RegDeleteKeyW(HKEY_CURRENT_USER, path); }

private:
    static constexpr const wchar_t* path = L"Software\\Wine\\AppDefaults\\version_probe.exe";
    RegistryKey key_;
};

DWORD exitCodeOf(Text command) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        return 1000;
    DWORD code = 1001;
    if (WaitForSingleObject(process.hProcess, 60'000) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

TEST(VersionWindows, ofARealProcess) {
    struct Row {
        const wchar_t* version;
        const wchar_t* arguments;
    };
    const Row rows[] = {
        {L"win2k", L"8 \"Windows 2000\""},
        {L"winxp", L"9 \"Windows XP\""},
        {L"win2003", L"10 \"Windows Server 2003\""},
        {L"vista", L"11 \"Windows Windows Vista\""},
        {L"win7", L"0 \"Windows \""},
    };
    const Text probe = L"tests\\frame\\version_probe.exe ";
    for (const Row& row : rows) {
        const ProgramVersion version(row.version);
        EXPECT_EQ(0u, exitCodeOf(probe + row.arguments)) << narrow(row.version);
        EXPECT_EQ(1u, exitCodeOf(probe + L"7 \"Windows NT 4\"")) << narrow(row.version);
    }
}

TEST(InfoLocale, ofTheUsersOwnLocale) {
    EXPECT_EQ(isFrench() ? L"," : L".", InfoLocale(LOCALE_SDECIMAL));
    // The euro is outside ASCII and inside the ANSI code page.
    EXPECT_EQ(isFrench() ? L"€" : L"$", InfoLocale(LOCALE_SCURRENCY));
    EXPECT_EQ(L"", InfoLocale(0x7FFF));
    EXPECT_EQ(L"", InfoLocale(-1));
    CallLog log;
    Intercept<decltype(GetLocaleInfoA)> locale(program, "kernel32.dll", "GetLocaleInfoA", &log);
    InfoLocale(LOCALE_SDECIMAL);
    EXPECT_EQ(CallLog{"GetLocaleInfoA(1024, 14, set, 49)"}, log);
}

TEST(InfoLocale, whatTheSystemAnswers) {
    Intercept<decltype(GetLocaleInfoA)> locale(program, "kernel32.dll", "GetLocaleInfoA");
    std::string answered;
    locale.answer([&](LCID, LCTYPE, LPSTR buffer, int size) -> int {
        if (answered.size() + 1 > static_cast<std::size_t>(size)) return 0;
        answered.copy(buffer, answered.size());
        buffer[answered.size()] = '\0';
        return static_cast<int>(answered.size()) + 1;
    });
    EXPECT_EQ(L"", InfoLocale(1));
    answered = std::string(48, 'x');
    EXPECT_EQ(Text(48, L'x'), InfoLocale(1));
    answered = std::string(49, 'x');
    EXPECT_EQ(L"", InfoLocale(1));
    answered.assign("ab\0cd", 5);
    EXPECT_EQ(L"ab", InfoLocale(1));
    // What a failed call leaves in the buffer is not used.
    locale.answer([](LCID, LCTYPE, LPSTR buffer, int) -> int {
        buffer[0] = 'z';
        return 0;
    });
    EXPECT_EQ(L"", InfoLocale(1));
    // An item without a NUL ends where the buffer does.
    locale.answer([](LCID, LCTYPE, LPSTR buffer, int size) -> int {
        std::string(50, 'y').copy(buffer, static_cast<std::size_t>(size));
        return size;
    });
    EXPECT_EQ(Text(49, L'y'), InfoLocale(1));
}

TEST(TypeLecteur, asksForTheRoot) {
    struct Row {
        const wchar_t* path;
        const char* call;
    };
    const Row rows[] = {
        {L"C:", "GetDriveTypeA(\"C:\\\")"},
        {L"C:\\", "GetDriveTypeA(\"C:\\\")"},
        {L"d:\\Été\\f.txt", "GetDriveTypeA(\"d:\\\")"},
        {L"\\\\srv\\part\\x\\y", "GetDriveTypeA(\"\\\\srv\\part\\\")"},
        {L"relatif", "GetDriveTypeA(\"\\\")"},
        {L"", "GetDriveTypeA(\"\\\")"},
    };
    CallLog log;
    Intercept<decltype(GetDriveTypeA)> drive(program, "kernel32.dll", "GetDriveTypeA", &log);
    UINT type = 0;
    drive.answer([&type](LPCSTR) { return type++ % 7; });
    int expected = 0;
    for (const Row& row : rows) {
        log.clear();
        EXPECT_EQ(expected++, static_cast<int>(TypeLecteur(row.path)));
        EXPECT_EQ(CallLog{row.call}, log);
    }
}

TEST(TypeLecteur, ofARealDrive) {
    EXPECT_EQ(DRIVE_FIXED, static_cast<int>(TypeLecteur(L"C:\\windows\\win.ini")));
    EXPECT_EQ(DRIVE_NO_ROOT_DIR, static_cast<int>(TypeLecteur(L"Q:\\absent")));
}

}  // namespace
}  // namespace vorla::test
