// VorlaSystem and the shell: programs that are really started, an association made for the test, and every
// failure code.

#include <algorithm>
#include <cstring>

#include "contract/systeme_fixture.h"
#include "support/dialog_watcher.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/resource_count.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

// Called first while the current folder is still the one where the tests start.
const std::wstring& childPath() {
    static const auto path = [] {
        wchar_t full[MAX_PATH];
        GetFullPathNameW(L"tests\\contract\\patient_child.exe", MAX_PATH, full, nullptr);
        return std::wstring(full);
    }();
    return path;
}

unsigned handleCount() { return Resources::held().handles; }

std::wstring currentFolder() {
    wchar_t path[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, path);
    return path;
}

// Another current folder as long as this exists.
class CurrentFolder {
public:
    explicit CurrentFolder(const std::wstring& path) : before_(currentFolder()) {
        EXPECT_TRUE(SetCurrentDirectoryW(path.c_str()));
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { SetCurrentDirectoryW(before_.c_str()); }

private:
    const std::wstring before_;
};

// Files whose names end in ".vla" are opened by the child as long as this exists.
class Association {
public:
    explicit Association(const std::wstring& program = childPath()) {
        set(L".vla", L"Vorla.Essai");
        set(L"Vorla.Essai\\shell\\open\\command", L'"' + program + L"\" mark \"%1\"");
    }
    Association(const Association&) = delete;
    Association& operator=(const Association&) = delete;
    ~Association() {
        for (const wchar_t* key : {L".vla", L"Vorla.Essai\\shell\\open\\command", L"Vorla.Essai\\shell\\open",
                                   L"Vorla.Essai\\shell", L"Vorla.Essai"})
            EXPECT_EQ(0, RegDeleteKeyW(HKEY_CLASSES_ROOT, key)) << narrow(key);
    }

private:
    static void set(const wchar_t* key, const std::wstring& value) {
        EXPECT_EQ(0, RegSetValueW(HKEY_CLASSES_ROOT, key, REG_SZ, value.c_str(), 0)) << narrow(key);
    }
};

std::wstring contentOf(const std::wstring& path) {
    const File file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, 0, nullptr));
    wchar_t content[MAX_PATH];
    DWORD size = 0;
    ReadFile(file.get(), content, sizeof content, &size, nullptr);
    return {content, size / sizeof(wchar_t)};
}

// What the child has written, once it has ended and released its folder.
std::wstring writtenInto(const std::wstring& document) {
    std::wstring content;
    const auto folder = document.substr(0, document.rfind(L'\\'));
    for (int i = 0; i < 400 && (content = contentOf(document)).empty(); ++i) Sleep(25);
    DeleteFileW(document.c_str());
    for (int i = 0; i < 400 && !RemoveDirectoryW(folder.c_str()); ++i) Sleep(25);
    EXPECT_FALSE(TemporaryFolder::exists(folder));
    return content;
}

// The contents of the thread's error object, which is empty afterwards: text, source, number.
struct StoredError {
    bool found = false;
    std::wstring description, source;
    DWORD number = 0;

    StoredError() {
        ComPointer<IErrorInfo> information;
        found = GetErrorInfo(0, information.put()) == S_OK;
        if (!found) return;
        Bstr text, from;
        information->GetDescription(text.put());
        information->GetSource(from.put());
        information->GetHelpContext(&number);
        description = text.view();
        source = from.view();
    }
};

const struct {
    int code;
    const wchar_t* text;
} errors[] = {{2, L"Fichier non trouvé"},
              {3, L"Chemin non trouvé"},
              {5, L"Accès refusé"},
              {8, L"Pas assez de mémoire"},
              {11, L"Fichier EXE invalide"},
              {26, L"Une violation de partage est apparue"},
              {27, L"Association incomplète ou invalide"},
              {28, L"DDE Délai dépassé"},
              {29, L"DDE transaction abortée"},
              {30, L"DDE occupé"},
              {31, L"Pas d'association enregistrée pour ce type de fichier"},
              {32, L"DLL non trouvée"},
              {0, L"Erreur inconnue"},
              {1, L"Erreur inconnue"},
              {10, L"Erreur inconnue"},
              {-5, L"Erreur inconnue"}};

