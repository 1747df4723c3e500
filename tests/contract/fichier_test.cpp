// VorlaFichier with real files and folders: what Windows answers, what reaches the caller when Windows
// refuses, and numbers as the user's settings write them. The rules have tests of their own.
#include <algorithm>
#include <limits>

#include "contract/component.h"
#include "contract/signatures.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

constexpr std::uint16_t numberOfFichier = 5;

class Fichier : public testing::Test {
protected:
    Outcome call(const wchar_t* name, Arguments arguments) {
        return invoke(object.get(), name, std::move(arguments));
    }
    std::wstring textOf(const wchar_t* name, Arguments arguments) {
        const auto outcome = call(name, std::move(arguments));
        EXPECT_EQ(S_OK, outcome.code) << narrow(name);
        EXPECT_EQ(VT_BSTR, outcome.result.raw().vt) << narrow(name);
        return outcome.result.raw().vt == VT_BSTR ? std::wstring(viewOf(outcome.result.raw().bstrVal)) : L"?";
    }

    const Component component;
    const Dispatch object = component.create(numberOfFichier);
};

// A path that is too long for the system, made of names that are not.
std::wstring tooLong() {
    std::wstring path = L"C:";
    for (int i = 0; i < 40; ++i) path += L"\\nom-de-dossier";
    return path;
}

// Paths that Windows refuses or does not find.
std::vector<std::wstring> refusedPaths(const TemporaryFolder& folder) {
    return {L"",
            L"Q:\\rien.txt",
            folder.path(L"rien.txt"),
            folder.path(L"rien\\rien.txt"),
            folder.path(L"r?en|*<>.txt"),
            tooLong(),
            L":::",
            std::wstring(40000, L'x')};
}

TEST_F(Fichier, membersAreDescribed) {
    const std::vector<std::wstring> expected{
        L"60030000 BSTR NormalisePath(BSTR Path)",
        L"60030001 BSTR DeNormalisePath(BSTR Path)",
        L"60030002 BSTR ExtraitChemin(BSTR Chemin, [eFileN RenvoieNomFic=1])",
        L"60030003 BSTR FileNameShortToLong(&BSTR FileName)",
        L"60030004 BSTR FileNameLongToShort(&BSTR FileName)",
        L"60030005 BSTR LectDat(BSTR FileName)",
        L"60030006 BOOL FileExist(BSTR FileName, [&eFileToTest TypeFile=0])",
        L"60030007 BOOL IsFileExist(BSTR FileName, [&eFileToTest TypeFile=0])",
        L"60030008 eFiletype FileType(BSTR FileName)",
        L"60030009 BSTR FileSize(&BSTR NomFichier, [&BOOL Short=0])",
        L"6003000a BSTR SizeToString(R8 FileSise, [&BOOL Short=0])",
        L"6003000b BSTR GetFolder(BSTR Title, [&BSTR InitDir], [&BOOL AllowCreateFolder=-1], [&BOOL "
        L"BrowseForFilesAndFolder=0])",
        L"6003000c BSTR GetComputer(BSTR Title)",
        L"6003000d BSTR GetPrinter(BSTR Title)",
        L"6003000e BSTR CreateFolder(BSTR Folder, [&object MsgBoxCtl], [BSTR Mes=\"\"], [&I4 hwndOwner=-1])",
        L"68030000 get VARIANT FileDate(BSTR FileName, &eFileDateType DateType)",
        L"68030000 put void FileDate(BSTR FileName, &eFileDateType DateType, VARIANT)",
        L"6003000f BOOL DeleteFile(&BSTR NomFichier)",
        L"60030010 BOOL RenameFile(&BSTR NomFichierSrc, &BSTR NomFichierDest)",
        L"60030011 BSTR GetTempFileName([&BSTR sPrefix])",
        L"60030012 BOOL IsFieldEpmty(VARIANT Valeur)",
        L"60030013 void CDEjectLoad(eEjectOperation Action, BSTR Lecteur)"};
    EXPECT_EQ(expected, signatures(object.get()));
}

