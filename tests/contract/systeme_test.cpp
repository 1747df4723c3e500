// VorlaSystem's answers about the system, its INI files, windows and words. What starts programs is tested
// in systeme_shell_test.cpp.
#include <shlobj.h>
#include <shlwapi.h>
#include <winnetwk.h>

#include <cstring>

#include "contract/signatures.h"
#include "contract/systeme_fixture.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/resource_count.h"
#include "support/scripted_object.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

TEST_F(Systeme, membersHaveTheIdentifiersOfTheirPlaces) {
    const wchar_t* const methods[] = {L"SysDisqueNumero",
                                      L"SysDisqueLabel",
                                      L"SysDisqueType",
                                      L"SysRepertoires",
                                      L"SysSpecialFolder",
                                      L"SysFindAppliAssocié",
                                      L"SysShellWait",
                                      L"SysShellAppliAssocié",
                                      L"SysSymboleMonétaire",
                                      L"WindowsVersion",
                                      L"IniLit",
                                      L"IniEcrit",
                                      L"OemToChar",
                                      L"CharToOem",
                                      L"FlashWindow",
                                      L"OsVersion95NT",
                                      L"MakeLong",
                                      L"MakeLParam",
                                      L"MakeWord",
                                      L"LoWord",
                                      L"HiWord",
                                      L"LoByte",
                                      L"HiByte",
                                      L"LongToUShort",
                                      L"IsDiskReady",
                                      L"SleepNoWait",
                                      L"IsScreenSaverRunning",
                                      L"UNCPathFromPath",
                                      L"WinProcIDFromWnd",
                                      L"WindowHandle"};
    DISPID expected = 0x60030000;
    for (const wchar_t* name : methods) EXPECT_EQ(expected++, idOf(object.get(), name)) << narrow(name);
    EXPECT_EQ(0x68030000, idOf(object.get(), L"GetComputerName"));
    EXPECT_EQ(0x60030005, idOf(object.get(), L"sysfindappliassocié"));
}

TEST_F(Systeme, membersAreDescribed) {
    const std::vector<std::wstring> expected{
        L"60030000 I4 SysDisqueNumero(BSTR Disque)",
        L"60030001 BSTR SysDisqueLabel(BSTR Disque)",
        L"60030002 eDriveType SysDisqueType(BSTR Chem)",
        L"60030003 BSTR SysRepertoires(SysRepert Repertoire)",
        L"60030004 BSTR SysSpecialFolder(eSpecialFolderConstants Repertoire)",
        L"60030005 BSTR SysFindAppliAssocié(BSTR FileName, [BOOL Message=-1], [&BOOL "
        L"NoCreateFileIfNotExist=0])",
        L"60030006 BOOL SysShellWait(&BSTR sShell, [I4 eWindowStyle=1])",
        L"60030007 I4 SysShellAppliAssocié(BSTR FileName, [BOOL Message=-1])",
        L"60030008 BSTR SysSymboleMonétaire(eInfoMonetaire TypeInfo)",
        L"60030009 WinVer WindowsVersion([&BSTR VarToReceiveStrVersion])",
        L"6003000a BSTR IniLit(BSTR FichierINI, BSTR Section, BSTR MotClé, [BSTR ValParDefaut=\"\"], [BOOL "
        L"ConvertionOEM=0])",
        L"6003000b I4 IniEcrit(BSTR FichierINI, BSTR Section, BSTR MotClé, [BSTR Valeur=\"\"], [BOOL "
        L"ConvertionOEM=0])",
        L"6003000c BSTR OemToChar(BSTR ChaineSource)",
        L"6003000d BSTR CharToOem(BSTR ChaineSource)",
        L"6003000e void FlashWindow(&VARIANT Frm)",
        L"68030000 get BSTR GetComputerName()",
        L"6003000f BOOL OsVersion95NT()",
        L"60030010 I4 MakeLong(I4 wLow, I4 wHigh)",
        L"60030011 I4 MakeLParam(I4 wLow, I4 wHigh)",
        L"60030012 I4 MakeWord(I4 wLow, I4 wHigh)",
        L"60030013 I2 LoWord(I4 dwValue)",
        L"60030014 I2 HiWord(I4 dwValue)",
        L"60030015 UI1 LoByte(I4 dwValue)",
        L"60030016 UI1 HiByte(I4 dwValue)",
        L"60030017 I2 LongToUShort(&I4 Unsigned)",
        L"60030018 BOOL IsDiskReady(BSTR Chem)",
        L"60030019 void SleepNoWait(I4 Millisecondes)",
        L"6003001a BOOL IsScreenSaverRunning()",
        L"6003001b BSTR UNCPathFromPath(&BSTR pLocalName)",
        L"6003001c I4 WinProcIDFromWnd(I4 hwnd)",
        L"6003001d I4 WindowHandle(BSTR Titre)"};
    EXPECT_EQ(expected, signatures(object.get()));
}

// Called as by a compiled host, through the slot.
TEST_F(Systeme, membersAnswerThroughTheVtable) {
    const auto slots = *reinterpret_cast<void***>(object.get());
    constexpr std::size_t first = 7;
    LONG whole = 0;
    using Join = HRESULT STDMETHODCALLTYPE(IDispatch*, LONG, LONG, LONG*);
    EXPECT_EQ(S_OK, reinterpret_cast<Join*>(slots[first + 17])(object.get(), 2, 1, &whole));
    EXPECT_EQ(65538, whole);
    SHORT word = 0;
    using ToWord = HRESULT STDMETHODCALLTYPE(IDispatch*, LONG*, SHORT*);
    whole = 65535;
    EXPECT_EQ(S_OK, reinterpret_cast<ToWord*>(slots[first + 24])(object.get(), &whole, &word));
    EXPECT_EQ(-1, word);
    EXPECT_EQ(E_POINTER, reinterpret_cast<ToWord*>(slots[first + 24])(object.get(), nullptr, &word));
    EXPECT_EQ(0, word);
    BSTR name = nullptr;
    using GetText = HRESULT STDMETHODCALLTYPE(IDispatch*, BSTR*);
    EXPECT_EQ(S_OK, reinterpret_cast<GetText*>(slots[first + 15])(object.get(), &name));
    EXPECT_NE(0u, SysStringLen(name));
    SysFreeString(name);
}

