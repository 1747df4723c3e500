// INI files: a real one, byte for byte, and the calls that reach the system.
#include "frame/shared/profile.h"

#include <gtest/gtest.h>

#include "support/automation.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

const HMODULE program = GetModuleHandleW(nullptr);

// A file of the current folder, by its absolute name: a name without a folder would be Windows' own.
class ProfileTest : public testing::Test {
protected:
    ProfileTest() {
        wchar_t absolute[MAX_PATH];
        GetFullPathNameW(L"profil été.ini", MAX_PATH, absolute, nullptr);
        file = absolute;
        DeleteFileW(file.c_str());
    }
    ~ProfileTest() override { DeleteFileW(file.c_str()); }

    void write(const std::string& bytes) {
        const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        CloseHandle(handle);
    }
    std::string bytes() {
        WritePrivateProfileStringA(nullptr, nullptr, nullptr, nullptr);  // what Windows keeps back is written
        std::string read(5000, '\0');
        DWORD size = 0;
        const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_TRUE(ReadFile(handle, read.data(), 5000, &size, nullptr));
        CloseHandle(handle);
        read.resize(size);
        return read;
    }
    Text read(TextView section, TextView key, TextView fallback = L"défaut", bool oem = false) {
        return IniLecture(file, section, key, fallback, oem);
    }

    Text file;
};

TEST_F(ProfileTest, readsValues) {
    write(
        "[S\xE9"
        "ction]\r\nsimple=abc\r\ncl\xE9=\x80uro\r\nvide=\r\nentour\xE9=\"  abc  \"\r\n");
    EXPECT_EQ(L"abc", read(L"Séction", L"simple"));
    EXPECT_EQ(L"abc", read(L"Séction", L"SIMPLE"));
    EXPECT_EQ(L"€uro", read(L"Séction", L"clé"));
    EXPECT_EQ(L"", read(L"Séction", L"vide"));
    // Windows keeps the blanks between quotes; they are trimmed here.
    EXPECT_EQ(L"abc", read(L"Séction", L"entouré"));
    EXPECT_EQ(L"défaut", read(L"Séction", L"absente"));
    EXPECT_EQ(L"défaut", read(L"absente", L"simple"));
    EXPECT_EQ(L"", read(L"Séction", L"absente", L""));
    EXPECT_EQ(L"d", read(L"Séction", L"absente", L"  d  "));
    EXPECT_EQ(L"défaut", IniLecture(L"C:\\absent\\f.ini", L"s", L"c", L"défaut", false));
    // An empty key is a key that is not there, not a request for all keys.
    EXPECT_EQ(L"défaut", read(L"Séction", L""));
    EXPECT_EQ(L"défaut", read(L"", L"simple"));
}

TEST_F(ProfileTest, readsAsMuchAsItsBufferHolds) {
    write("[s]\r\njuste=" + std::string(1025, 'x') + "\r\nlong=" + std::string(1500, 'y') + "\r\n");
    EXPECT_EQ(Text(1025, L'x'), read(L"s", L"juste"));
    EXPECT_EQ(Text(1025, L'y'), read(L"s", L"long"));
}

TEST_F(ProfileTest, readsOemFiles) {
    // In the OEM code pages 850 and 437 é is 82 and à is 85; in the ANSI one these are ‚ and ….
    write(
        "[s\x82"
        "ct]\r\ncl\x82=\x85 c\x93t\x82\r\n");
    EXPECT_EQ(L"à côté", read(L"séct", L"clé", L"x", true));
    EXPECT_EQ(L"x", read(L"séct", L"clé", L"x", false));
    EXPECT_EQ(L"… c“t‚", read(L"s‚ct", L"cl‚", L"x", false));
    // The default was never in the OEM code page, and is converted all the same.
    EXPECT_EQ(L"é", read(L"séct", L"absente", L"‚", true));
}

TEST_F(ProfileTest, writesAndDeletes) {
    EXPECT_NE(0, IniEcriture(file, L"Séction", L"clé", L"à €", false));
    EXPECT_EQ(
        "[S\xE9"
        "ction]\r\ncl\xE9=\xE0 \x80\r\n",
        bytes());
    EXPECT_NE(0, IniEcriture(file, L"Séction", L"deux", L"2", false));
    EXPECT_EQ(L"2", read(L"Séction", L"deux"));
    EXPECT_NE(0, IniEcriture(file, L"Séction", L"clé", L"", false));
    EXPECT_EQ(
        "[S\xE9"
        "ction]\r\ndeux=2\r\n",
        bytes());
    // A key that looks like a comment is deleted instead of written.
    EXPECT_NE(0, IniEcriture(file, L"Séction", L";deux", L"3", false));
    EXPECT_EQ(
        "[S\xE9"
        "ction]\r\ndeux=2\r\n",
        bytes());
    EXPECT_NE(0, IniEcriture(file, L"Séction", L"", L"ignorée", false));
    EXPECT_EQ(L"défaut", read(L"Séction", L"deux"));
    EXPECT_EQ(0, IniEcriture(L"C:\\absent\\f.ini", L"s", L"c", L"v", false));
}