TEST_F(Fichier, backslashesAtTheEnd) {
    EXPECT_EQ(L"C:\\Data\\", textOf(L"NormalisePath", {text(L"C:\\Data")}));
    EXPECT_EQ(L"C:\\Data\\", textOf(L"NormalisePath", {text(L"C:\\Data\\")}));
    EXPECT_EQ(L"\\", textOf(L"NormalisePath", {text(L"")}));
    EXPECT_EQ(L"été\\", textOf(L"NormalisePath", {text(L"été")}));
    EXPECT_EQ(L"12\\", textOf(L"NormalisePath", {long32(12)}));
    EXPECT_EQ(L"C:\\Data", textOf(L"DeNormalisePath", {text(L"C:\\Data\\")}));
    EXPECT_EQ(L"C:\\Data\\", textOf(L"DeNormalisePath", {text(L"C:\\Data\\\\")}));
    EXPECT_EQ(L"C:\\Data", textOf(L"DeNormalisePath", {text(L"C:\\Data")}));
    EXPECT_EQ(L"", textOf(L"DeNormalisePath", {text(L"")}));
    const std::wstring million(1'000'000, L'x');
    EXPECT_EQ(million + L"\\", textOf(L"NormalisePath", {text(million)}));
    EXPECT_EQ(million, textOf(L"DeNormalisePath", {text(million + L"\\")}));
    // A host's variable that names nothing yet.
    BSTR none = nullptr;
    EXPECT_EQ(L"\\", textOf(L"NormalisePath", {byReference(VT_BSTR, &none)}));
}

TEST_F(Fichier, wrongArgumentsAreRefusedByDispatch) {
    for (const wchar_t* name : {L"NormalisePath", L"ExtraitChemin", L"FileExist", L"LectDat", L"FileType",
                                L"FileSize", L"SizeToString", L"FileNameShortToLong"}) {
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name, {}).code) << narrow(name);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(name, {nullValue()}).code) << narrow(name);
    }
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"ExtraitChemin", {text(L"a"), text(L"deux")}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"SizeToString", {text(L"beaucoup")}).code);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"DeNormalisePath", {text(L"a"), text(L"b")}).code);
}

TEST_F(Fichier, piecesOfAPath) {
    const std::wstring path = L"C:\\Sans\\Report.txt";
    const wchar_t* const pieces[] = {L"C:\\Sans\\", L"Report.txt", L"txt",  L"Report",
                                     L"\\Sans\\",   L"C:",         L"C:\\", path.c_str()};
    for (int part = 1; part <= 8; ++part)
        EXPECT_EQ(pieces[part - 1], textOf(L"ExtraitChemin", {text(path), long32(part)})) << part;
    EXPECT_EQ(L"C:\\Sans\\", textOf(L"ExtraitChemin", {text(path)}));
    EXPECT_EQ(L"C:\\Sans\\", textOf(L"ExtraitChemin", {text(path), missing()}));
    EXPECT_EQ(L"txt", textOf(L"ExtraitChemin", Arguments({text(path)}).named(1, long32(3))));
    for (const int part : {0, 9, -1, 32768, -2147483647})
        EXPECT_EQ(L"", textOf(L"ExtraitChemin", {text(path), long32(part)})) << part;
    EXPECT_EQ(L"Report.txt", textOf(L"ExtraitChemin", {text(L"Report.txt")}));
    EXPECT_EQ(L"\\\\srv\\share", textOf(L"ExtraitChemin", {text(L"\\\\srv\\share\\dir\\f.txt"), long32(6)}));
    EXPECT_EQ(L"\\\\srv\\share\\",
              textOf(L"ExtraitChemin", {text(L"\\\\srv\\share\\dir\\f.txt"), long32(7)}));
    EXPECT_EQ(L"Minutes.backup2", textOf(L"ExtraitChemin", {text(L"C:\\Sans\\Minutes.backup2"), long32(4)}));
}

TEST_F(Fichier, existingFoldersAreAllFolder) {
    const TemporaryFolder temporary;
    for (const auto& folder : {temporary.folder(L"dossier.txt"), temporary.folder(L"caché é")}) {
        SetFileAttributesW(folder.c_str(), FILE_ATTRIBUTE_HIDDEN);
        EXPECT_EQ(folder, textOf(L"ExtraitChemin", {text(folder)}));
        EXPECT_EQ(folder + L"\\", textOf(L"ExtraitChemin", {text(folder + L"\\")}));
        for (const int part : {2, 3, 4})
            EXPECT_EQ(L"", textOf(L"ExtraitChemin", {text(folder), long32(part)}));
        EXPECT_EQ(folder.substr(2), textOf(L"ExtraitChemin", {text(folder), long32(5)}));
    }
    // A file is not a folder.
    const auto file = temporary.file(L"fichier.txt");
    EXPECT_EQ(temporary.path() + L"\\", textOf(L"ExtraitChemin", {text(file)}));
    EXPECT_EQ(L"fichier.txt", textOf(L"ExtraitChemin", {text(file), long32(2)}));
}