TEST_F(Systeme, wrongArgumentsAreRefusedByDispatch) {
    for (const wchar_t* name : {L"SysDisqueNumero",
                                L"SysDisqueLabel",
                                L"SysDisqueType",
                                L"SysRepertoires",
                                L"SysSpecialFolder",
                                L"SysFindAppliAssocié",
                                L"SysShellWait",
                                L"SysShellAppliAssocié",
                                L"SysSymboleMonétaire",
                                L"OemToChar",
                                L"CharToOem",
                                L"LoWord",
                                L"HiWord",
                                L"LoByte",
                                L"HiByte",
                                L"LongToUShort",
                                L"IsDiskReady",
                                L"SleepNoWait",
                                L"UNCPathFromPath",
                                L"WinProcIDFromWnd",
                                L"WindowHandle"}) {
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name).code) << narrow(name);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(name, {nullValue()}).code) << narrow(name);
    }
    for (const wchar_t* name : {L"IniLit", L"IniEcrit", L"MakeLong", L"MakeLParam", L"MakeWord"})
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name, {text(L"1")}).code) << narrow(name);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"FlashWindow").code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"LoWord", {text(L"deux")}).code);
    EXPECT_EQ(DISP_E_OVERFLOW, call(L"LoWord", {4294967295.0}).code);
}

TEST_F(Systeme, wordsAndBytes) {
    expectResult(call(L"MakeLong", {long32(0xFFFF), long32(1)}), long32(-1));
    expectResult(call(L"MakeLParam", {long32(0xFFFF), long32(1)}), long32(-1));
    expectResult(call(L"MakeLong", {long32(2), long32(1)}), long32(65538));
    expectResult(call(L"MakeLParam", {text(L"2"), short16(1)}), long32(65538));
    expectResult(call(L"MakeLong", {short16(-1), long32(0)}), long32(-1));
    expectResult(call(L"MakeLong", {long32(0), long32(32768)}), long32(-2147483647 - 1));
    expectResult(call(L"MakeWord", {long32(0x1234), long32(0x56)}), long32(0x5634));
    expectResult(call(L"MakeWord", {long32(255), long32(255)}), long32(65535));
    expectResult(call(L"LoWord", {long32(0x12345678)}), short16(0x5678));
    expectResult(call(L"HiWord", {long32(0x12345678)}), short16(0x1234));
    expectResult(call(L"LoWord", {long32(32768)}), short16(-32768));
    expectResult(call(L"HiWord", {long32(-1)}), short16(-1));
    expectResult(call(L"LoByte", {long32(0x12345678)}), octet(0x78));
    expectResult(call(L"HiByte", {long32(0x12345678)}), octet(0x56));
    expectResult(call(L"HiByte", {long32(-1)}), octet(255));
    expectResult(call(L"LoWord", {Variant()}), short16(0));
}

TEST_F(Systeme, unsignedWordsBecomeSigned) {
    expectResult(call(L"LongToUShort", {long32(65535)}), short16(-1));
    expectResult(call(L"LongToUShort", {long32(32767)}), short16(32767));
    expectResult(call(L"LongToUShort", {long32(32768)}), short16(-32768));
    expectResult(call(L"LongToUShort", {long32(-32768)}), short16(-32768));
    expectResult(call(L"LongToUShort", {long32(98303)}), short16(32767));
    for (const int value : {98304, -32769, 2147483647, -2147483647})
        expectError(call(L"LongToUShort", {long32(value)}), 6);
    // The variable stays as it is.
    Variant variable(std::int32_t{65535});
    expectResult(call(L"LongToUShort", {byReference(variable)}), short16(-1));
    EXPECT_EQ(describe(long32(65535).raw()), describe(variable.raw()));
    LONG typed = 98304;
    expectError(call(L"LongToUShort", {byReference(VT_I4, &typed)}), 6);
    EXPECT_EQ(98304, typed);
}

TEST_F(Systeme, disksAreThoseOfTheRoot) {
    DWORD serial = 0;
    wchar_t label[261];
    ASSERT_TRUE(GetVolumeInformationW(L"C:\\", label, 261, &serial, nullptr, nullptr, nullptr, 0));
    for (const wchar_t* path : {L"C:", L"c:\\", L"C:\\windows\\win.ini", L"C:rien"}) {
        expectResult(call(L"SysDisqueNumero", {text(path)}), long32(static_cast<int>(serial)), narrow(path));
        EXPECT_EQ(label, textOf(L"SysDisqueLabel", {text(path)})) << narrow(path);
        expectResult(call(L"SysDisqueType", {text(path)}), long32(DRIVE_FIXED), narrow(path));
    }
    for (const auto& path : {std::wstring(L"Q:"), std::wstring(L"Q:\\x"), std::wstring(L"\\\\rien\\rien\\x"),
                             std::wstring(L"???:"), std::wstring(L"Q:") + std::wstring(40000, L'x')}) {
        expectResult(call(L"SysDisqueNumero", {text(path)}), long32(0), narrow(path.substr(0, 20)));
        EXPECT_EQ(L"", textOf(L"SysDisqueLabel", {text(path)}));
        expectResult(call(L"SysDisqueType", {text(path)}), long32(DRIVE_NO_ROOT_DIR));
    }
}