HINSTANCE shellAnswer(int code) { return reinterpret_cast<HINSTANCE>(static_cast<LONG_PTR>(code)); }

class Shell : public Systeme {
protected:
    Shell() { SetErrorInfo(0, nullptr); }

    Variant open(const std::wstring& path, bool message = false) {
        const auto outcome = call(L"SysShellAppliAssocié", {text(path), message});
        EXPECT_EQ(S_OK, outcome.code);
        return outcome.result;
    }
    std::wstring find(const std::wstring& path, bool noFile = false) {
        return textOf(L"SysFindAppliAssocié", {text(path), false, noFile});
    }
    Outcome wait(const std::wstring& command) { return call(L"SysShellWait", {text(command)}); }

    const TemporaryFolder temporary;
};

// --- Failures and their texts ---

TEST_F(Shell, everyCodeOfFailureIsShown) {
    CallLog log;
    Intercept<decltype(MessageBoxW)> box(module, "user32.dll", "MessageBoxW", &log);
    box.answer([](HWND, LPCWSTR, LPCWSTR, UINT) { return IDOK; });
    Intercept<decltype(ShellExecuteA)> execute(module, "shell32.dll", "ShellExecuteA");
    Intercept<decltype(FindExecutableA)> find_(module, "shell32.dll", "FindExecutableA");
    for (const auto& error : errors) {
        const CallLog expected{"MessageBoxW(null, " + loggedText(error.text) + ", \"Erreur\", 48)"};
        execute.failCall(1, shellAnswer(error.code));
        expectResult(call(L"SysShellAppliAssocié", {text(L"C:\\x.vla")}), long32(error.code));
        EXPECT_EQ(expected, log);
        log.clear();
        execute.failCall(1, shellAnswer(error.code));
        expectResult(call(L"SysShellAppliAssocié", {text(L"C:\\x.vla"), true}), long32(error.code));
        EXPECT_EQ(expected, log);
        log.clear();
        find_.failCall(1, shellAnswer(error.code));
        EXPECT_EQ(L"", textOf(L"SysFindAppliAssocié", {text(L"C:\\x.vla"), missing(), true}));
        EXPECT_EQ(expected, log);
        log.clear();
        EXPECT_FALSE(StoredError().found);
    }
}

TEST_F(Shell, everyCodeOfFailureIsStoredWithoutAMessage) {
    Intercept<decltype(MessageBoxW)> box(module, "user32.dll", "MessageBoxW");
    Intercept<decltype(ShellExecuteA)> execute(module, "shell32.dll", "ShellExecuteA");
    Intercept<decltype(FindExecutableA)> find_(module, "shell32.dll", "FindExecutableA");
    const auto expectStored = [](const wchar_t* description, int code) {
        const StoredError stored;
        EXPECT_TRUE(stored.found);
        EXPECT_EQ(description, stored.description);
        EXPECT_EQ(L"Vorla6.VorlaSystem", stored.source);
        EXPECT_EQ(static_cast<DWORD>(code), stored.number);
    };
    for (const auto& error : errors) {
        execute.failCall(1, shellAnswer(error.code));
        expectResult(Outcome{S_OK, open(L"C:\\x.vla"), 0, 0, {}, {}, {}, 0}, long32(error.code));
        expectStored(error.text, error.code);
        find_.failCall(1, shellAnswer(error.code));
        EXPECT_EQ(L"", find(L"C:\\x.vla", true));
        expectStored(error.text, error.code);
    }
    // Success is not reported.
    for (const int code : {33, 42, 2147483647}) {
        execute.failCall(1, shellAnswer(code));
        EXPECT_EQ(describe(long32(code).raw()), describe(open(L"C:\\x.vla").raw()));
        EXPECT_FALSE(StoredError().found);
    }
    EXPECT_EQ(0, box.calls());
    // Without an error object the code is the only report.
    Intercept<decltype(CreateErrorInfo)> making(module, "oleaut32.dll", "CreateErrorInfo");
    making.failCall(1, E_OUTOFMEMORY);
    execute.failCall(1, shellAnswer(5));
    EXPECT_EQ(describe(long32(5).raw()), describe(open(L"C:\\x.vla").raw()));
    EXPECT_FALSE(StoredError().found);
}