TEST_F(Fichier, existenceIsThatOfAFileOrOfAFolder) {
    const TemporaryFolder temporary;
    const auto folder = temporary.folder(L"dossier é"), file = temporary.file(L"fichier €.txt");
    for (const wchar_t* name : {L"FileExist", L"IsFileExist"}) {
        expectResult(call(name, {text(file)}), true);
        expectResult(call(name, {text(file), missing()}), true);
        expectResult(call(name, {text(file), long32(0)}), true);
        expectResult(call(name, {text(file), long32(1)}), false);
        expectResult(call(name, {text(folder)}), false);
        expectResult(call(name, {text(folder + L"\\")}), false);
        expectResult(call(name, {text(folder), long32(1)}), true);
        expectResult(call(name, {text(folder + L"\\"), long32(1)}), true);
        // Any other number asks for a folder.
        for (const int kind : {2, -1, 32768}) {
            expectResult(call(name, {text(folder), long32(kind)}), true);
            expectResult(call(name, {text(file), long32(kind)}), false);
        }
        expectResult(call(name, Arguments({text(folder)}).named(1, long32(1))), true);
        for (const auto& path : refusedPaths(temporary))
            for (const int kind : {0, 1})
                expectResult(call(name, {text(path), long32(kind)}), false, narrow(path));

        // By reference and left alone; a script's variable of another type too.
        Variant variable(std::int32_t{1});
        expectResult(call(name, {text(folder), byReference(variable)}), true);
        EXPECT_EQ(describe(long32(1).raw()), describe(variable.raw()));
        LONG kind = 1;
        expectResult(call(name, {text(folder), byReference(VT_I4, &kind)}), true);
        EXPECT_EQ(1, kind);
    }
    for (const DWORD attribute :
         {DWORD{FILE_ATTRIBUTE_READONLY}, DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM}}) {
        SetFileAttributesW(file.c_str(), attribute);
        expectResult(call(L"FileExist", {text(file)}), true);
    }
    // Without regard to case.
    std::wstring upper = file;
    CharUpperW(upper.data());
    expectResult(call(L"FileExist", {text(upper)}), true);
}

TEST_F(Fichier, kindsFollowTheExtension) {
    const struct {
        const wchar_t* path;
        int type;
    } rows[] = {{L"C:\\Music\\Track.MP3", 1},
                {L"archive.tar.gz", 5},
                {L"a.gzip", 3},
                {L"a.JPeG", 0},
                {L"film.mov", 2},
                {L"C:\\a.zip\\b", 5},
                {L"sans", 5},
                {L"", 5},
                {L".avi", 2},
                {L"a.", 5},
                {L"a.cda", 5},
                {L"C:\\a.b\\zip", 5},
                {L"a.ICO", 0},
                {L"\\\\s\\h\\x.wav", 1},
                {L"a.mp3 ", 5}};
    for (const auto& row : rows)
        expectResult(call(L"FileType", {text(row.path)}), long32(row.type), narrow(row.path));
    expectResult(call(L"FileType", {text(std::wstring(100000, L'x') + L".wav")}), long32(1));
    // A folder has no extension.
    const TemporaryFolder temporary;
    expectResult(call(L"FileType", {text(temporary.folder(L"disque.mp3"))}), long32(5));
    expectResult(call(L"FileType", {text(temporary.file(L"piste.mp3"))}), long32(1));
}

// The character of each byte in code page 1252. The five bytes without a character stand for themselves.
std::wstring characterOf(int byte) {
    constexpr wchar_t upperControls[] =
        L"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
        L"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E\u0178";
    return {byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80] : static_cast<wchar_t>(byte)};
}

TEST_F(Fichier, contentIsOneCharacterAByte) {
    ASSERT_EQ(1252u, GetACP());
    const TemporaryFolder temporary;
    std::string bytes;
    std::wstring characters;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
        characters += characterOf(byte);
    }
    EXPECT_EQ(characters, textOf(L"LectDat", {text(temporary.file(L"tous é €.bin", bytes))}));
    EXPECT_EQ(L"", textOf(L"LectDat", {text(temporary.file(L"vide"))}));
    EXPECT_EQ(L"a\r\nb\n", textOf(L"LectDat", {text(temporary.file(L"lignes.txt", "a\r\nb\n"))}));
    EXPECT_EQ(std::wstring(3, L'\0'),
              textOf(L"LectDat", {text(temporary.file(L"zéros", std::string(3, '\0')))}));
    // UTF-8 is not interpreted.
    EXPECT_EQ(L"\u00C3\u00A9", textOf(L"LectDat", {text(temporary.file(L"utf8.txt", "\xC3\xA9"))}));

    std::string large(5'000'000, 'x');
    large += "fin";
    const auto content = textOf(L"LectDat", {text(temporary.file(L"grand", large))});
    ASSERT_EQ(5'000'003u, content.size());
    EXPECT_EQ(std::wstring(5'000'000, L'x') + L"fin", content);
}