TEST_F(Systeme, whatReachesTheDisk) {
    CallLog log;
    Intercept<decltype(GetVolumeInformationA)> volume(module, "kernel32.dll", "GetVolumeInformationA", &log);
    Intercept<decltype(GetDriveTypeA)> type(module, "kernel32.dll", "GetDriveTypeA", &log);
    std::string label;
    volume.answer(
        [&](LPCSTR, LPSTR name, DWORD room, LPDWORD serial, LPDWORD, LPDWORD, LPSTR, DWORD) -> WINBOOL {
            if (serial) *serial = 0xFEDCBA98;
            if (name) {
                EXPECT_EQ(261u, room);
                std::memcpy(name, label.data(), label.size());
            }
            return TRUE;
        });
    type.answer([](LPCSTR) -> UINT { return 6; });
    expectResult(call(L"SysDisqueNumero", {text(L"D:\\Été\\f")}), long32(static_cast<int>(0xFEDCBA98u)));
    label = "\xC9t\xE9 \x80";
    EXPECT_EQ(L"Été €", textOf(L"SysDisqueLabel", {text(L"\\\\srv\\part\\x")}));
    label.assign("ab\0cd", 5);
    EXPECT_EQ(L"ab", textOf(L"SysDisqueLabel", {text(L"rien")}));
    label.assign(261, 'x');
    EXPECT_EQ(std::wstring(261, L'x'), textOf(L"SysDisqueLabel", {text(L"")}));
    expectResult(call(L"SysDisqueType", {text(L"d:")}), long32(6));
    EXPECT_EQ((CallLog{"GetVolumeInformationA(\"D:\\\", null, 0, set, null, null, null, 0)",
                       "GetVolumeInformationA(\"\\\\srv\\part\\\", set, 261, null, null, null, null, 0)",
                       "GetVolumeInformationA(\"\\\", set, 261, null, null, null, null, 0)",
                       "GetVolumeInformationA(\"\\\", set, 261, null, null, null, null, 0)",
                       "GetDriveTypeA(\"d:\\\")"}),
              log);
    // What a failed call leaves in the buffer is not used.
    volume.answer([](LPCSTR, LPSTR name, DWORD, LPDWORD serial, LPDWORD, LPDWORD, LPSTR, DWORD) -> WINBOOL {
        if (serial) *serial = 5;
        if (name) name[0] = 'x';
        return FALSE;
    });
    expectResult(call(L"SysDisqueNumero", {text(L"C:")}), long32(0));
    EXPECT_EQ(L"", textOf(L"SysDisqueLabel", {text(L"C:")}));
}

TEST_F(Systeme, readyDisksHaveAFolder) {
    const TemporaryFolder temporary;
    const auto folder = temporary.folder(L"dossier é");
    for (const auto& path : {std::wstring(L"C:\\"), folder, folder + L"\\", folder + L"\\rien.txt",
                             temporary.file(L"fichier"), std::wstring(L"C:\\rien.txt")})
        expectResult(call(L"IsDiskReady", {text(path)}), true, narrow(path));
    for (const auto& path : {std::wstring(L"Q:\\"), std::wstring(L"Q:"), folder + L"\\rien\\x",
                             std::wstring(L"C:\\r?en\\x"), tooLong(), std::wstring(40000, L'x')})
        expectResult(call(L"IsDiskReady", {text(path)}), false, narrow(path.substr(0, 30)));
    Intercept<decltype(GetFileAttributesA)> attributes(module, "kernel32.dll", "GetFileAttributesA");
    // The folder question, then the one about the folder itself.
    attributes.failCall(2, INVALID_FILE_ATTRIBUTES, ERROR_NOT_READY);
    expectResult(call(L"IsDiskReady", {text(L"C:\\")}), false);
}

std::wstring normalised(std::wstring path) { return path.ends_with(L'\\') ? path : path + L'\\'; }

TEST_F(Systeme, foldersOfWindowsEndInABackslash) {
    wchar_t windows[MAX_PATH], system[MAX_PATH], temporary[MAX_PATH];
    GetWindowsDirectoryW(windows, MAX_PATH);
    GetSystemDirectoryW(system, MAX_PATH);
    GetTempPathW(MAX_PATH, temporary);
    EXPECT_EQ(normalised(windows), textOf(L"SysRepertoires", {long32(1)}));
    EXPECT_EQ(normalised(system), textOf(L"SysRepertoires", {long32(2)}));
    const auto found = textOf(L"SysRepertoires", {long32(3)});
    EXPECT_EQ(normalised(temporary), found);
    EXPECT_FALSE(found.ends_with(L"\\\\"));
    for (const int other : {0, 4, -1, 32768, 2147483647})
        EXPECT_EQ(L"\\", textOf(L"SysRepertoires", {long32(other)})) << other;
}

