// VorlaFichier: dates of files, operations on files, and the calls that move the trays of drives.
#include <algorithm>
#include <array>

#include "contract/component.h"
#include "support/failing_calls.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/resource_count.h"
#include "support/scripted_object.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

constexpr std::uint16_t numberOfFichier = 5;
constexpr int creation = 0, modification = 1, access = 2;

unsigned openHandles() { return Resources::held().handles; }

// Days since 30 December 1899.
Date date(int year, int month, int day, int hour, int minute, int second) {
    // Counted from March, so that a leap day is the last day of the year.
    const int y = month < 3 ? year - 1 : year, m = month < 3 ? month + 9 : month - 3;
    const int days = 365 * y + y / 4 - y / 100 + y / 400 + (153 * m + 2) / 5 + day - 1;
    constexpr int first = 365 * 1899 + 1899 / 4 - 1899 / 100 + 1899 / 400 + (153 * 9 + 2) / 5 + 30 - 1;
    return {days - first + (hour * 3600 + minute * 60 + second) / 86400.0};
}

FILETIME fileTime(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second,
                  WORD millisecond = 0) {
    const SYSTEMTIME fields{year, month, 0, day, hour, minute, second, millisecond};
    FILETIME time;
    EXPECT_TRUE(SystemTimeToFileTime(&fields, &time));
    return time;
}

FILETIME shifted(FILETIME time, int hours) {
    ULARGE_INTEGER whole{};
    whole.LowPart = time.dwLowDateTime;
    whole.HighPart = time.dwHighDateTime;
    whole.QuadPart += static_cast<ULONGLONG>(hours * 36'000'000'000LL);
    return {whole.LowPart, whole.HighPart};
}

class FichierFiles : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments) {
        return invoke(object.get(), name, std::move(arguments));
    }
    Outcome dateOf(const std::wstring& path, int which) {
        return call(L"FileDate", {text(path), long32(which)});
    }
    void setDate(const std::wstring& path, int which, Variant value) {
        const auto outcome = invoke(object.get(), L"FileDate",
                                    Arguments({text(path), long32(which)}).named(DISPID_PROPERTYPUT, value),
                                    DISPATCH_PROPERTYPUT);
        EXPECT_EQ(S_OK, outcome.code) << describe(value.raw());
    }
    std::wstring textOf(const wchar_t* name, Arguments arguments) {
        const auto outcome = call(name, std::move(arguments));
        EXPECT_EQ(S_OK, outcome.code) << narrow(name);
        EXPECT_EQ(VT_BSTR, outcome.result.raw().vt) << narrow(name);
        return outcome.result.raw().vt == VT_BSTR ? std::wstring(viewOf(outcome.result.raw().bstrVal)) : L"?";
    }

    const Component component;
    const Dispatch object = component.create(numberOfFichier);
    const TemporaryFolder temporary;
};

class FileDates : public FichierFiles {
protected:
    // A file that cannot be read has no date and raises no error.
    void expectNoDate(const std::wstring& path) {
        for (const int which : {creation, modification, access}) expectResult(dateOf(path, which), Variant());
    }

    const std::wstring file = temporary.file(L"fichier é.txt");
};

TEST_F(FileDates, eachDateIsTheFilesOwnInLocalTime) {
    Intercept<decltype(GetFileTime)> times(component.module(), "kernel32.dll", "GetFileTime");
    times.answer([](HANDLE, FILETIME* created, FILETIME* read, FILETIME* written) -> BOOL {
        *created = fileTime(1999, 12, 31, 22, 0, 0);
        *written = fileTime(2004, 2, 28, 23, 59, 59, 999);
        *read = fileTime(2026, 11, 21, 7, 45, 6);
        return TRUE;
    });
    // Two hours east of Greenwich.
    Intercept<decltype(FileTimeToLocalFileTime)> local(component.module(), "kernel32.dll",
                                                       "FileTimeToLocalFileTime");
    local.answer([](const FILETIME* universal, FILETIME* here) -> BOOL {
        *here = shifted(*universal, 2);
        return TRUE;
    });
    // Some systems count parts of seconds in a date; hosts compare dates without any.
    Intercept<decltype(SystemTimeToVariantTime)> made(component.module(), "oleaut32.dll",
                                                      "SystemTimeToVariantTime");
    made.answer([&](LPSYSTEMTIME fields, double* days) -> INT {
        EXPECT_EQ(0, fields->wMilliseconds);
        return made.callOriginal(fields, days);
    });
    expectResult(dateOf(file, creation), date(2000, 1, 1, 0, 0, 0));
    expectResult(dateOf(file, modification), date(2004, 2, 29, 1, 59, 59));
    expectResult(dateOf(file, access), date(2026, 11, 21, 9, 45, 6));
    // By reference, a script's variable of another type too; it stays.
    LONG which = modification;
    expectResult(call(L"FileDate", {text(file), byReference(VT_I4, &which)}), date(2004, 2, 29, 1, 59, 59));
    EXPECT_EQ(modification, which);
    Variant variable(std::int16_t{2});
    expectResult(call(L"FileDate", {text(file), byReference(variable)}), date(2026, 11, 21, 9, 45, 6));
    for (const int none : {-1, 3, 32768}) expectResult(dateOf(file, none), Variant());
}