TEST_F(Fichier, contentOfWhatCannotBeReadIsEmpty) {
    const TemporaryFolder temporary;
    for (const auto& path : refusedPaths(temporary))
        EXPECT_EQ(L"", textOf(L"LectDat", {text(path)})) << narrow(path);
    EXPECT_FALSE(TemporaryFolder::exists(temporary.path(L"rien.txt")));
    EXPECT_EQ(L"", textOf(L"LectDat", {text(temporary.folder(L"dossier"))}));
    EXPECT_EQ(L"", textOf(L"LectDat", {text(temporary.path() + L"\\")}));
    // More characters than a text can have.
    EXPECT_EQ(L"", textOf(L"LectDat", {text(temporary.sparseFile(L"géant", 0x80000000LL))}));

    const auto file = temporary.file(L"occupé", "abc");
    {
        const File exclusive(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(L"", textOf(L"LectDat", {text(file)}));
    }
    {
        // Open elsewhere for writing, shared with readers.
        const File shared(
            CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(L"abc", textOf(L"LectDat", {text(file)}));
    }
    {
        // Open elsewhere for reading.
        const File reader(
            CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(L"abc", textOf(L"LectDat", {text(file)}));
    }
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(L"abc", textOf(L"LectDat", {text(file)}));
    // No file stays open.
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(static_cast<bool>(
        File(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr))));
}

TEST_F(Fichier, longNamesAreAsStored) {
    const TemporaryFolder temporary;
    temporary.folder(L"Dossier au long nom é");
    const auto file = temporary.file(L"Dossier au long nom é\\Fichier au long nom.texte");
    wchar_t shortForm[MAX_PATH];
    ASSERT_NE(0u, GetShortPathNameW(file.c_str(), shortForm, MAX_PATH));
    // Otherwise this test would compare nothing.
    ASSERT_NE(file, shortForm);
    SetFileAttributesW(temporary.path(L"Dossier au long nom é").c_str(), FILE_ATTRIBUTE_HIDDEN);

    for (std::wstring given : {std::wstring(shortForm), file}) {
        Variant variable{TextView(given)};
        expectResult(call(L"FileNameShortToLong", {byReference(variable)}), text(file));
        EXPECT_EQ(describe(text(given + L"\\").raw()), describe(variable.raw()));
        CharUpperW(given.data());
        expectResult(call(L"FileNameShortToLong", {text(given)}), text(file));
    }
    // A typed variable is changed too.
    BSTR typed = SysAllocString(shortForm);
    expectResult(call(L"FileNameShortToLong", {byReference(VT_BSTR, &typed)}), text(file));
    EXPECT_EQ(shortForm + std::wstring(L"\\"), viewOf(typed));
    SysFreeString(typed);
}

// The directory listing accepts patterns, and a character that the code page lacks makes a name one.
TEST_F(Fichier, aPatternStandsForTheNameThatItFinds) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"seul.txt");
    EXPECT_EQ(file, textOf(L"FileNameShortToLong", {text(temporary.path(L"s*.t?t"))}));
    EXPECT_EQ(L"", textOf(L"FileNameShortToLong", {text(temporary.path(L"t*"))}));
    // Its characters become question marks, which are not a pattern to GetFileAttributesA.
    const auto foreign = temporary.file(L"\u6F22\u5B57");
    expectResult(call(L"FileExist", {text(foreign)}), false);
    EXPECT_EQ(L"", textOf(L"LectDat", {text(foreign)}));
}