TEST_F(Systeme, foldersAreReadIntoTheirBuffers) {
    Intercept<decltype(GetWindowsDirectoryA)> windows(module, "kernel32.dll", "GetWindowsDirectoryA");
    Intercept<decltype(GetSystemDirectoryA)> system(module, "kernel32.dll", "GetSystemDirectoryA");
    Intercept<decltype(GetTempPathA)> temporary(module, "kernel32.dll", "GetTempPathA");
    std::string folder;
    const auto write = [&folder](LPSTR buffer, DWORD room) -> DWORD {
        EXPECT_EQ(4095u, room);
        if (folder.size() + 1 > room) {
            std::memcpy(buffer, "garbage", 8);
            return static_cast<DWORD>(folder.size() + 1);
        }
        std::memcpy(buffer, folder.c_str(), folder.size() + 1);
        return static_cast<DWORD>(folder.size());
    };
    windows.answer([&](LPSTR buffer, UINT room) -> UINT { return write(buffer, room); });
    system.answer([&](LPSTR buffer, UINT room) -> UINT { return write(buffer, room); });
    temporary.answer([&](DWORD room, LPSTR buffer) { return write(buffer, room); });
    const auto expectAll = [this](const std::wstring& expected) {
        for (const int which : {1, 2, 3})
            EXPECT_EQ(expected, textOf(L"SysRepertoires", {long32(which)})) << which;
    };
    folder = "D:\\\xE9t\xE9";
    expectAll(L"D:\\été\\");
    folder = "D:\\";
    expectAll(L"D:\\");
    folder = "";
    expectAll(L"\\");
    folder = std::string(4094, 'x');
    expectAll(std::wstring(4094, L'x') + L'\\');
    folder = std::string(4095, 'x');
    expectAll(L"\\");
    folder = std::string(100'000, 'x');
    expectAll(L"\\");
    windows.failCall(1, 0);
    system.failCall(1, 0);
    temporary.failCall(1, 0);
    expectAll(L"\\");
}

TEST_F(Systeme, specialFoldersEndInABackslash) {
    int found = 0;
    for (int folder = -1; folder <= 64; ++folder) {
        wchar_t path[MAX_PATH] = L"";
        const bool known = SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK;
        EXPECT_EQ(known ? normalised(path) : L"", textOf(L"SysSpecialFolder", {long32(folder)})) << folder;
        found += known;
    }
    EXPECT_GE(found, 20);

    CallLog log;
    Intercept<decltype(SHGetFolderPathA)> shell(module, "shell32.dll", "SHGetFolderPathA", &log);
    HRESULT answered = S_OK;
    shell.answer([&](HWND, int, HANDLE, DWORD, LPSTR path) {
        std::strcpy(path, "D:\\\xE9t\xE9");
        return answered;
    });
    EXPECT_EQ(L"D:\\été\\", textOf(L"SysSpecialFolder", {long32(26)}));
    EXPECT_EQ(CallLog{"SHGetFolderPathA(null, 26, null, 0, set)"}, log);
    for (const HRESULT failure : {S_FALSE, E_FAIL, E_INVALIDARG, HRESULT(0x80070002)}) {
        answered = failure;
        EXPECT_EQ(L"", textOf(L"SysSpecialFolder", {long32(26)}));
    }
}

TEST_F(Systeme, localeItemsAreTheUsers) {
    EXPECT_EQ(isFrench() ? L"€" : L"$", textOf(L"SysSymboleMonétaire", {long32(20)}));
    EXPECT_EQ(isFrench() ? L"EUR" : L"USD", textOf(L"SysSymboleMonétaire", {long32(21)}));
    EXPECT_EQ(isFrench() ? L"," : L".", textOf(L"SysSymboleMonétaire", {long32(22)}));
    EXPECT_EQ(L"2", textOf(L"SysSymboleMonétaire", {long32(25)}));
    for (const int item : {0x7FFF, -1, 32768 * 3})
        EXPECT_EQ(L"", textOf(L"SysSymboleMonétaire", {long32(item)})) << item;
    CallLog log;
    Intercept<decltype(GetLocaleInfoA)> locale(module, "kernel32.dll", "GetLocaleInfoA", &log);
    locale.failCall(1, 0);
    EXPECT_EQ(L"", textOf(L"SysSymboleMonétaire", {long32(20)}));
    EXPECT_EQ(CallLog{"GetLocaleInfoA(1024, 20, set, 49)"}, log);
}

TEST_F(Systeme, windowsIsNamed) {
    struct Row {
        DWORD major, minor, platform;
        int version;
        const wchar_t* name;
        bool old;
    };
    constexpr Row rows[] = {
        {3, 51, 2, 1, L"Windows NT 3.51", true},
        {4, 0, 1, 2, L"Windows 95", true},
        {4, 0, 2, 7, L"Windows NT 4", true},
        {4, 10, 1, 4, L"Windows 98", false},
        {4, 90, 1, 6, L"Windows Millenium", false},
        {5, 0, 2, 8, L"Windows 2000", false},
        {5, 1, 2, 9, L"Windows XP", false},
        {5, 2, 2, 10, L"Windows Server 2003", false},
        {6, 0, 2, 11, L"Windows Windows Vista", false},
        {6, 1, 2, 0, L"Windows ", false},
        {10, 0, 2, 0, L"Windows ", false},
    };
    Intercept<decltype(GetVersionExA)> version(module, "kernel32.dll", "GetVersionExA");
    for (const Row& row : rows) {
        version.answer([&row](LPOSVERSIONINFOA record) -> WINBOOL {
            record->dwMajorVersion = row.major;
            record->dwMinorVersion = row.minor;
            record->dwPlatformId = row.platform;
            return TRUE;
        });
        expectResult(call(L"WindowsVersion"), long32(row.version));
        Variant name;
        expectResult(call(L"WindowsVersion", {byReference(name)}), long32(row.version));
        EXPECT_EQ(describe(text(row.name).raw()), describe(name.raw()));
        BSTR typed = SysAllocString(L"avant");
        expectResult(call(L"WindowsVersion", {byReference(VT_BSTR, &typed)}), long32(row.version));
        EXPECT_EQ(row.name, viewOf(typed));
        SysFreeString(typed);
        expectResult(call(L"OsVersion95NT"), row.old);
    }
    version.answer({});
    version.failCall(1, FALSE);
    Variant name(TextView(L"avant"));
    expectResult(call(L"WindowsVersion", {byReference(name)}), long32(0));
    EXPECT_EQ(describe(text(L"Windows ").raw()), describe(name.raw()));
    version.failCall(1, FALSE);
    expectResult(call(L"OsVersion95NT"), false);
}

TEST_F(Systeme, theComputersNameIsAProperty) {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD length = MAX_COMPUTERNAME_LENGTH + 1;
    ASSERT_TRUE(GetComputerNameW(name, &length));
    expectResult(invoke(object.get(), L"GetComputerName", {}, DISPATCH_PROPERTYGET), text(name));
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
              invoke(object.get(), L"GetComputerName", Arguments().named(DISPID_PROPERTYPUT, text(L"x")),
                     DISPATCH_PROPERTYPUT)
                  .code);
    Intercept<decltype(GetComputerNameA)> computer(module, "kernel32.dll", "GetComputerNameA");
    computer.answer([](LPSTR buffer, LPDWORD size) -> WINBOOL {
        EXPECT_EQ(16u, *size);
        std::memcpy(buffer, "MACHINE-D'\xC9T\xC9-1", 16);
        return TRUE;
    });
    EXPECT_EQ(L"MACHINE-D'ÉTÉ-1", textOf(L"GetComputerName"));
    computer.answer([](LPSTR buffer, LPDWORD) -> WINBOOL {
        buffer[0] = 'x';
        return FALSE;
    });
    EXPECT_EQ(L"", textOf(L"GetComputerName"));
}