TEST_F(FileDates, aNewDateIsReadBack) {
    const auto folder = temporary.folder(L"dossier");
    const Variant day = date(2020, 7, 14, 13, 5, 59), other = date(1998, 3, 2, 0, 0, 0);
    for (const auto& path : {file, folder}) {
        setDate(path, modification, day);
        setDate(path, access, other);
        expectResult(dateOf(path, modification), day, narrow(path));
        expectResult(dateOf(path, access), other, narrow(path));
        WIN32_FILE_ATTRIBUTE_DATA data;
        FILETIME local;
        ASSERT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data));
        FileTimeToLocalFileTime(&data.ftLastWriteTime, &local);
        const auto expected = fileTime(2020, 7, 14, 13, 5, 59);
        EXPECT_EQ(0, CompareFileTime(&expected, &local)) << narrow(path);
    }
}

TEST_F(FileDates, onlyTheChosenDateIsWritten) {
    Intercept<decltype(SetFileTime)> times(component.module(), "kernel32.dll", "SetFileTime");
    Intercept<decltype(LocalFileTimeToFileTime)> universal(component.module(), "kernel32.dll",
                                                           "LocalFileTimeToFileTime");
    universal.answer([](const FILETIME* here, FILETIME* there) -> BOOL {
        *there = shifted(*here, -2);
        return TRUE;
    });
    std::array<bool, 3> given{};
    const auto expected = fileTime(2004, 2, 28, 23, 30, 0);
    times.answer([&](HANDLE, const FILETIME* created, const FILETIME* read, const FILETIME* written) -> BOOL {
        given = {created != nullptr, written != nullptr, read != nullptr};
        for (const auto* time : {created, read, written})
            EXPECT_TRUE(!time || CompareFileTime(&expected, time) == 0);
        return TRUE;
    });
    for (const int which : {creation, modification, access}) {
        given = {};
        setDate(file, which, date(2004, 2, 29, 1, 30, 0));
        for (const int other : {creation, modification, access})
            EXPECT_EQ(which == other, given[static_cast<std::size_t>(other)]);
    }
    EXPECT_EQ(3, times.calls());
    for (const int none : {-1, 3, 32768}) setDate(file, none, date(2004, 2, 29, 1, 30, 0));
    EXPECT_EQ(3, times.calls());
}

TEST_F(FileDates, aDateMayComeAsTextButNotAsANumber) {
    const Variant before = date(2001, 2, 3, 4, 5, 6);
    setDate(file, modification, before);
    ScriptedObject with(Variant(date(2003, 5, 6, 7, 8, 9))), without;
    const auto now = dateOf(file, modification);
    for (const Variant& value : {Variant(), nullValue(), missing(), nothing(), test::object(&without),
                                 Variant(true), long32(37000), Variant(37000.5), Variant(Currency{370000000}),
                                 text(L""), text(L"hier"), text(L"30/02/2001"), text(L"37000")}) {
        setDate(file, modification, value);
        expectResult(dateOf(file, modification), before, describe(value.raw()));
    }
    setDate(file, modification, text(isFrench() ? L"15/11/2026 10:20:30" : L"11/15/2026 10:20:30"));
    expectResult(dateOf(file, modification), date(2026, 11, 15, 10, 20, 30));
    setDate(file, modification, test::object(&with));
    expectResult(dateOf(file, modification), date(2003, 5, 6, 7, 8, 9));
    Variant variable = date(2010, 1, 2, 3, 4, 5);
    setDate(file, modification, byReference(variable));
    expectResult(dateOf(file, modification), date(2010, 1, 2, 3, 4, 5));
    // Files know no year before 1601; dates know none after 9999.
    setDate(file, modification, date(1600, 12, 31, 0, 0, 0));
    setDate(file, modification, Date{1e300});
    setDate(file, modification, Date{-1e300});
    expectResult(dateOf(file, modification), date(2010, 1, 2, 3, 4, 5));
}