TEST_F(ProfileTest, convertsNamesButNoValueWhenItWritesOem) {
    EXPECT_NE(0, IniEcriture(file, L"séct", L"clé", L"à", true));
    EXPECT_EQ(
        "[s\x82"
        "ct]\r\ncl\x82=\xE0\r\n",
        bytes());
    // So what was written does not come back: E0 of the OEM code pages is Ó (850) or α (437, ANSI: a).
    EXPECT_NE(L"à", read(L"séct", L"clé", L"", true));
    EXPECT_EQ(L"à", read(L"s‚ct", L"cl‚"));
}

TEST_F(ProfileTest, whatReachesTheSystem) {
    CallLog log;
    Intercept<decltype(WritePrivateProfileStringA)> writing(program, "kernel32.dll",
                                                            "WritePrivateProfileStringA", &log);
    writing.answer([](LPCSTR, LPCSTR, LPCSTR, LPCSTR) -> WINBOOL { return 7; });
    EXPECT_EQ(7, IniEcriture(L"f", L"s", L"c", L"v", false));
    EXPECT_EQ(7, IniEcriture(L"f", L"s", L"c", L"", false));
    EXPECT_EQ(7, IniEcriture(L"f", L"s", L"", L"v", false));
    EXPECT_EQ(7, IniEcriture(L"f", L"s", L";c", L"v", true));
    EXPECT_EQ(7, IniEcriture(L"", L"", L"", L"", false));
    EXPECT_EQ((CallLog{"WritePrivateProfileStringA(\"s\", \"c\", \"v\", \"f\")",
                       "WritePrivateProfileStringA(\"s\", \"c\", null, \"f\")",
                       "WritePrivateProfileStringA(\"s\", null, null, \"f\")",
                       "WritePrivateProfileStringA(\"s\", \";c\", null, \"f\")",
                       "WritePrivateProfileStringA(\"\", null, null, \"\")"}),
              log);
    writing.failCall(1, 0, ERROR_ACCESS_DENIED);
    EXPECT_EQ(0, IniEcriture(L"f", L"s", L"c", L"v", false));
    // A path that is too long becomes one that no file can have.
    Intercept<decltype(GetPrivateProfileStringA)> reading(program, "kernel32.dll", "GetPrivateProfileStringA",
                                                          &log);
    log.clear();
    const Text longest(259, L'x');
    for (const Text& path : {longest, longest + L"x"}) {
        IniEcriture(path, L"s", L"c", L"v", false);
        IniLecture(path, L"s", L"c", L"d", false);
    }
    const auto asked = "\"" + std::string(259, 'x') + "\")";
    EXPECT_EQ((CallLog{"WritePrivateProfileStringA(\"s\", \"c\", \"v\", " + asked,
                       "GetPrivateProfileStringA(\"s\", \"c\", \"d\", set, 1026, " + asked,
                       "WritePrivateProfileStringA(\"s\", \"c\", \"v\", \"?:\\\")",
                       "GetPrivateProfileStringA(\"s\", \"c\", \"d\", set, 1026, \"?:\\\")"}),
              log);
}

TEST_F(ProfileTest, whatTheSystemAnswers) {
    CallLog log;
    Intercept<decltype(GetPrivateProfileStringA)> reading(program, "kernel32.dll", "GetPrivateProfileStringA",
                                                          &log);
    std::string answered;
    reading.answer([&](LPCSTR, LPCSTR, LPCSTR, LPSTR buffer, DWORD size, LPCSTR) -> DWORD {
        return static_cast<DWORD>(answered.copy(buffer, size - 1));
    });
    EXPECT_EQ(L"", IniLecture(L"f", L"s", L"c", L"d", false));
    EXPECT_EQ(CallLog{"GetPrivateProfileStringA(\"s\", \"c\", \"d\", set, 1026, \"f\")"}, log);
    answered = "  x y  ";
    EXPECT_EQ(L"x y", IniLecture(L"f", L"s", L"c", L"d", false));
    answered = "   ";
    EXPECT_EQ(L"", IniLecture(L"f", L"s", L"c", L"d", false));
    reading.failCall(1, 0);
    EXPECT_EQ(L"", IniLecture(L"f", L"s", L"c", L"d", false));
}

TEST(OemAnsi, convertBothWays) {
    EXPECT_EQ(L"", OemVersAnsi(L""));
    EXPECT_EQ(L"", AnsiVersOem(L""));
    EXPECT_EQ(L"abc 123", OemVersAnsi(L"abc 123"));
    EXPECT_EQ(L"abc 123", AnsiVersOem(L"abc 123"));
    EXPECT_EQ(L"éàô", OemVersAnsi(L"‚…“"));
    EXPECT_EQ(L"‚…“", AnsiVersOem(L"éàô"));
    // Both code pages have the letters of French; they come back.
    const Text letters = L"àâäçéèêëîïôöùûüÿÇÉ";
    EXPECT_EQ(letters, OemVersAnsi(AnsiVersOem(letters)));
    // After a NUL character nothing is converted and nothing is lost.
    EXPECT_EQ(Text(L"\u201A\0é", 3), AnsiVersOem(TextView(L"é\0é", 3)));
    EXPECT_EQ(Text(40000, L'\u201A'), AnsiVersOem(Text(40000, L'é')));
}

}  // namespace
}  // namespace vorla::test