class IniFile : public Systeme {
protected:
    Outcome write(const wchar_t* section, const wchar_t* key, std::wstring_view value, bool oem = false) {
        return call(L"IniEcrit", {text(file), text(section), text(key), text(value), oem});
    }
    std::wstring read(const wchar_t* section, const wchar_t* key, std::wstring_view otherwise = L"défaut",
                      bool oem = false) {
        return textOf(L"IniLit", {text(file), text(section), text(key), text(otherwise), oem});
    }

    const TemporaryFolder temporary;
    const std::wstring file = temporary.path(L"profil é.ini");
};

TEST_F(IniFile, valuesAreWrittenReadAndDeleted) {
    EXPECT_EQ(L"défaut", read(L"Séction", L"clé"));
    EXPECT_EQ(L"", textOf(L"IniLit", {text(file), text(L"Séction"), text(L"clé")}));
    expectResult(write(L"Séction", L"clé", L"à €"), long32(1));
    EXPECT_EQ(L"à €", read(L"Séction", L"clé"));
    EXPECT_EQ(L"à €", textOf(L"IniLit", {text(file), text(L"Séction"), text(L"CLé")}));
    expectResult(write(L"Séction", L"deux", L"  deux  "), long32(1));
    EXPECT_EQ(L"deux", read(L"Séction", L"deux"));
    // A commented key is deleted instead of written.
    expectResult(write(L"Séction", L";clé", L"x"), long32(1));
    EXPECT_EQ(L"défaut", read(L"Séction", L";clé"));
    EXPECT_EQ(L"à €", read(L"Séction", L"clé"));
    // Without a value the key goes, without a key the section.
    expectResult(call(L"IniEcrit", {text(file), text(L"Séction"), text(L"clé")}), long32(1));
    EXPECT_EQ(L"défaut", read(L"Séction", L"clé"));
    EXPECT_EQ(L"deux", read(L"Séction", L"deux"));
    expectResult(write(L"Séction", L"", L"ignorée"), long32(1));
    EXPECT_EQ(L"défaut", read(L"Séction", L"deux"));
    // Numbers become texts on the way in.
    expectResult(call(L"IniEcrit", {text(file), text(L"s"), long32(5), long32(12)}), long32(1));
    EXPECT_EQ(L"12", read(L"s", L"5"));
    EXPECT_EQ(L"12", textOf(L"IniLit", Arguments({text(file), text(L"s"), text(L"5")}).named(4, false)));
}

TEST_F(IniFile, onlyTheReaderConvertsTheValue) {
    expectResult(write(L"sé", L"clé", L"été", true), long32(1));
    // E9, read as the OEM code page's letter: Ú (850), or Θ (437), which the ANSI one lacks.
    const auto back = read(L"sé", L"clé", L"", true);
    EXPECT_NE(L"été", back);
    EXPECT_EQ(3u, back.size());
    EXPECT_EQ(L't', back[1]);
    // The names are in the OEM code page: é is 82, which is a quotation mark in the ANSI one.
    EXPECT_EQ(L"été", read(L"s\u201A", L"cl\u201A"));
    EXPECT_EQ(L"défaut", read(L"sé", L"clé"));
    // A value that is converted before it is written comes back. A default is converted although it was never
    // written.
    expectResult(write(L"sé", L"clé", textOf(L"CharToOem", {text(L"été")}), true), long32(1));
    EXPECT_EQ(L"été", read(L"sé", L"clé", L"", true));
    EXPECT_EQ(L"é", read(L"sé", L"absente", L"\u201A", true));
}

TEST_F(IniFile, longValuesAreCut) {
    for (const std::size_t length : {1024u, 1025u, 1026u, 1027u, 5000u}) {
        expectResult(write(L"s", L"longue", std::wstring(length, L'x')), long32(1));
        EXPECT_EQ(std::wstring(std::min<std::size_t>(length, 1025), L'x'), read(L"s", L"longue")) << length;
        // The system copies the default, and cuts it alike.
        EXPECT_EQ(std::wstring(std::min<std::size_t>(length, 1025), L'y'),
                  read(L"s", L"absente", std::wstring(length, L'y')))
            << length;
    }
}