TEST_F(Fichier, theBackslashStaysBehindWhatHasNoLongName) {
    const TemporaryFolder temporary;
    auto paths = refusedPaths(temporary);
    paths.push_back(temporary.path() + L"\\");
    paths.push_back(temporary.file(L"fichier") + L"\\x");
    paths.push_back(L"C:\\");
    for (const auto& path : paths) {
        // Without a backslash from the fourth character on there is nothing to look up.
        if (path.size() < 3) continue;
        Variant variable{TextView(path)};
        expectResult(call(L"FileNameShortToLong", {byReference(variable)}), text(L""), narrow(path));
        EXPECT_EQ(describe(text(path + L"\\").raw()), describe(variable.raw()));
    }
    // The first two characters, the added backslash among them.
    const struct {
        const wchar_t* path;
        const wchar_t* expected;
    } rows[] = {{L"", L"\\"}, {L"a", L"a\\"}, {L"C:", L"C:"}};
    for (const auto& row : rows) {
        Variant variable{TextView(row.path)};
        expectResult(call(L"FileNameShortToLong", {byReference(variable)}), text(row.expected),
                     narrow(row.path));
        EXPECT_EQ(describe(text(row.path + std::wstring(L"\\")).raw()), describe(variable.raw()));
    }
}

TEST_F(Fichier, shortNamesLeadToTheSameFile) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"Fichier au long nom é.texte", "abc");
    Variant variable{TextView(file)};
    const auto shortForm = textOf(L"FileNameLongToShort", {byReference(variable)});
    EXPECT_EQ(describe(text(file).raw()), describe(variable.raw()));
    const auto name = shortForm.substr(shortForm.rfind(L'\\') + 1);
    EXPECT_LE(name.size(), 12u);
    EXPECT_NE(L"", name);
    EXPECT_EQ(L"abc", textOf(L"LectDat", {text(shortForm)}));
    wchar_t longForm[MAX_PATH];
    EXPECT_NE(0u, GetLongPathNameW(shortForm.c_str(), longForm, MAX_PATH));
    EXPECT_EQ(file, longForm);
    EXPECT_EQ(shortForm, textOf(L"FileNameLongToShort", {text(shortForm)}));
    for (const auto& path : refusedPaths(temporary))
        EXPECT_EQ(L"", textOf(L"FileNameLongToShort", {text(path)})) << narrow(path);
}

// Names of eight characters are their own short form.
TEST_F(Fichier, aShortFormOf255CharactersHasNoRoom) {
    std::wstring root = L"C:\\vorla";
    ASSERT_TRUE(CreateDirectoryW(root.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS);
    std::vector<std::wstring> folders{root};
    while (folders.back().size() < 235) {
        folders.push_back(folders.back() + L"\\abcdefgh");
        CreateDirectoryW(folders.back().c_str(), nullptr);
    }
    const auto& deepest = folders.back();
    // "C:\vorla" and 26 times nine characters.
    ASSERT_EQ(242u, deepest.size());
    const std::wstring fits = deepest + L"\\abcdefg.txt", full = deepest + L"\\abcdefgh.txt";
    for (const auto& path : {fits, full})
        EXPECT_TRUE(static_cast<bool>(
            File(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr))));
    EXPECT_EQ(254u, fits.size());
    EXPECT_EQ(fits, textOf(L"FileNameLongToShort", {text(fits)}));
    EXPECT_EQ(L"", textOf(L"FileNameLongToShort", {text(full)}));
    for (const auto& path : {fits, full}) DeleteFileW(path.c_str());
    for (; !folders.empty(); folders.pop_back()) RemoveDirectoryW(folders.back().c_str());
    EXPECT_FALSE(TemporaryFolder::exists(root));
}

constexpr double K = 1024, M = K * K, G = M * K, T = G * K;