TEST_F(FileDates, foldersLockedFilesAndLongPathsHaveDatesToo) {
    const auto modified = dateOf(file, modification).result;
    EXPECT_EQ(VT_DATE, modified.raw().vt);
    {
        const File locked(CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        expectResult(dateOf(file, modification), modified);
        // But nothing is written.
        setDate(file, modification, date(2001, 1, 1, 0, 0, 0));
    }
    expectResult(dateOf(file, modification), modified);

    std::wstring folder =
        L"dossier au nom assez long pour que deux d'entre eux en fassent trop pour le système";
    temporary.folder(folder);
    temporary.folder(folder + L"\\" + folder);
    const auto deep = temporary.file(folder + L"\\" + folder + L"\\f");
    ASSERT_GT(deep.size(), 128u);
    for (const auto& path : {temporary.path(), temporary.path() + L"\\", deep}) {
        setDate(path, modification, date(2009, 8, 7, 6, 5, 4));
        expectResult(dateOf(path, modification), date(2009, 8, 7, 6, 5, 4), narrow(path));
        EXPECT_EQ(VT_DATE, dateOf(path, creation).result.raw().vt);
    }
}

TEST_F(FileDates, whatIsNotThereHasNoDate) {
    // The runtime makes a lock for its exceptions when the first is thrown, and keeps it.
    expectNoDate(L"Q:\\rien.txt");
    const auto handles = openHandles();
    for (const std::wstring path :
         {L"", L"Q:\\rien.txt", L"C:\\rien\\rien.txt", L"?*<>|", L":::", L"C:\\*"}) {
        expectNoDate(path);
        setDate(path, modification, date(2001, 1, 1, 0, 0, 0));
    }
    expectNoDate(temporary.path(L"rien"));
    setDate(temporary.path(L"rien"), modification, date(2001, 1, 1, 0, 0, 0));
    EXPECT_FALSE(TemporaryFolder::exists(temporary.path(L"rien")));
    expectNoDate(std::wstring(40000, L'x'));
    setDate(std::wstring(40000, L'x'), modification, date(2001, 1, 1, 0, 0, 0));
    EXPECT_EQ(handles, openHandles());
}

TEST_F(FileDates, eachCallThatFailsGivesNothing) {
    const HMODULE module = component.module();
    const Variant before = date(2001, 2, 3, 4, 5, 6), other = date(2002, 2, 3, 4, 5, 6);
    setDate(file, modification, before);
    Intercept<decltype(OpenFile)> opening(module, "kernel32.dll", "OpenFile");
    Intercept<decltype(GetFileAttributesExA)> attributes(module, "kernel32.dll", "GetFileAttributesExA");
    Intercept<decltype(GetFileTime)> reading(module, "kernel32.dll", "GetFileTime");
    Intercept<decltype(FileTimeToLocalFileTime)> local(module, "kernel32.dll", "FileTimeToLocalFileTime");
    Intercept<decltype(FileTimeToSystemTime)> fields(module, "kernel32.dll", "FileTimeToSystemTime");
    Intercept<decltype(SystemTimeToVariantTime)> made(module, "oleaut32.dll", "SystemTimeToVariantTime");
    Intercept<decltype(VariantTimeToSystemTime)> split(module, "oleaut32.dll", "VariantTimeToSystemTime");
    Intercept<decltype(SystemTimeToFileTime)> joined(module, "kernel32.dll", "SystemTimeToFileTime");
    Intercept<decltype(LocalFileTimeToFileTime)> universal(module, "kernel32.dll", "LocalFileTimeToFileTime");
    Intercept<decltype(CreateFileA)> writing(module, "kernel32.dll", "CreateFileA");
    Intercept<decltype(SetFileTime)> written(module, "kernel32.dll", "SetFileTime");
    Intercept<decltype(WideCharToMultiByte)> narrowing(module, "kernel32.dll", "WideCharToMultiByte");
    expectNoDate(temporary.path(L"rien"));  // once, as above
    const auto handles = openHandles();

    // The dates of a file that cannot be opened are read without opening it.
    opening.failCall(1, HFILE_ERROR);
    expectResult(dateOf(file, modification), before);
    opening.failCall(1, HFILE_ERROR);
    attributes.failCall(1, FALSE);
    expectResult(dateOf(file, modification), Variant());
    const std::function<void()> readers[] = {
        [&] { reading.failCall(1, FALSE); }, [&] { local.failCall(1, FALSE); },
        [&] { fields.failCall(1, FALSE); },  [&] { made.failCall(1, 0); },
        [&] { narrowing.failCall(1, 0); },   [&] { narrowing.failCall(2, 0); }};
    for (const auto& fail : readers) {
        fail();
        expectResult(dateOf(file, modification), Variant());
    }
    const std::function<void()> writers[] = {
        [&] { split.failCall(1, 0); },         [&] { joined.failCall(1, FALSE); },
        [&] { universal.failCall(1, FALSE); }, [&] { writing.failCall(1, INVALID_HANDLE_VALUE); },
        [&] { written.failCall(1, FALSE); },   [&] { narrowing.failCall(1, 0); },
        [&] { narrowing.failCall(2, 0); }};
    for (const auto& fail : writers) {
        fail();
        setDate(file, modification, other);
        expectResult(dateOf(file, modification), before);
    }
    EXPECT_EQ(handles, openHandles());
    setDate(file, modification, other);
    expectResult(dateOf(file, modification), other);
}

TEST_F(FichierFiles, filesAreDeleted) {
    const auto file = temporary.file(L"fichier é"), protectedFile = temporary.file(L"protégé");
    const auto folder = temporary.folder(L"dossier");
    Variant variable{TextView(file)};
    expectResult(call(L"DeleteFile", {byReference(variable)}), true);
    EXPECT_FALSE(TemporaryFolder::exists(file));
    EXPECT_EQ(describe(text(file).raw()), describe(variable.raw()));
    expectResult(call(L"DeleteFile", {text(file)}), false);
    expectResult(call(L"DeleteFile", {text(folder)}), false);
    EXPECT_TRUE(TemporaryFolder::exists(folder));
    SetFileAttributesW(protectedFile.c_str(), FILE_ATTRIBUTE_READONLY);
    expectResult(call(L"DeleteFile", {text(protectedFile)}), false);
    EXPECT_TRUE(TemporaryFolder::exists(protectedFile));
    SetFileAttributesW(protectedFile.c_str(), FILE_ATTRIBUTE_NORMAL);
    {
        const File open(
            CreateFileW(protectedFile.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        expectResult(call(L"DeleteFile", {text(protectedFile)}), false);
    }
    for (const std::wstring& path : {std::wstring(), temporary.path(L"*"), temporary.path(L"prot?g?"),
                                     std::wstring(L"Q:\\x"), std::wstring(40000, L'x')})
        expectResult(call(L"DeleteFile", {text(path)}), false, narrow(path));
    EXPECT_TRUE(TemporaryFolder::exists(protectedFile));

    const HMODULE module = component.module();
    {
        Intercept<decltype(DeleteFileA)> deleting(module, "kernel32.dll", "DeleteFileA");
        deleting.failCall(1, FALSE);
        expectResult(call(L"DeleteFile", {text(protectedFile)}), false);
        Intercept<decltype(GetFileAttributesA)> attributes(module, "kernel32.dll", "GetFileAttributesA");
        attributes.failCall(1, INVALID_FILE_ATTRIBUTES);
        expectResult(call(L"DeleteFile", {text(protectedFile)}), false);
    }
    Intercept<decltype(WideCharToMultiByte)> narrowing(module, "kernel32.dll", "WideCharToMultiByte");
    for (int n = 1; n <= 4; ++n) {
        narrowing.failCall(n, 0);
        expectResult(call(L"DeleteFile", {text(protectedFile)}), false, std::to_string(n));
    }
    EXPECT_TRUE(TemporaryFolder::exists(protectedFile));
}

TEST_F(FichierFiles, filesAndFoldersAreRenamedAndMoved) {
    const auto file = temporary.file(L"a é.txt", "un"), folder = temporary.folder(L"dossier");
    const auto renamed = temporary.path(L"b €.txt"), moved = folder + L"\\c.txt";
    Variant from{TextView(file)}, to{TextView(renamed)};
    expectResult(call(L"RenameFile", {byReference(from), byReference(to)}), true);
    EXPECT_EQ(describe(text(file).raw()), describe(from.raw()));
    EXPECT_EQ(describe(text(renamed).raw()), describe(to.raw()));
    EXPECT_FALSE(TemporaryFolder::exists(file));
    EXPECT_EQ(L"un", textOf(L"LectDat", {text(renamed)}));
    expectResult(call(L"RenameFile", {text(renamed), text(moved)}), true);
    EXPECT_EQ(L"un", textOf(L"LectDat", {text(moved)}));
    expectResult(call(L"RenameFile", {text(folder), text(temporary.path(L"autre"))}), true);
    EXPECT_EQ(L"un", textOf(L"LectDat", {text(temporary.path(L"autre\\c.txt"))}));
    // To its own name, with different case.
    const auto last = temporary.path(L"autre\\c.txt");
    expectResult(call(L"RenameFile", {text(last), text(last)}), true);
    expectResult(call(L"RenameFile", {text(last), text(temporary.path(L"autre\\C.TXT"))}), true);
    EXPECT_EQ(L"un", textOf(L"LectDat", {text(last)}));
}

TEST_F(FichierFiles, whatCannotBeRenamedStays) {
    const auto one = temporary.file(L"un", "1"), two = temporary.file(L"deux", "22");
    const auto folder = temporary.folder(L"dossier");
    expectResult(call(L"RenameFile", {text(one), text(two)}), false);
    expectResult(call(L"RenameFile", {text(one), text(folder)}), false);
    expectResult(call(L"RenameFile", {text(folder), text(one)}), false);
    for (const std::wstring& path : {std::wstring(), temporary.path(L"rien"), std::wstring(L"Q:\\x"),
                                     temporary.path(L"?"), std::wstring(40000, L'x')}) {
        if (path != temporary.path(L"rien"))
            expectResult(call(L"RenameFile", {text(one), text(path)}), false, narrow(path));
        expectResult(call(L"RenameFile", {text(path), text(temporary.path(L"autre"))}), false, narrow(path));
    }
    expectResult(call(L"RenameFile", {text(one), text(temporary.path(L"rien\\un"))}), false);
    const HMODULE module = component.module();
    {
        Intercept<decltype(MoveFileA)> moving(module, "kernel32.dll", "MoveFileA");
        moving.failCall(1, FALSE, ERROR_NOT_SAME_DEVICE);
        expectResult(call(L"RenameFile", {text(one), text(temporary.path(L"autre"))}), false);
    }
    Intercept<decltype(WideCharToMultiByte)> narrowing(module, "kernel32.dll", "WideCharToMultiByte");
    for (int n = 1; n <= 4; ++n) {
        narrowing.failCall(n, 0);
        expectResult(call(L"RenameFile", {text(one), text(temporary.path(L"autre"))}), false,
                     std::to_string(n));
    }
    EXPECT_EQ(L"1", textOf(L"LectDat", {text(one)}));
    EXPECT_EQ(L"22", textOf(L"LectDat", {text(two)}));
    EXPECT_FALSE(TemporaryFolder::exists(temporary.path(L"autre")));
}

// Without memory there is no result: in the member, or in dispatch.
TEST_F(FichierFiles, withoutMemoryNothingHappens) {
    const auto file = temporary.file(L"fichier");
    const std::string noMemoryLeft = "failure";
    const auto failing = [&](const char* what, const std::function<Outcome()>& use, const Variant& right,
                             const Variant& neutral) {
        const auto answer = [&] {
            const auto outcome = use();
            return outcome.code == S_OK ? describe(outcome.result.raw()) : noMemoryLeft;
        };
        EXPECT_GT(failEachCall(component.module(), noMemory(), what, answer, describe(right.raw()),
                               {describe(neutral.raw()), noMemoryLeft}),
                  0)
            << what;
    };
    const Variant day = date(2001, 2, 3, 4, 5, 6);
    setDate(file, modification, day);
    failing(
        "FileDate", [&] { return dateOf(file, modification); }, day, Variant());
    failing(
        "DeleteFile", [&] { return call(L"DeleteFile", {text(temporary.path(L"rien"))}); }, false, false);
    failing(
        "RenameFile",
        [&] {
            return call(L"RenameFile", {text(file), text(file)});
        },
        true, false);
    failing(
        "CDEjectLoad",
        [&] {
            return call(L"CDEjectLoad", {long32(0), text(L"Q:")});
        },
        Variant(), Variant());
    failing(
        "CreateFolder", [&] { return call(L"CreateFolder", {text(temporary.path())}); },
        text(temporary.path() + L"\\"), text(L""));
    // Names differ from call to call; what counts is that no such file exists.
    const auto name = [&] {
        const auto outcome = call(L"GetTempFileName", {text(L"abc")});
        if (outcome.code != S_OK) return noMemoryLeft;
        const std::wstring path(viewOf(outcome.result.raw().bstrVal));
        return std::string(path.empty() ? "none" : TemporaryFolder::exists(path) ? "a file" : "a name");
    };
    EXPECT_GT(failEachCall(component.module(), noMemory(), "GetTempFileName", name, "a name",
                           {"none", noMemoryLeft}),
              0);
}

class TemporaryNames : public FichierFiles {
protected:
    TemporaryNames() { SetEnvironmentVariableW(L"TMP", folder.c_str()); }
    ~TemporaryNames() override { SetEnvironmentVariableW(L"TMP", before.c_str()); }

    int files() const {
        int count = 0;
        WIN32_FIND_DATAW found;
        const FileSearch search(FindFirstFileW((folder + L"\\*").c_str(), &found));
        for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found))
            count += (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        return count;
    }
    static std::wstring variable() {
        wchar_t value[MAX_PATH] = L"";
        GetEnvironmentVariableW(L"TMP", value, MAX_PATH);
        return value;
    }

    const std::wstring before = variable(), folder = temporary.folder(L"temp é");
};

TEST_F(TemporaryNames, nameNoFile) {
    for (const auto& prefix : {text(L"été"), text(L"étéx"), text(L"a"), text(L"")}) {
        Variant given = prefix;
        const auto name = textOf(L"GetTempFileName", {byReference(given)});
        const auto expected = std::wstring(viewOf(prefix.raw().bstrVal)).substr(0, 3);
        EXPECT_EQ(folder + L"\\" + expected, name.substr(0, folder.size() + 1 + expected.size()));
        EXPECT_TRUE(name.ends_with(L".tmp"));
        EXPECT_FALSE(TemporaryFolder::exists(name));
        EXPECT_EQ(describe(prefix.raw()), describe(given.raw()));
    }
    EXPECT_EQ(folder + L"\\", textOf(L"GetTempFileName", {}).substr(0, folder.size() + 1));
    EXPECT_EQ(folder + L"\\", textOf(L"GetTempFileName", {missing()}).substr(0, folder.size() + 1));
    EXPECT_EQ(0, files());
}

TEST_F(TemporaryNames, failuresGiveNothingAndLeaveNoFile) {
    const HMODULE module = component.module();
    Intercept<decltype(GetTempPathA)> path(module, "kernel32.dll", "GetTempPathA");
    path.failCall(1, 0);
    EXPECT_EQ(L"", textOf(L"GetTempFileName", {text(L"abc")}));
    path.failCall(1, 600);
    EXPECT_EQ(L"", textOf(L"GetTempFileName", {text(L"abc")}));
    Intercept<decltype(GetTempFileNameA)> name(module, "kernel32.dll", "GetTempFileNameA");
    name.failCall(1, 0);
    EXPECT_EQ(L"", textOf(L"GetTempFileName", {text(L"abc")}));
    Intercept<decltype(WideCharToMultiByte)> narrowing(module, "kernel32.dll", "WideCharToMultiByte");
    Intercept<decltype(MultiByteToWideChar)> widening(module, "kernel32.dll", "MultiByteToWideChar");
    for (const int n : {1, 2}) {
        narrowing.failCall(n, 0);
        EXPECT_EQ(L"", textOf(L"GetTempFileName", {text(L"abc")})) << n;
        // By then the file exists.
        widening.failCall(n, 0);
        EXPECT_EQ(L"", textOf(L"GetTempFileName", {text(L"abc")})) << n;
    }
    EXPECT_EQ(0, files());
}

TEST_F(FichierFiles, fieldsThatHoldNothing) {
    ScriptedObject null(nullValue()), empty(text(L"")), full(text(L"x")), zero(long32(0)), without;
    Variant array;
    array.put()->parray = SafeArrayCreateVector(VT_VARIANT, 0, 0);
    array.put()->vt = VT_ARRAY | VT_VARIANT;
    Variant noText;
    noText.put()->vt = VT_BSTR;
    Variant inside = nullValue();
    BSTR absent = nullptr;
    const struct {
        Variant value;
        bool isEmpty;
    } rows[] = {{nullValue(), true},
                {text(L""), true},
                {noText, true},
                {Variant(), true},
                {long32(0), false},
                {0.0, false},
                {false, false},
                {Date{0}, false},
                {Currency{0}, false},
                {text(L" "), false},
                {text(L"0"), false},
                {text(std::wstring(1, L'\0')), false},
                {missing(), false},
                {nothing(), false},
                {array, false},
                {test::object(&null), true},
                {test::object(&empty), true},
                {test::object(&full), false},
                {test::object(&zero), false},
                {test::object(&without), false},
                {byReference(inside), true},
                {byReference(VT_BSTR, &absent), true}};
    for (const auto& row : rows)
        expectResult(call(L"IsFieldEpmty", {row.value}), row.isEmpty, describe(row.value.raw()));
    // The rows hold one each.
    for (const auto* field : {&null, &empty, &full, &zero, &without}) EXPECT_EQ(1, field->references());
    null.failCall(1, E_FAIL);
    expectResult(call(L"IsFieldEpmty", {test::object(&null)}), false);
}

// A system with drives whose trays move.
class Trays : public FichierFiles {
protected:
    Trays() {
        version.answer([this](OSVERSIONINFOA* record) -> BOOL {
            record->dwMajorVersion = major;
            record->dwMinorVersion = minor;
            record->dwPlatformId = platform;
            record->szCSDVersion[0] = '\0';
            return TRUE;
        });
        opening.answer([this](const char*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE) {
            return deviceIsThere ? CreateEventW(nullptr, FALSE, FALSE, nullptr) : INVALID_HANDLE_VALUE;
        });
        request.answer([this](HANDLE, DWORD code, void* input, DWORD inputSize, void* output,
                              DWORD outputSize, DWORD* returned, OVERLAPPED* overlapped) -> BOOL {
            requests.push_back({code, bytesOf(input, inputSize), bytesOf(output, outputSize)});
            EXPECT_NE(nullptr, returned);
            EXPECT_EQ(nullptr, overlapped);
            return FALSE;
        });
    }

    using Bytes = std::vector<BYTE>;
    struct Request {
        DWORD code;
        Bytes input, output;

        bool operator==(const Request&) const = default;
    };
    static Bytes bytesOf(const void* start, DWORD count) {
        const auto* const bytes = static_cast<const BYTE*>(start);
        return Bytes(bytes, bytes + count);
    }

    void runOn(DWORD majorVersion, DWORD minorVersion, DWORD platformId) {
        major = majorVersion;
        minor = minorVersion;
        platform = platformId;
        requests.clear();
        devices.clear();
    }
    void move(const std::wstring& drive, int action) {
        const auto handles = openHandles();
        EXPECT_EQ(S_OK, call(L"CDEjectLoad", {long32(action), text(drive)}).code);
        EXPECT_EQ(handles, openHandles());
    }

    DWORD major = 5, minor = 1, platform = VER_PLATFORM_WIN32_NT;
    bool deviceIsThere = true;
    std::vector<Request> requests;
    CallLog devices;
    Intercept<decltype(GetVersionExA)> version{component.module(), "kernel32.dll", "GetVersionExA"};
    Intercept<decltype(CreateFileA)> opening{component.module(), "kernel32.dll", "CreateFileA", &devices};
    Intercept<decltype(DeviceIoControl)> request{component.module(), "kernel32.dll", "DeviceIoControl"};
};

constexpr DWORD nt = VER_PLATFORM_WIN32_NT, windows = VER_PLATFORM_WIN32_WINDOWS;

TEST_F(Trays, onTheNewerFamilyTheDriveIsAsked) {
    const DWORD versions[][2] = {{4, 0}, {5, 0}, {5, 1}, {5, 2}, {6, 0}};
    for (const auto& [majorVersion, minorVersion] : versions) {
        runOn(majorVersion, minorVersion, nt);
        move(L"d:\\", 0);
        move(L"D", 1);
        for (const int other : {2, -1, 32768}) move(L"z:\\Musique\\", other);
        // &HC0000000 is 3221225472; not shared, and only if it exists.
        const std::string drive = "CreateFileA(\"\\\\.\\D:\", 3221225472, 0, null, 3, 0, null)";
        const std::string last = "CreateFileA(\"\\\\.\\Z:\", 3221225472, 0, null, 3, 0, null)";
        EXPECT_EQ((CallLog{drive, drive, last, last, last}), devices);
        const Request eject{0x2D4808, {}, {}}, load{0x2D480C, {}, {}};
        EXPECT_EQ((std::vector<Request>{eject, load, load, load, load}), requests);
    }
}

TEST_F(Trays, onTheOlderFamilyItIsAlwaysOpened) {
    // NT 3.51, and a version that has no code, count as older.
    const DWORD versions[][3] = {{4, 0, windows}, {4, 10, windows}, {4, 90, windows},
                                 {3, 51, nt},     {6, 1, nt},       {10, 0, nt}};
    for (const auto& [majorVersion, minorVersion, platformId] : versions) {
        runOn(majorVersion, minorVersion, platformId);
        move(L"d:\\", 0);
        move(L"D:", 1);
        move(L"a", 7);
        move(L"Z", 1);
        // No access rights, not shared, flag &H4000000.
        const std::string device = "CreateFileA(\"\\\\.\\VWIN32\", 0, 0, null, 3, 67108864, null)";
        EXPECT_EQ(CallLog(4, device), devices);
        // EBX, EDX, ECX, EAX, EDI, ESI and the flags, lowest byte first.
        const auto registers = [](BYTE drive) {
            Bytes bytes(28, 0);
            bytes[0] = drive;
            bytes[8] = 0x49;
            bytes[9] = 0x08;
            bytes[12] = 0x0D;
            bytes[13] = 0x44;
            return Request{1, bytes, bytes};
        };
        EXPECT_EQ((std::vector<Request>{registers(4), registers(4), registers(1), registers(26)}), requests);
    }
}

TEST_F(Trays, withoutADriveNothingIsAsked) {
    for (const DWORD family : {nt, windows}) {
        runOn(4, 0, family);
        for (const std::wstring drive : {L"", L"1:", L"\\\\srv\\part", L"@", L"[", L"`", L"{", L"é:", L" d:"})
            for (const int action : {0, 1}) move(drive, action);
    }
    EXPECT_TRUE(devices.empty());
    EXPECT_TRUE(requests.empty());
}

TEST_F(Trays, failuresAreSilent) {
    deviceIsThere = false;
    for (const DWORD family : {nt, windows}) {
        runOn(4, 0, family);
        move(L"D:", 0);
        EXPECT_EQ(1u, devices.size());
        EXPECT_TRUE(requests.empty());
    }
    deviceIsThere = true;
    for (const DWORD family : {nt, windows}) {
        runOn(4, 0, family);
        request.failCall(1, FALSE);
        move(L"D:", 0);
        // If the system does not tell its version, the version is unknown.
        version.failCall(1, FALSE);
        move(L"D:", 0);
        EXPECT_NE(std::string::npos, devices.back().find("VWIN32"));
    }
}

TEST_F(FichierFiles, traysOfRealDrivesThatHaveNone) {
    for (const wchar_t* drive : {L"Q:", L"C:\\", L"c"})
        for (const int action : {0, 1})
            EXPECT_EQ(S_OK, call(L"CDEjectLoad", {long32(action), text(drive)}).code);
}

TEST_F(FichierFiles, nothingIsLeftBehind) {
    const auto file = temporary.file(L"fichier"), other = temporary.path(L"autre");
    const Variant now = date(2020, 1, 1, 0, 0, 0);
    const auto cycle = [&] {
        EXPECT_EQ(VT_DATE, dateOf(file, modification).result.raw().vt);
        EXPECT_EQ(VT_EMPTY, dateOf(other, modification).result.raw().vt);
        EXPECT_EQ(VT_DATE, dateOf(temporary.path(), access).result.raw().vt);
        setDate(file, modification, now);
        setDate(other, modification, now);
        setDate(file, modification, text(L"hier"));
        expectResult(call(L"RenameFile", {text(file), text(other)}), true);
        expectResult(call(L"RenameFile", {text(other), text(file)}), true);
        expectResult(call(L"DeleteFile", {text(other)}), false);
        EXPECT_NE(L"", textOf(L"GetTempFileName", {text(L"abc")}));
        expectResult(call(L"IsFieldEpmty", {text(L"x")}), false);
        EXPECT_EQ(S_OK, call(L"CDEjectLoad", {long32(0), text(L"Q:")}).code);
    };
    for (int i = 0; i < 10; ++i) cycle();
    const auto handles = openHandles();
    const MemoryCount count;
    for (int i = 0; i < 250; ++i) cycle();
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(handles, openHandles());
}

TEST_F(FichierFiles, wrongArgumentsAreRefusedByDispatch) {
    for (const wchar_t* name : {L"FileDate", L"DeleteFile", L"RenameFile", L"IsFieldEpmty", L"CDEjectLoad"})
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name, {}).code) << narrow(name);
    for (const wchar_t* name : {L"DeleteFile", L"GetTempFileName"})
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(name, {nullValue()}).code) << narrow(name);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"FileDate", {text(L"x"), text(L"hier")}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"CDEjectLoad", {text(L"ouvre"), text(L"D:")}).code);
}

}  // namespace
}  // namespace vorla::test