TEST_F(Shell, theMessageIsARealBox) {
    using Texts = std::vector<std::wstring>;
    const auto document = temporary.file(L"sans programme.vlainconnu");
    const DialogWatcher watcher;
    expectResult(call(L"SysShellAppliAssocié", {text(document)}), long32(31));
    EXPECT_EQ(L"", textOf(L"SysFindAppliAssocié", {text(temporary.path(L"rien.txt")), true, true}));
    ASSERT_EQ(2u, watcher.seen().size());
    EXPECT_EQ(L"Erreur", watcher.seen()[0].title);
    EXPECT_EQ(Texts{L"Pas d'association enregistrée pour ce type de fichier"}, watcher.seen()[0].texts);
    EXPECT_EQ(1u, watcher.seen()[0].buttons.size());
    EXPECT_EQ(L"Erreur", watcher.seen()[1].title);
    EXPECT_EQ(Texts{L"Fichier non trouvé"}, watcher.seen()[1].texts);
}

TEST_F(Shell, withoutANameNothingIsAsked) {
    Intercept<decltype(MessageBoxW)> box(module, "user32.dll", "MessageBoxW");
    Intercept<decltype(ShellExecuteA)> execute(module, "shell32.dll", "ShellExecuteA");
    Intercept<decltype(FindExecutableA)> find_(module, "shell32.dll", "FindExecutableA");
    expectResult(call(L"SysShellAppliAssocié", {text(L"")}), long32(-1));
    expectResult(call(L"SysShellAppliAssocié", {text(L""), false}), long32(-1));
    EXPECT_EQ(L"-1", textOf(L"SysFindAppliAssocié", {text(L"")}));
    EXPECT_EQ(L"-1", find(L"", true));
    EXPECT_EQ(0, box.calls() + execute.calls() + find_.calls());
    EXPECT_FALSE(StoredError().found);
}

// --- Opening a document ---

TEST_F(Shell, documentsAreOpenedByTheirProgram) {
    const Association association;
    for (const wchar_t* name : {L"dossier\\simple.vla", L"dossier\\à ouvrir.vla"}) {
        temporary.folder(L"dossier");
        const auto document = temporary.file(name);
        EXPECT_GT(open(document).raw().lVal, 32);
        // By its own name in its own folder.
        EXPECT_EQ(document, writtenInto(document));
    }
    // Where the host is.
    const auto folder = temporary.folder(L"ici");
    const auto document = temporary.file(L"ici\\ici.vla");
    {
        const CurrentFolder here(folder);
        EXPECT_GT(open(L"ici.vla").raw().lVal, 32);
    }
    EXPECT_EQ(document, writtenInto(document));
    EXPECT_FALSE(StoredError().found);
}