TEST_F(Fichier, sizesAreWrittenAsTheUserWritesNumbers) {
    struct Row {
        double bytes;
        const wchar_t* brief;
        const wchar_t* full;
    };
    constexpr Row everywhere[] = {
        {0, L"0 octet(s)", L"0 octet(s)"},
        {-0.0, L"0 octet(s)", L"0 octet(s)"},
        {1, L"1 octet(s)", L"1 octet(s)"},
        {1024, L"1024 octet(s)", L"1024 octet(s)"},
        {-5000, L"-5000 octet(s)", L"-5000 octet(s)"},
        {2048, L"2 Ko", L"2 Ko   (2 048 octets)"},
        {M, L"1024 Ko", L"1024 Ko   (1 048 576 octets)"},
        {3 * M, L"3 Mo", L"3 Mo   (3 145 728 octets)"},
        {2 * G, L"2 Go", L"2 Go   (2 147 483 648 octets)"},
        {T, L"1024 Go", L"1024 Go   (1 099 511 627 776 octets)"},
        {5 * K * T, L"5120 To", L"5120 To   (5 629 499 534 213 120 octets)"},
        // A double's own text has an exponent here; a decimal has up to 28 digits.
        {K * T * 1e12, L"1024000000000000 To", nullptr},
        {-1e15, L"-1000000000000000 octet(s)", L"-1000000000000000 octet(s)"},
        {1e300, L"", L""},
        {-1e300, L"", L""},
        {std::numeric_limits<double>::infinity(), L"", L""},
        {-std::numeric_limits<double>::infinity(), L"", L""},
        {std::numeric_limits<double>::quiet_NaN(), L"", L""},
    };
    // A short number that rounds to a whole one ends in its separator: hosts have always shown it so.
    constexpr Row french[] = {
        {1536, L"1,5 Ko", L"1,50 Ko   (1 536 octets)"},
        {1025, L"1, Ko", L"1,00 Ko   (1 025 octets)"},
        {1234.5, L"1,21 Ko", L"1,21 Ko   (1 235 octets)"},
        {0.25, L"0,25 octet(s)", L"0,25 octet(s)"},
        {5e-324, L"0, octet(s)", L"0,00 octet(s)"},
        {0.00005, L"0, octet(s)", L"0,00 octet(s)"},
        {0.00001234567890123456, L"0, octet(s)", L"0,00 octet(s)"},
        {-1234.5, L"-1234,5 octet(s)", L"-1\u00A0234,50 octet(s)"},
        {1.5 * G, L"1,5 Go", L"1,50 Go   (1 610 612 736 octets)"},
        {1500.25 * T, L"1500,25 To", L"1\u00A0500,25 To   (1 649 542 319 570 944 octets)"},
    };
    constexpr Row english[] = {
        {1536, L"1.5 Ko", L"1.50 Ko   (1 536 octets)"},
        {1025, L"1. Ko", L"1.00 Ko   (1 025 octets)"},
        {1234.5, L"1.21 Ko", L"1.21 Ko   (1 235 octets)"},
        {0.25, L"0.25 octet(s)", L"0.25 octet(s)"},
        {5e-324, L"0. octet(s)", L"0.00 octet(s)"},
        {0.00005, L"0. octet(s)", L"0.00 octet(s)"},
        {0.00001234567890123456, L"0. octet(s)", L"0.00 octet(s)"},
        {-1234.5, L"-1234.5 octet(s)", L"-1,234.50 octet(s)"},
        {1.5 * G, L"1.5 Go", L"1.50 Go   (1 610 612 736 octets)"},
        {1500.25 * T, L"1500.25 To", L"1,500.25 To   (1 649 542 319 570 944 octets)"},
    };
    const auto expectRow = [this](const Row& row) {
        const auto what = std::to_string(row.bytes);
        EXPECT_EQ(row.brief, textOf(L"SizeToString", {row.bytes, true})) << what;
        if (!row.full) return;
        EXPECT_EQ(row.full, textOf(L"SizeToString", {row.bytes, false})) << what;
        EXPECT_EQ(row.full, textOf(L"SizeToString", {row.bytes})) << what;
    };
    for (const Row& row : everywhere) expectRow(row);
    for (const Row& row : isFrench() ? french : english) expectRow(row);
}

TEST_F(Fichier, theShortFormIsAskedForByReference) {
    Variant variable(true);
    expectResult(call(L"SizeToString", {2048.0, byReference(variable)}), text(L"2 Ko"));
    EXPECT_EQ(describe(Variant(true).raw()), describe(variable.raw()));
    // The value that some compilers use for True. It is left as it is.
    VARIANT_BOOL one = 1;
    expectResult(call(L"SizeToString", {2048.0, byReference(VT_BOOL, &one)}), text(L"2 Ko"));
    EXPECT_EQ(1, one);
    expectResult(call(L"SizeToString", Arguments({2048.0}).named(1, true)), text(L"2 Ko"));
    expectResult(call(L"SizeToString", {long32(2048), long32(0)}), text(L"2 Ko   (2 048 octets)"));
    expectResult(call(L"SizeToString", {text(L"2048"), missing()}), text(L"2 Ko   (2 048 octets)"));
}