TEST_F(IniFile, namesAndValuesHaveUpTo32766Characters) {
    constexpr std::size_t most = 32'766;
    const std::wstring longest(most, L'x');
    expectResult(write(longest.c_str(), longest.c_str(), longest), long32(1));
    EXPECT_EQ(std::wstring(1025, L'x'), read(longest.c_str(), longest.c_str()));
    EXPECT_EQ(std::wstring(1025, L'x'), read(L"s", L"absente", longest));
    // Past that nothing is written, and nothing else is changed: not the section, the key or the value that a
    // shorter text names, which is what is left when lengths are counted in 16 bits.
    expectResult(write(L"s", L"a", L"stays"), long32(1));
    expectResult(write(L"a", L"a", L"stays"), long32(1));
    for (const std::size_t length :
         {most + 1, most + 2, std::size_t{65'535}, std::size_t{65'537}, std::size_t{100'000}}) {
        const std::wstring tooMany(length, L'a');
        const auto where = std::to_string(length);
        expectResult(write(tooMany.c_str(), L"a", L"v"), long32(0), where);
        expectResult(write(L"s", tooMany.c_str(), L"v"), long32(0), where);
        expectResult(write(L"s", L"a", tooMany), long32(0), where);
        expectResult(write(tooMany.c_str(), L"", L""), long32(0), where);
        expectResult(write(L"s", tooMany.c_str(), L""), long32(0), where);
        EXPECT_EQ(L"stays", read(L"s", L"a")) << where;
        EXPECT_EQ(L"stays", read(L"a", L"a")) << where;
        EXPECT_EQ(L"d", read(tooMany.c_str(), L"a", L"d")) << where;
        EXPECT_EQ(L"d", read(L"s", tooMany.c_str(), L"d")) << where;
        EXPECT_EQ(std::wstring(1025, L'a'), read(L"s", L"absente", tooMany)) << where;
        EXPECT_EQ(std::wstring(1025, L'a'), read(L"s", tooMany.c_str(), tooMany)) << where;
    }
    // What deletes has no value that could be too long.
    expectResult(write(L"s", L";a", std::wstring(most + 1, L'a')), long32(1));
    expectResult(write(L"s", L"", std::wstring(most + 1, L'a')), long32(1));
    EXPECT_EQ(L"d", read(L"s", L"a", L"d"));
}

TEST_F(IniFile, filesThatCannotBeHaveNoValue) {
    for (const auto& path : {temporary.path(L"rien\\f.ini"), std::wstring(L"Q:\\f.ini"), tooLong(),
                             temporary.path(L"f|<>?.ini")}) {
        expectResult(call(L"IniEcrit", {text(path), text(L"s"), text(L"c"), text(L"v")}), long32(0),
                     narrow(path));
        EXPECT_EQ(L"d", textOf(L"IniLit", {text(path), text(L"s"), text(L"c"), text(L"d")})) << narrow(path);
    }
    // And no value from the file of the previous call.
    expectResult(write(L"s", L"c", L"ici"), long32(1));
    expectResult(call(L"IniEcrit", {text(tooLong()), text(L"s"), text(L"c"), text(L"ailleurs")}), long32(0));
    EXPECT_EQ(L"d", textOf(L"IniLit", {text(tooLong()), text(L"s"), text(L"c"), text(L"d")}));
    EXPECT_EQ(L"ici", read(L"s", L"c"));
    Intercept<decltype(GetPrivateProfileStringA)> reading(module, "kernel32.dll", "GetPrivateProfileStringA");
    Intercept<decltype(WritePrivateProfileStringA)> writing(module, "kernel32.dll",
                                                            "WritePrivateProfileStringA");
    reading.failCall(1, 0);
    EXPECT_EQ(L"", read(L"s", L"c"));
    writing.failCall(1, 0);
    expectResult(write(L"s", L"c", L"v"), long32(0));
    writing.answer([](LPCSTR, LPCSTR, LPCSTR, LPCSTR) -> WINBOOL { return 7; });
    expectResult(write(L"s", L"c", L"v"), long32(7));
}

TEST_F(Systeme, codePagesAreConverted) {
    // é is 82 in both OEM code pages of the settings under test, 82 is this quotation mark in the ANSI one.
    EXPECT_EQ(L"\u201At\u201A", textOf(L"CharToOem", {text(L"été")}));
    EXPECT_EQ(L"été", textOf(L"OemToChar", {text(L"\u201At\u201A")}));
    const std::wstring letters = L"àâäçéèêëîïôöùûüÿÇÉ";
    EXPECT_EQ(letters, textOf(L"OemToChar", {text(textOf(L"CharToOem", {text(letters)}))}));
    EXPECT_EQ(L"", textOf(L"CharToOem", {text(L"")}));
    EXPECT_EQ(L"", textOf(L"OemToChar", {text(L"")}));
    EXPECT_EQ(L"12", textOf(L"OemToChar", {long32(12)}));
    EXPECT_EQ(std::wstring(100'000, L'\u201A'), textOf(L"CharToOem", {text(std::wstring(100'000, L'é'))}));
}