TEST_F(Shell, documentsThatCannotBeOpenedHaveACode) {
    const auto unknown = temporary.file(L"inconnu.vlainconnu");
    EXPECT_EQ(31, open(unknown).raw().lVal);
    EXPECT_EQ(L"Pas d'association enregistrée pour ce type de fichier", StoredError().description);
    EXPECT_EQ(2, open(temporary.path(L"rien.vla")).raw().lVal);
    EXPECT_EQ(L"Fichier non trouvé", StoredError().description);
    for (const auto& path : {temporary.path(L"rien\\rien.vla"), std::wstring(L"Q:\\x.vla"), tooLong(),
                             std::wstring(L"relatif.vla"), temporary.path(L"r?en|<>.vla"),
                             L"C:\\" + std::wstring(300, L'x') + L".vla", std::wstring(40000, L'x')}) {
        EXPECT_LE(open(path).raw().lVal, 32) << narrow(path.substr(0, 40));
        EXPECT_TRUE(StoredError().found);
    }
    // An associated program that no longer exists.
    const Association association(L"C:\\rien\\rien.exe");
    EXPECT_EQ(2, open(temporary.file(L"orphelin.vla")).raw().lVal);
}

TEST_F(Shell, whatReachesTheShell) {
    CallLog log;
    Intercept<decltype(ShellExecuteA)> execute(module, "shell32.dll", "ShellExecuteA", &log);
    execute.answer([](HWND window, LPCSTR, LPCSTR, LPCSTR, LPCSTR, INT) {
        EXPECT_EQ(GetDesktopWindow(), window);
        return shellAnswer(33);
    });
    const auto folder = temporary.folder(L"dossier");
    open(L"C:\\a b\\f.vla");
    open(L"\\\\srv\\part\\f.vla");
    open(L"sous\\f.vla");
    const auto asked = [](const char* where) {
        return std::string("ShellExecuteA(set, \"Open\", \"f.vla\", null, \"") + where + "\", 1)";
    };
    EXPECT_EQ((CallLog{asked("C:\\a b\\"), asked("\\\\srv\\part\\"), asked("sous\\")}), log);
    log.clear();
    // An existing folder is all folder; a bare name is looked for where the host is.
    open(folder);
    const CurrentFolder here(folder);
    open(L"f.vla");
    ASSERT_EQ(2u, log.size());
    const auto where = log[1].find("dossier\\\", 1)");
    EXPECT_NE(std::string::npos, log[0].find("\"Open\", \"\", null"));
    EXPECT_NE(std::string::npos, where) << log[1];
    EXPECT_EQ(0u, log[1].find("ShellExecuteA(set, \"Open\", \"f.vla\", null, "));
    // The longest path that is passed to the shell has 259 characters.
    log.clear();
    for (const std::size_t length : {259u, 260u})
        EXPECT_EQ(length < 260 ? 33 : 2, open(L"C:\\" + std::wstring(length - 7, L'x') + L".vla").raw().lVal);
    EXPECT_EQ(1u, log.size());
    // If the current folder cannot be read, the shell chooses.
    log.clear();
    Intercept<decltype(GetCurrentDirectoryA)> current(module, "kernel32.dll", "GetCurrentDirectoryA");
    for (const DWORD answered : {0u, 260u, 5000u}) {
        current.failCall(1, answered);
        open(L"f.vla");
        EXPECT_EQ(asked(""), log.back()) << answered;
    }
}

// --- Finding a program ---

// The files of the temporary folder that placeholders would be.
std::vector<std::wstring> placeholders() {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    const FileSearch search(FindFirstFileW((std::wstring(folder) + L"vla*").c_str(), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found))
        names.push_back(found.cFileName);
    return names;
}

class Finding : public Shell {
protected:
    Finding() {
        // Looks at the file that the shell is asked about while it is asked.
        finding.answer([this](LPCSTR name, LPCSTR folder, LPSTR result) {
            asked = std::string(folder) + name;
            attributes = GetFileAttributesA(asked.c_str());
            return finding.callOriginal(name, folder, result);
        });
    }
    ~Finding() override { EXPECT_EQ(before, placeholders()); }

    const std::vector<std::wstring> before = placeholders();
    const Association association;
    std::string asked;
    DWORD attributes = 0;
    Intercept<decltype(FindExecutableA)> finding{module, "shell32.dll", "FindExecutableA"};
};