TEST_F(Fichier, sizesOfFiles) {
    const TemporaryFolder temporary;
    EXPECT_EQ(L"0 octet(s)", textOf(L"FileSize", {text(temporary.file(L"vide"))}));
    EXPECT_EQ(L"3 octet(s)", textOf(L"FileSize", {text(temporary.file(L"trois é", "abc"))}));
    const auto half = temporary.file(L"un et demi", std::string(1536, 'x'));
    EXPECT_EQ(isFrench() ? L"1,50 Ko   (1 536 octets)" : L"1.50 Ko   (1 536 octets)",
              textOf(L"FileSize", {text(half)}));
    EXPECT_EQ(isFrench() ? L"1,5 Ko" : L"1.5 Ko", textOf(L"FileSize", {text(half), true}));
    EXPECT_EQ(L"2 Go   (2 147 483 648 octets)",
              textOf(L"FileSize", {text(temporary.sparseFile(L"2", 0x80000000LL))}));
    EXPECT_EQ(L"5 Go   (5 368 709 120 octets)",
              textOf(L"FileSize", {text(temporary.sparseFile(L"5", 0x140000000LL))}));
    Variant variable{TextView(half)}, brief(true);
    EXPECT_EQ(isFrench() ? L"1,5 Ko" : L"1.5 Ko",
              textOf(L"FileSize", {byReference(variable), byReference(brief)}));
    EXPECT_EQ(describe(text(half).raw()), describe(variable.raw()));

    SetFileAttributesW(half.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(isFrench() ? L"1,5 Ko" : L"1.5 Ko", textOf(L"FileSize", {text(half), true}));
    EXPECT_EQ(L"", textOf(L"FileSize", {text(temporary.path())}));
    EXPECT_EQ(L"", textOf(L"FileSize", {text(temporary.path() + L"\\")}));
    for (const auto& path : refusedPaths(temporary))
        EXPECT_EQ(L"", textOf(L"FileSize", {text(path)})) << narrow(path);
}

// Paths that a host takes from a buffer filled by a system call.
TEST_F(Fichier, pathsEndAtTheirFirstNul) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier", "abc") + std::wstring(L"\0reste", 6);
    expectResult(call(L"FileExist", {text(file)}), true);
    EXPECT_EQ(L"abc", textOf(L"LectDat", {text(file)}));
    EXPECT_EQ(L"3 octet(s)", textOf(L"FileSize", {text(file)}));
    // Members that only look at the text use all of it.
    EXPECT_EQ(file + L"\\", textOf(L"NormalisePath", {text(file)}));
    EXPECT_EQ(std::wstring(L"fichier\0reste", 13), textOf(L"ExtraitChemin", {text(file), long32(2)}));
}

TEST_F(Fichier, contentIsReadToItsEnd) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier", "abcde");
    Intercept<decltype(ReadFile)> reading(component.module(), "kernel32.dll", "ReadFile");
    // Two bytes at a time.
    reading.answer([&](HANDLE handle, void* bytes, DWORD, DWORD* count, OVERLAPPED* overlapped) {
        return reading.callOriginal(handle, bytes, 2, count, overlapped);
    });
    EXPECT_EQ(L"abcde", textOf(L"LectDat", {text(file)}));
    EXPECT_EQ(3, reading.calls());
    for (const int call : {1, 2, 3}) {
        reading.failCall(call, FALSE);
        EXPECT_EQ(L"", textOf(L"LectDat", {text(file)})) << call;
    }
    // Another program shortens the file after its second byte.
    reading.answer([&](HANDLE handle, void* bytes, DWORD wanted, DWORD* count, OVERLAPPED* overlapped) {
        const DWORD left = wanted > 3 ? wanted - 3 : 0;
        return reading.callOriginal(handle, bytes, left, count, overlapped);
    });
    EXPECT_EQ(L"ab", textOf(L"LectDat", {text(file)}));
}