TEST_F(Systeme, windowsFlashByNumberOrForm) {
    Intercept<decltype(FlashWindowEx)> flash(module, "user32.dll", "FlashWindowEx");
    std::vector<FLASHWINFO> flashed;
    flash.answer([&](PFLASHWINFO record) -> WINBOOL {
        flashed.push_back(*record);
        return TRUE;
    });
    const auto handles = [&] {
        std::vector<LONG_PTR> seen;
        for (const FLASHWINFO& record : flashed) {
            EXPECT_EQ(sizeof(FLASHWINFO), record.cbSize);
            EXPECT_EQ(15u, record.dwFlags);
            EXPECT_EQ(10'000u, record.uCount);
            EXPECT_EQ(0u, record.dwTimeout);
            seen.push_back(reinterpret_cast<LONG_PTR>(record.hwnd));
        }
        flashed.clear();
        return seen;
    };
    using Handles = std::vector<LONG_PTR>;
    ScriptedObject form, control, plain, failing;
    form.readOnly(L"hWnd", std::int32_t{4660}).property(L"Controls").property(L"WindowState");
    control.readOnly(L"hWnd", std::int32_t{4661}).property(L"Container");
    failing.readOnly(L"hWnd", std::int32_t{4662}).property(L"Controls").property(L"WindowState");

    for (const Variant& window : {long32(4660), short16(4660), Variant(4660.0), text(L"4660"),
                                  Variant(Currency{46'600'000}), test::object(&form)}) {
        const auto outcome = call(L"FlashWindow", {window});
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(VT_EMPTY, outcome.result.raw().vt);
        EXPECT_EQ(Handles{4660}, handles()) << describe(window.raw());
    }
    // By a script's variable, which stays what it was.
    Variant variable = test::object(&form);
    EXPECT_EQ(S_OK, call(L"FlashWindow", {byReference(variable)}).code);
    EXPECT_EQ(Handles{4660}, handles());
    EXPECT_EQ(VT_DISPATCH, variable.raw().vt);

    for (const Variant& window :
         {long32(0), long32(-1), Variant(true), Variant(), nullValue(), missing(), nothing(), text(L""),
          text(L"fenêtre"), Variant(Date{4660}), test::object(&control), test::object(&plain)}) {
        EXPECT_EQ(S_OK, call(L"FlashWindow", {window}).code) << describe(window.raw());
        EXPECT_EQ(Handles{}, handles()) << describe(window.raw());
    }
    expectError(call(L"FlashWindow", {4294967296.0}), 6);
    failing.failCallWithNumber(1, 380);
    expectError(call(L"FlashWindow", {test::object(&failing)}), 380);
    EXPECT_EQ(Handles{}, handles());
    variable = {};
    EXPECT_EQ(0, form.references() + control.references() + plain.references() + failing.references());
    // A refusal of Windows is not reported.
    flash.failCall(1, FALSE);
    EXPECT_EQ(S_OK, call(L"FlashWindow", {long32(1)}).code);
}

class Window {
public:
    explicit Window(const wchar_t* title, const wchar_t* kind = L"Static")
        : handle_(CreateWindowExW(0, kind, title, WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                                  nullptr)) {
        EXPECT_NE(nullptr, handle_);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() { DestroyWindow(handle_); }

    Variant handle() const { return long32(static_cast<int>(reinterpret_cast<LONG_PTR>(handle_))); }
    HWND get() const { return handle_; }

private:
    HWND handle_;
};

TEST_F(Systeme, windowsAreFoundByTheirTitle) {
    const Window window(L"Fenêtre d'essai à 5 €");
    expectResult(call(L"WindowHandle", {text(L"Fenêtre d'essai à 5 €")}), window.handle());
    for (const auto& title : {std::wstring(L"Fenêtre d'essai"), std::wstring(L"Fenêtre d'essai à 5 € "),
                              std::wstring(L"*"), std::wstring(100'000, L'x')})
        expectResult(call(L"WindowHandle", {text(title)}), long32(0), narrow(title.substr(0, 30)));
    Intercept<decltype(FindWindowA)> find(module, "user32.dll", "FindWindowA");
    find.answer([](LPCSTR kind, LPCSTR title) {
        EXPECT_EQ(nullptr, kind);
        EXPECT_STREQ("", title);
        // Handles are 32 bits wide; hosts see them as signed numbers.
        return reinterpret_cast<HWND>(static_cast<LONG_PTR>(-70000));
    });
    expectResult(call(L"WindowHandle", {text(L"")}), long32(-70000));
    find.failCall(1, nullptr);
    expectResult(call(L"WindowHandle", {text(L"")}), long32(0));
}

TEST_F(Systeme, windowsBelongToAProcess) {
    const Window window(L"Essai");
    expectResult(call(L"WinProcIDFromWnd", {window.handle()}),
                 long32(static_cast<int>(GetCurrentProcessId())));
    for (const int handle : {0, -1, 32768, 2147483647})
        expectResult(call(L"WinProcIDFromWnd", {long32(handle)}), long32(0));
}

int rung = 0;

void CALLBACK ring(HWND, UINT, UINT_PTR, DWORD) { ++rung; }

TEST_F(Systeme, waitingLetsTheHostProcessItsEvents) {
    rung = 0;
    const auto timer = SetTimer(nullptr, 0, 20, &ring);
    const auto start = GetTickCount();
    EXPECT_EQ(S_OK, call(L"SleepNoWait", {long32(300)}).code);
    EXPECT_GE(GetTickCount() - start, 300u);
    KillTimer(nullptr, timer);
    EXPECT_GE(rung, 2);
    for (const int none : {0, -1, -2147483647}) EXPECT_EQ(S_OK, call(L"SleepNoWait", {long32(none)}).code);
}

TEST_F(Systeme, waitingEndsWhenTheTickCountStartsOver) {
    Intercept<decltype(GetTickCount)> clock(module, "kernel32.dll", "GetTickCount");
    const DWORD ticks[] = {4294967280u, 4294967290u, 5};
    std::size_t next = 0;
    clock.answer([&] { return ticks[std::min<std::size_t>(next++, 2)]; });
    EXPECT_EQ(S_OK, call(L"SleepNoWait", {long32(2147483647)}).code);
    EXPECT_LE(next, 10u);
    // Past half its range the count must not count as negative.
    const DWORD half[] = {2147483640u, 2147483660u, 2147483740u};
    next = 0;
    clock.answer([&] { return half[std::min<std::size_t>(next++, 2)]; });
    EXPECT_EQ(S_OK, call(L"SleepNoWait", {long32(100)}).code);
    EXPECT_GE(next, 3u);
}

// The system's answers about screen savers, each set by the test.
class ScreenSaver : public Systeme {
protected:
    ScreenSaver() {
        kind.answer([this](HWND, LPSTR name, int room) {
            EXPECT_EQ(255, room);
            std::strcpy(name, className.c_str());
            return static_cast<int>(className.size());
        });
        desktop.answer([this](LPCSTR, DWORD, WINBOOL, ACCESS_MASK) -> HDESK {
            SetLastError(desktopError);
            return desktopError ? nullptr : reinterpret_cast<HDESK>(0x1234);
        });
        close.answer([](HDESK opened) -> WINBOOL { return opened == reinterpret_cast<HDESK>(0x1234); });
        setting.answer([this](UINT, UINT, PVOID value, UINT) {
            *static_cast<BOOL*>(value) = running;
            return told;
        });
    }

    std::string className = "Shell_TrayWnd";
    DWORD desktopError = ERROR_FILE_NOT_FOUND;
    WINBOOL running = FALSE, told = TRUE;
    CallLog log;
    Intercept<decltype(GetClassNameA)> kind{module, "user32.dll", "GetClassNameA", &log};
    Intercept<decltype(OpenDesktopA)> desktop{module, "user32.dll", "OpenDesktopA", &log};
    Intercept<decltype(CloseDesktop)> close{module, "user32.dll", "CloseDesktop", &log};
    Intercept<decltype(SystemParametersInfoA)> setting{module, "user32.dll", "SystemParametersInfoA", &log};
};

TEST_F(ScreenSaver, isAskedForInThreeWays) {
    expectResult(call(L"IsScreenSaverRunning"), false);
    EXPECT_EQ(3u, log.size());
    EXPECT_EQ("OpenDesktopA(\"screen-saver\", 0, 0, 33554432)", log[1]);
    EXPECT_EQ("SystemParametersInfoA(114, 0, set, 0)", log[2]);
    running = TRUE;
    expectResult(call(L"IsScreenSaverRunning"), true);
    running = 5;
    expectResult(call(L"IsScreenSaverRunning"), true);
    told = FALSE;
    expectResult(call(L"IsScreenSaverRunning"), false);

    for (const char* name :
         {"WindowsScreenSaverClass", "WINDOWSSCREENSAVERCLASS", "windowsscreensaverclass"}) {
        className = name;
        log.clear();
        expectResult(call(L"IsScreenSaverRunning"), true);
        EXPECT_EQ(1u, log.size());
    }
    for (const char* name : {"WindowsScreenSaverClass2", "WindowsScreenSaver", ""}) {
        className = name;
        expectResult(call(L"IsScreenSaverRunning"), false);
    }
}

TEST_F(ScreenSaver, hasADesktopOfItsOwn) {
    desktopError = 0;
    expectResult(call(L"IsScreenSaverRunning"), true);
    EXPECT_EQ(1, close.calls());
    EXPECT_EQ(0, setting.calls());
    desktopError = ERROR_ACCESS_DENIED;
    expectResult(call(L"IsScreenSaverRunning"), true);
    EXPECT_EQ(1, close.calls());
    EXPECT_EQ(0, setting.calls());
    for (const DWORD error : {2u, 6u, 31u}) {
        desktopError = error;
        expectResult(call(L"IsScreenSaverRunning"), false);
    }
    EXPECT_EQ(1, close.calls());
}

TEST_F(Systeme, noScreenSaverRunsHere) {
    expectResult(call(L"IsScreenSaverRunning"), false);
    Intercept<decltype(MultiByteToWideChar)> widening(module, "kernel32.dll", "MultiByteToWideChar");
    Intercept<decltype(GetClassNameA)> kind(module, "user32.dll", "GetClassNameA");
    kind.answer([](HWND, LPSTR name, int) {
        std::strcpy(name, "x");
        return 1;
    });
    widening.failCall(1, 0);
    expectResult(call(L"IsScreenSaverRunning"), false);
}

TEST_F(Systeme, pathsOfConnectedDrivesAreNetworkPaths) {
    Intercept<decltype(PathIsNetworkPathA)> isNetwork(module, "shlwapi.dll", "PathIsNetworkPathA");
    CallLog log;
    Intercept<decltype(WNetGetConnectionA)> connection(module, "mpr.dll", "WNetGetConnectionA", &log);
    isNetwork.answer([](LPCSTR path) -> WINBOOL { return path[0] == 'X' || path[0] == '\\'; });
    std::string name = "\\\\srv\\d\xE9p\xF4t";
    connection.answer([&](LPCSTR drive, LPSTR buffer, LPDWORD room) -> DWORD {
        EXPECT_EQ(255u, *room);
        if (std::string(drive) != "X:") return ERROR_BAD_DEVICE;
        std::strcpy(buffer, name.c_str());
        return NO_ERROR;
    });
    EXPECT_EQ(L"\\\\srv\\dépôt\\a\\été.txt", textOf(L"UNCPathFromPath", {text(L"X:\\a\\été.txt")}));
    EXPECT_EQ(CallLog{"WNetGetConnectionA(\"X:\", set, set)"}, log);
    EXPECT_EQ(L"\\\\srv\\dépôt\\", textOf(L"UNCPathFromPath", {text(L"X:\\")}));
    EXPECT_EQ(L"\\\\srv\\dépôt\\", textOf(L"UNCPathFromPath", {text(L"X:")}));
    name = "\\\\srv\\";
    EXPECT_EQ(L"\\\\srv\\a", textOf(L"UNCPathFromPath", {text(L"X:\\a")}));

    // Returned unchanged, even with characters that the code page lacks.
    for (const auto& path :
         {std::wstring(L"C:\\a\\b"), std::wstring(L"\\\\autre\\part\\x"), std::wstring(L"rel\\a"),
          std::wstring(L""), std::wstring(L"a"), std::wstring(L"\\a"), std::wstring(L"X:a"),
          std::wstring(L"C:\\\u6F22"), std::wstring(L"Y:\\") + std::wstring(40000, L'x')}) {
        Variant variable{TextView(path)};
        expectResult(call(L"UNCPathFromPath", {byReference(variable)}), text(path));
        EXPECT_EQ(describe(text(path).raw()), describe(variable.raw()));
    }
    for (const DWORD failure : {2250u, 234u, 1222u}) {
        connection.failCall(1, failure);
        EXPECT_EQ(L"X:\\a", textOf(L"UNCPathFromPath", {text(L"X:\\a")}));
    }
}

TEST_F(Systeme, pathsOfOtherDrivesStay) {
    for (const wchar_t* path : {L"C:\\windows\\win.ini", L"Z:\\", L"\\\\rien\\rien\\x", L"Q:\\x"})
        EXPECT_EQ(path, textOf(L"UNCPathFromPath", {text(path)}));
}

TEST_F(IniFile, nothingIsLeftBehind) {
    const Window window(L"Essai");
    const std::vector<Variant> paths{text(L"C:\\windows"), text(L"Q:\\x\\y")};
    const auto cycle = [&] {
        for (const Variant& path : paths)
            for (const wchar_t* name :
                 {L"SysDisqueNumero", L"SysDisqueLabel", L"SysDisqueType", L"IsDiskReady", L"UNCPathFromPath",
                  L"CharToOem", L"OemToChar", L"WindowHandle"})
                EXPECT_EQ(S_OK, call(name, {path}).code);
        for (const int number : {1, 2, 3, 26})
            for (const wchar_t* name :
                 {L"SysRepertoires", L"SysSpecialFolder", L"SysSymboleMonétaire", L"WinProcIDFromWnd"})
                EXPECT_EQ(S_OK, call(name, {long32(number)}).code);
        Variant version;
        EXPECT_EQ(S_OK, call(L"WindowsVersion", {byReference(version)}).code);
        for (const wchar_t* name : {L"OsVersion95NT", L"GetComputerName", L"IsScreenSaverRunning"})
            EXPECT_EQ(S_OK, call(name).code);
        EXPECT_EQ(S_OK, call(L"FlashWindow", {window.handle()}).code);
        EXPECT_EQ(S_OK, call(L"SleepNoWait", {long32(0)}).code);
        expectError(call(L"LongToUShort", {long32(100'000)}), 6);
        read(L"s", L"c");
    };
    for (int i = 0; i < 20; ++i) cycle();
    SetErrorInfo(0, nullptr);
    const auto before = Resources::held();
    const MemoryCount count;
    for (int i = 0; i < 300; ++i) cycle();
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(before, Resources::held());
}

}  // namespace
}  // namespace vorla::test