bool sameFile(const std::wstring& one, const std::wstring& other) {
    wchar_t longOne[MAX_PATH] = L"", longOther[MAX_PATH] = L"";
    GetLongPathNameW(one.c_str(), longOne, MAX_PATH);
    GetLongPathNameW(other.c_str(), longOther, MAX_PATH);
    return *longOne && lstrcmpiW(longOne, longOther) == 0;
}

TEST_F(Finding, programsOfExistingFiles) {
    const auto file = temporary.file(L"là.vla", "contenu");
    for (const bool noFile : {false, true}) {
        const auto program = find(file, noFile);
        EXPECT_TRUE(sameFile(childPath(), program)) << narrow(program);
    }
    EXPECT_EQ(2, finding.calls());
    const CurrentFolder here(temporary.path());
    EXPECT_TRUE(sameFile(childPath(), find(L"là.vla")));
    // The file is as it was.
    EXPECT_EQ(3u, contentOf(file).size());
    EXPECT_FALSE(StoredError().found);
}

TEST_F(Finding, aMissingFileIsMadeForTheCall) {
    const auto file = temporary.path(L"rien é.vla");
    EXPECT_TRUE(sameFile(childPath(), find(file)));
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, attributes);
    EXPECT_NE(std::string::npos, asked.find("\\rien \xE9.vla"));
    EXPECT_FALSE(TemporaryFolder::exists(file));
    // By default too, and by a variable, which stays.
    EXPECT_TRUE(sameFile(childPath(), textOf(L"SysFindAppliAssocié", {text(file)})));
    Variant noFile(false);
    EXPECT_TRUE(
        sameFile(childPath(), textOf(L"SysFindAppliAssocié", {text(file), false, byReference(noFile)})));
    EXPECT_EQ(describe(Variant(false).raw()), describe(noFile.raw()));
    EXPECT_FALSE(TemporaryFolder::exists(file));
    EXPECT_FALSE(StoredError().found);

    noFile = true;
    EXPECT_EQ(L"", textOf(L"SysFindAppliAssocié", {text(file), false, byReference(noFile)}));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, attributes);
    EXPECT_EQ(L"Fichier non trouvé", StoredError().description);
}

TEST_F(Finding, withoutItsFolderItIsMadeAmongTemporaryFiles) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    for (const auto& file : {temporary.path(L"rien\\x.vla"), std::wstring(L"Q:\\rien.vla"),
                             std::wstring(L"nulle part.vla"), temporary.path(L"r?en|\\x.vla")}) {
        EXPECT_TRUE(sameFile(childPath(), find(file))) << narrow(file);
        EXPECT_NE(INVALID_FILE_ATTRIBUTES, attributes);
        EXPECT_TRUE(asked.ends_with(".vla")) << asked;
        EXPECT_FALSE(TemporaryFolder::exists(file));
        EXPECT_EQ(before, placeholders());
    }
    EXPECT_TRUE(asked.starts_with(std::string(folder, folder + wcslen(folder)))) << asked;
    EXPECT_FALSE(StoredError().found);
    // Without an extension it has the one of temporary files, and no program.
    EXPECT_EQ(L"", find(L"Q:\\rien"));
    EXPECT_TRUE(asked.ends_with(".tmp")) << asked;
}

TEST_F(Finding, whatIsNoFileNamesNoProgram) {
    const auto folder = temporary.folder(L"dossier.vla");
    find(folder);
    EXPECT_TRUE(TemporaryFolder::exists(folder));
    for (const auto& path :
         {temporary.path(L"r?en|.vla"), temporary.path(L"x.vlainconnu"), tooLong(),
          temporary.path(std::wstring(5000, L'x') + L".vlainconnu"), std::wstring(40000, L'y')}) {
        EXPECT_EQ(L"", find(path)) << narrow(path.substr(0, 40));
        EXPECT_TRUE(StoredError().found);
        EXPECT_EQ(L"", find(path, true)) << narrow(path.substr(0, 40));
        EXPECT_TRUE(StoredError().found);
    }
}