TEST_F(Fichier, refusalsOfTheSystemGiveNothing) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier", "abc");
    const HMODULE module = component.module();
    {
        Intercept<decltype(GetFileSizeEx)> size(module, "kernel32.dll", "GetFileSizeEx");
        size.failCall(1, FALSE);
        EXPECT_EQ(L"", textOf(L"LectDat", {text(file)}));
    }
    {
        Intercept<decltype(MultiByteToWideChar)> widening(module, "kernel32.dll", "MultiByteToWideChar");
        for (const int call : {1, 2}) {
            widening.failCall(call, 0);
            EXPECT_EQ(L"", textOf(L"LectDat", {text(file)})) << call;
        }
    }
    {
        Intercept<decltype(GetFileAttributesExA)> attributes(module, "kernel32.dll", "GetFileAttributesExA");
        attributes.failCall(1, FALSE);
        EXPECT_EQ(L"", textOf(L"FileSize", {text(file)}));
    }
    {
        Intercept<decltype(GetFileAttributesA)> attributes(module, "kernel32.dll", "GetFileAttributesA");
        attributes.failCall(1, INVALID_FILE_ATTRIBUTES, ERROR_NOT_READY);
        expectResult(call(L"FileExist", {text(file)}), false);
        attributes.failCall(1, INVALID_FILE_ATTRIBUTES, ERROR_NOT_READY);
        EXPECT_EQ(temporary.path().substr(0, temporary.path().rfind(L'\\') + 1),
                  textOf(L"ExtraitChemin", {text(temporary.path())}));
    }
    {
        Intercept<decltype(WideCharToMultiByte)> narrowing(module, "kernel32.dll", "WideCharToMultiByte");
        for (const wchar_t* name :
             {L"FileNameShortToLong", L"FileNameLongToShort", L"LectDat", L"FileSize"}) {
            narrowing.failCall(1, 0);
            EXPECT_EQ(L"", textOf(name, {text(file)})) << narrow(name);
        }
        narrowing.failCall(1, 0);
        expectResult(call(L"FileExist", {text(file)}), false);
    }
    Intercept<decltype(VarFormat)> format(module, "oleaut32.dll", "VarFormat");
    // The number, then the exact one.
    for (const int call : {1, 2}) {
        format.failCall(call, E_OUTOFMEMORY);
        EXPECT_EQ(L"", textOf(L"SizeToString", {1536.0})) << call;
        format.failCall(call, DISP_E_OVERFLOW);
        EXPECT_EQ(L"", textOf(L"SizeToString", {1536.0})) << call;
    }
}

TEST_F(Fichier, everyNameOfALongPathIsLookedUpOnce) {
    const TemporaryFolder temporary;
    temporary.folder(L"a");
    const auto file = temporary.file(L"a\\b.txt");
    Intercept<decltype(FindFirstFileA)> search(component.module(), "kernel32.dll", "FindFirstFileA");
    Intercept<decltype(FindClose)> close(component.module(), "kernel32.dll", "FindClose");
    const auto names = static_cast<int>(std::count(file.begin(), file.end(), L'\\'));
    EXPECT_EQ(file, textOf(L"FileNameShortToLong", {text(file)}));
    EXPECT_EQ(names, search.calls());
    EXPECT_EQ(names, close.calls());
    for (int n = 1; n <= names; ++n) {
        const int searched = search.calls(), closed = close.calls();
        search.failCall(n, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED);
        Variant variable{TextView(file)};
        expectResult(call(L"FileNameShortToLong", {byReference(variable)}), text(L""));
        EXPECT_EQ(describe(text(file + L"\\").raw()), describe(variable.raw()));
        EXPECT_EQ(n, search.calls() - searched);
        EXPECT_EQ(n - 1, close.calls() - closed);
    }
}

TEST_F(Fichier, theDiskIsAskedOnlyWhenItMatters) {
    Intercept<decltype(GetFileAttributesA)> attributes(component.module(), "kernel32.dll",
                                                       "GetFileAttributesA");
    constexpr int questions[] = {1, 1, 1, 1, 1, 0, 0, 0};
    for (int part = 1; part <= 8; ++part) {
        const int before = attributes.calls();
        textOf(L"ExtraitChemin", {text(L"C:\\a\\b.c"), long32(part)});
        EXPECT_EQ(questions[part - 1], attributes.calls() - before) << part;
    }
}

TEST_F(Fichier, nothingIsLeftBehind) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier au long nom.txt", std::string(1536, 'x'));
    const auto useAll = [&](const std::wstring& path) {
        for (const wchar_t* name :
             {L"NormalisePath", L"DeNormalisePath", L"ExtraitChemin", L"FileNameLongToShort", L"LectDat",
              L"FileExist", L"IsFileExist", L"FileType", L"FileSize"})
            EXPECT_EQ(S_OK, call(name, {text(path)}).code);
        Variant variable{TextView(path)};
        EXPECT_EQ(S_OK, call(L"FileNameShortToLong", {byReference(variable)}).code);
        EXPECT_EQ(S_OK, call(L"SizeToString", {1536.5}).code);
        EXPECT_EQ(S_OK, call(L"SizeToString", {1e300}).code);
    };
    const auto cycles = [&](int count) {
        for (int i = 0; i < count; ++i)
            for (const auto& path :
                 {file, temporary.path(), temporary.path(L"rien\\rien"), std::wstring(L"Q:\\x")})
                useAll(path);
    };
    cycles(10);
    const auto before = Resources::held();
    const MemoryCount count;
    cycles(250);
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(before, Resources::held());
}

}  // namespace
}  // namespace vorla::test