TEST_F(Finding, theProgramsPathMayFillTheSystemsBuffer) {
    finding.answer([](LPCSTR, LPCSTR, LPSTR result) {
        std::memset(result, 'x', MAX_PATH - 1);
        result[MAX_PATH - 1] = '\0';
        return shellAnswer(33);
    });
    EXPECT_EQ(std::wstring(MAX_PATH - 1, L'x'), find(L"C:\\x.vla", true));
    finding.answer([](LPCSTR, LPCSTR, LPSTR result) {
        std::strcpy(result, "C:\\\xE9t\xE9\\p.exe");
        return shellAnswer(33);
    });
    EXPECT_EQ(L"C:\\été\\p.exe", find(L"C:\\x.vla", true));
    // What a failed call leaves in the buffer is not used.
    finding.answer([](LPCSTR, LPCSTR, LPSTR result) {
        std::strcpy(result, "C:\\p.exe");
        return shellAnswer(31);
    });
    EXPECT_EQ(L"", find(L"C:\\x.vla", true));
}

// A file that cannot be examined is not taken for a placeholder: it is neither emptied nor deleted.
TEST_F(Finding, aFileThatCannotBeAskedAboutIsKept) {
    const auto file = temporary.file(L"gardé.vla", "contenu");
    Intercept<decltype(GetFileAttributesA)> attribute(module, "kernel32.dll", "GetFileAttributesA");
    attribute.failCall(1, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(sameFile(childPath(), find(file)));
    EXPECT_NE(std::string::npos, asked.find("\\gard\xE9.vla"));
    EXPECT_EQ(3u, contentOf(file).size());
}

// Each system call on both ways to a placeholder fails in turn. There is always an answer, no error, and no
// file left.
TEST_F(Finding, noFailureLeavesAPlaceholder) {
    Intercept<decltype(GetFileAttributesA)> attribute(module, "kernel32.dll", "GetFileAttributesA");
    Intercept<decltype(CreateFileA)> create(module, "kernel32.dll", "CreateFileA");
    Intercept<decltype(GetTempPathA)> folder(module, "kernel32.dll", "GetTempPathA");
    Intercept<decltype(GetTempFileNameA)> name(module, "kernel32.dll", "GetTempFileNameA");
    for (const auto& path : {temporary.path(L"rien.vla"), std::wstring(L"Q:\\rien.vla")}) {
        const auto calls = [&] { return attribute.calls() + create.calls() + folder.calls() + name.calls(); };
        const int start = attribute.calls();
        find(path);
        const int questions = attribute.calls() - start;
        EXPECT_GT(questions, 0);
        const auto expectHarmless = [&](auto&& fail) {
            const int already = calls();
            fail();
            const auto outcome = call(L"SysFindAppliAssocié", {text(path), false});
            EXPECT_EQ(S_OK, outcome.code);
            EXPECT_EQ(VT_BSTR, outcome.result.raw().vt);
            EXPECT_GT(calls(), already);
            EXPECT_FALSE(TemporaryFolder::exists(path));
        };
        for (int n = 1; n <= questions; ++n)
            expectHarmless([&] { attribute.failCall(n, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED); });
        expectHarmless([&] { create.failCall(1, INVALID_HANDLE_VALUE, ERROR_DISK_FULL); });
        expectHarmless([&] { folder.failCall(1, 0); });
        expectHarmless([&] { name.failCall(1, 0); });
        expectHarmless([&] { finding.failCall(1, shellAnswer(8)); });
        for (const wchar_t* left : {L"*.tmp", L"*.vla"}) {
            WIN32_FIND_DATAW found;
            EXPECT_FALSE(static_cast<bool>(FileSearch(FindFirstFileW(temporary.path(left).c_str(), &found))));
        }
    }
    // Failing to delete the file changes no result.
    Intercept<decltype(DeleteFileA)> remove(module, "kernel32.dll", "DeleteFileA");
    const auto file = temporary.path(L"reste.vla");
    remove.failCall(1, FALSE, ERROR_SHARING_VIOLATION);
    EXPECT_TRUE(sameFile(childPath(), find(file)));
    EXPECT_TRUE(TemporaryFolder::exists(file));
}

// --- Starting a program and waiting for it ---

class Waiting : public Shell {
protected:
    Waiting() { ResetEvent(event); }
    ~Waiting() override { CloseHandle(event); }

    std::wstring childThatEndsWith(int code) const {
        return L'"' + childPath() + L"\" wait " + name + L' ' + std::to_wstring(code);
    }

    const std::wstring name = L"vorla-essai-" + std::to_wstring(GetCurrentProcessId());
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, name.c_str());
};

HANDLE toSet = nullptr;
int rung = 0;

// The host's own work while it waits: at the third call it lets the child end.
void CALLBACK ring(HWND, UINT, UINT_PTR, DWORD) {
    if (++rung == 3) SetEvent(toSet);
}

TEST_F(Waiting, theHostWorksUntilTheProgramHasEnded) {
    // The last is the system's code for a process that still runs.
    for (const int code : {0, 42, -1, 259}) {
        ResetEvent(event);
        toSet = event;
        rung = 0;
        const auto timer = SetTimer(nullptr, 0, 30, &ring);
        expectResult(wait(childThatEndsWith(code)), true);
        KillTimer(nullptr, timer);
        EXPECT_GE(rung, 3);
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(event, 0));
    }
    EXPECT_FALSE(StoredError().found);
}

TEST_F(Waiting, programsThatHaveEndedAreNotMissed) {
    SetEvent(event);
    for (int i = 0; i < 3; ++i) expectResult(wait(childThatEndsWith(i)), true);
    // By reference as declared, and left as it is.
    Variant command{TextView(childThatEndsWith(5))};
    expectResult(call(L"SysShellWait", {byReference(command)}), true);
    EXPECT_EQ(describe(text(childThatEndsWith(5)).raw()), describe(command.raw()));
}

TEST_F(Waiting, whatDoesNotStartIsFalse) {
    for (const auto& command :
         {std::wstring(), std::wstring(L" "), std::wstring(L"rien-de-tel.exe"),
          std::wstring(L"C:\\rien\\rien.exe x"), temporary.file(L"texte.txt", "abc"), temporary.path(),
          tooLong(), std::wstring(40000, L'x'), std::wstring(L"r?en|<>.exe")})
        expectResult(wait(command), false, narrow(command.substr(0, 40)));
}

TEST_F(Waiting, windowsHaveTheStyleThatHostsGiveThem) {
    SetEvent(event);
    CallLog log;
    Intercept<decltype(CreateProcessA)> create(module, "kernel32.dll", "CreateProcessA", &log);
    std::vector<int> styles;
    create.answer([&](LPCSTR program, LPSTR line, LPSECURITY_ATTRIBUTES process, LPSECURITY_ATTRIBUTES thread,
                      WINBOOL inherit, DWORD flags, LPVOID environment, LPCSTR folder, LPSTARTUPINFOA start,
                      LPPROCESS_INFORMATION made) -> WINBOOL {
        EXPECT_EQ(nullptr, program);
        EXPECT_FALSE(inherit);
        EXPECT_EQ(DWORD{STARTF_USESHOWWINDOW}, start->dwFlags);
        styles.push_back(start->wShowWindow);
        return create.callOriginal(program, line, process, thread, inherit, flags, environment, folder, start,
                                   made);
    });
    expectResult(wait(childThatEndsWith(0)), true);
    for (const int style : {0, 1, 6, 9})
        expectResult(call(L"SysShellWait", {text(childThatEndsWith(0)), long32(style)}), true);
    EXPECT_EQ((std::vector<int>{1, 0, 1, 6, 9}), styles);
    for (const int style : {-1, 10, 32768, 65537})
        expectResult(call(L"SysShellWait", {text(childThatEndsWith(0)), long32(style)}), false);
    EXPECT_EQ(5u, styles.size());
}

TEST_F(Waiting, everyFailureIsFalseAndLeavesNoHandle) {
    const auto command = childThatEndsWith(0);
    SetEvent(event);
    expectResult(wait(command), true);
    // The runtime makes a lock for its exceptions when the first is thrown, and keeps it.
    expectResult(wait(L"rien-de-tel.exe"), false);
    const auto handles = handleCount();
    {
        Intercept<decltype(OpenProcess)> open_(module, "kernel32.dll", "OpenProcess");
        open_.failCall(1, nullptr, ERROR_ACCESS_DENIED);
        expectResult(wait(command), false);
        EXPECT_EQ(handles, handleCount());
        // The right that is asked for.
        open_.answer([&](DWORD access, WINBOOL inherit, DWORD process) {
            EXPECT_EQ(1024u, access);
            EXPECT_FALSE(inherit);
            return open_.callOriginal(access, inherit, process);
        });
        expectResult(wait(command), true);
        EXPECT_EQ(handles, handleCount());
    }
    {
        Intercept<decltype(CreateProcessA)> create(module, "kernel32.dll", "CreateProcessA");
        create.failCall(1, FALSE, ERROR_NOT_ENOUGH_MEMORY);
        expectResult(wait(command), false);
        EXPECT_EQ(handles, handleCount());
    }
    {
        Intercept<decltype(GetExitCodeProcess)> code(module, "kernel32.dll", "GetExitCodeProcess");
        ResetEvent(event);
        for (const int n : {1, 3}) {
            code.failCall(n, FALSE, ERROR_INVALID_HANDLE);
            expectResult(wait(command), false);
            EXPECT_EQ(handles, handleCount());
        }
        SetEvent(event);
    }
    Intercept<decltype(WideCharToMultiByte)> narrowing(module, "kernel32.dll", "WideCharToMultiByte");
    narrowing.failCall(1, 0);
    expectResult(wait(command), false);
    EXPECT_EQ(handles, handleCount());
}

TEST_F(Waiting, thePauseIsATenthOfASecond) {
    Intercept<decltype(WaitForSingleObject)> pause(module, "kernel32.dll", "WaitForSingleObject");
    std::vector<DWORD> pauses;
    pause.answer([&](HANDLE handle, DWORD milliseconds) {
        if (milliseconds > 0) pauses.push_back(milliseconds);
        if (pauses.size() == 3) SetEvent(event);
        return pause.callOriginal(handle, milliseconds);
    });
    expectResult(wait(childThatEndsWith(0)), true);
    EXPECT_GE(pauses.size(), 3u);
    for (const DWORD length : pauses) EXPECT_EQ(100u, length);
}

TEST_F(Waiting, nothingIsLeftBehind) {
    const Association association;
    SetEvent(event);
    const auto unknown = temporary.file(L"inconnu.vlainconnu");
    const auto cycle = [&] {
        find(temporary.path(L"rien.vla"));
        find(L"Q:\\rien.vla");
        find(temporary.path(L"rien.vla"), true);
        open(unknown);
        open(L"");
        expectResult(wait(L"rien-de-tel.exe"), false);
    };
    for (int i = 0; i < 5; ++i) cycle();
    expectResult(wait(childThatEndsWith(0)), true);
    SetErrorInfo(0, nullptr);
    const auto handles = handleCount();
    const MemoryCount count;
    for (int i = 0; i < 25; ++i) cycle();
    for (int i = 0; i < 5; ++i) expectResult(wait(childThatEndsWith(0)), true);
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(handles, handleCount());
}

}  // namespace
}  // namespace vorla::test
