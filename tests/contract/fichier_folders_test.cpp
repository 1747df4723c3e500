// VorlaFichier's creation of folders: the folders on the disk, the messages shown when creating fails (by the
// system's box and by the host's), and the effect of the user's answers.
#include <shlobj.h>

#include <algorithm>
#include <set>

#include "contract/component.h"
#include "support/browse_dialog.h"
#include "support/dialog_watcher.h"
#include "support/failing_calls.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/scripted_object.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

constexpr std::uint16_t numberOfFichier = 5;

using Texts = std::vector<std::wstring>;

// No machine has this drive; nothing can be created there.
constexpr const wchar_t* nowhere = L"Q:\\Données\\été";

std::wstring ownMessage(const std::wstring& folder) {
    return L"Impossible de créer le répertoire\r\n" + folder +
           L"\r\n\r\nUne fenêtre va s'ouvrir dans laquelle vous pourrer créer un dossier manuellement et "
           L"\r\nvous "
           L"pourrez indiquez quel est le répertoire de stockage.";
}

class FichierFolders : public testing::Test {
protected:
    Outcome call(Arguments arguments) { return invoke(object.get(), L"CreateFolder", std::move(arguments)); }
    std::wstring created(Arguments arguments) {
        const auto outcome = call(std::move(arguments));
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(VT_BSTR, outcome.result.raw().vt);
        return outcome.result.raw().vt == VT_BSTR ? std::wstring(viewOf(outcome.result.raw().bstrVal)) : L"?";
    }
    std::wstring created(const std::wstring& folder) { return created({text(folder)}); }

    const Component component;
    const Dispatch object = component.create(numberOfFichier);
    const TemporaryFolder temporary;
    CallLog log;
    Intercept<decltype(CreateDirectoryA)> creation{component.module(), "kernel32.dll", "CreateDirectoryA",
                                                   &log};
};

TEST_F(FichierFolders, everyMissingLevelIsCreated) {
    const auto a = temporary.folder(L"A");
    EXPECT_EQ(a + L"\\B é\\C\\", created(a + L"\\B é\\C"));
    EXPECT_TRUE(TemporaryFolder::exists(a + L"\\B é\\C"));
    EXPECT_EQ(2, creation.calls());
    EXPECT_EQ(a + L"\\D\\", created(a + L"\\D\\"));
    EXPECT_TRUE(TemporaryFolder::exists(a + L"\\D"));
    EXPECT_EQ(3, creation.calls());
    EXPECT_EQ(a + L"\\E\\", created({text(a + L"\\E"), missing(), missing(), missing()}));
    EXPECT_EQ(4, creation.calls());
    // Backslashes in excess are kept and end no level.
    EXPECT_EQ(a + L"\\\\F\\\\G\\", created(a + L"\\\\F\\\\G"));
    EXPECT_TRUE(TemporaryFolder::exists(a + L"\\F\\G"));
    EXPECT_EQ(6, creation.calls());
}

TEST_F(FichierFolders, aFolderThatExistsIsGivenBack) {
    EXPECT_EQ(temporary.path() + L"\\", created(temporary.path()));
    EXPECT_EQ(temporary.path() + L"\\", created(temporary.path() + L"\\"));
    EXPECT_EQ(L"C:\\", created(L"C:"));
    EXPECT_EQ(L"C:\\", created(L"C:\\"));
    EXPECT_EQ(0, creation.calls());
}

TEST_F(FichierFolders, whatCannotBeCreatedGivesNothingSilently) {
    const auto file = temporary.file(L"fichier");
    const DialogWatcher watcher;
    EXPECT_EQ(L"", created(nowhere));
    EXPECT_EQ(L"", created({text(nowhere), nothing(), text(L"Message"), long32(-1)}));
    EXPECT_EQ(L"", created(file));
    EXPECT_EQ(L"", created(file + L"\\dedans"));
    EXPECT_EQ(L"", created(temporary.path(L"a?b\\c")));
    EXPECT_EQ(L"", created(temporary.path(L"a<b")));
    EXPECT_EQ(L"", created(temporary.path(std::wstring(300, L'x'))));
    EXPECT_EQ(L"", created(L":::"));
    EXPECT_TRUE(watcher.seen().empty());
    EXPECT_TRUE(TemporaryFolder::exists(file));
}

TEST_F(FichierFolders, withoutAFolderNothingIsAsked) {
    const DialogWatcher watcher;
    EXPECT_EQ(L"", created(L""));
    EXPECT_EQ(L"", created({text(L""), missing(), text(L"Message"), long32(0)}));
    EXPECT_EQ(0, creation.calls());
    EXPECT_TRUE(watcher.seen().empty());
}

TEST_F(FichierFolders, thousandsOfLevelsAreRefusedInTime) {
    std::wstring deep = L"Q:";
    for (int i = 0; i < 2000; ++i) deep += L"\\x";
    EXPECT_EQ(L"", created(deep));
    EXPECT_EQ(1, creation.calls());
}

// A host at this path, on disks that hold some folders and let others be created.
class OtherHost : public FichierFolders {
protected:
    OtherHost() {
        program.answer([this](HMODULE, wchar_t* path, DWORD size) -> DWORD {
            wcsncpy(path, host.c_str(), size);
            return static_cast<DWORD>(host.size());
        });
        creation.answer(
            [this](const char* path, SECURITY_ATTRIBUTES*) -> BOOL { return folders.insert(path).second; });
        attributes.answer([this](const char* path) -> DWORD {
            std::string name = path;
            if (name.size() > 3 && name.back() == '\\') name.pop_back();
            return folders.count(name) ? FILE_ATTRIBUTE_DIRECTORY : INVALID_FILE_ATTRIBUTES;
        });
    }

    std::wstring host = L"D:\\Application\\hote.exe";
    std::set<std::string> folders = {"C:\\", "D:\\"};
    Intercept<decltype(GetModuleFileNameW)> program{component.module(), "kernel32.dll", "GetModuleFileNameW"};
    Intercept<decltype(GetFileAttributesA)> attributes{component.module(), "kernel32.dll",
                                                       "GetFileAttributesA"};
};

TEST_F(OtherHost, aPathWithoutADriveLiesBelowTheRootOfTheHosts) {
    EXPECT_EQ(L"D:\\Data\\Logs\\", created(L"Data\\Logs"));
    EXPECT_EQ((CallLog{"CreateDirectoryA(\"D:\\Data\", null)", "CreateDirectoryA(\"D:\\Data\\Logs\", null)"}),
              log);
    EXPECT_EQ(L"D:\\Data\\", created(L"Data"));
    EXPECT_EQ(L"D:\\\\Data\\", created(L"\\Data"));
    EXPECT_EQ(L"D:\\..\\x\\", created(L"..\\x"));
    // For a path with a drive, the host's own path does not matter.
    EXPECT_EQ(L"C:\\Data\\", created(L"C:\\Data"));
    host = L"\\\\srv\\part\\hote.exe";
    folders.insert("\\\\srv\\part\\");
    log.clear();
    EXPECT_EQ(L"\\\\srv\\part\\Data\\", created(L"Data"));
    EXPECT_EQ(CallLog{"CreateDirectoryA(\"\\\\srv\\part\\Data\", null)"}, log);
    host = L"";
    EXPECT_EQ(L"\\xyz\\", created(L"xyz"));
}

TEST_F(OtherHost, aPathBehindADriveWithoutItsRootIsCreatedWhereItIs) {
    EXPECT_EQ(L"C:Data\\x\\", created(L"C:Data\\x"));
    EXPECT_EQ((CallLog{"CreateDirectoryA(\"C:Data\", null)", "CreateDirectoryA(\"C:Data\\x\", null)"}), log);
}

TEST_F(OtherHost, theFirstLevelThatIsRefusedIsTheLast) {
    for (int n = 1; n <= 3; ++n) {
        folders = {"C:\\"};
        log.clear();
        creation.failCall(n, FALSE, ERROR_ACCESS_DENIED);
        EXPECT_EQ(L"", created(L"C:\\A\\B\\C")) << n;
        EXPECT_EQ(static_cast<std::size_t>(n), log.size());
    }
    // Another program has created it meanwhile.
    folders = {"C:\\"};
    creation.answer([this](const char* path, SECURITY_ATTRIBUTES*) -> BOOL {
        folders.insert(path);
        return FALSE;
    });
    EXPECT_EQ(L"C:\\A\\", created(L"C:\\A"));
}

TEST_F(OtherHost, theHostsBoxGetsEverythingItShows) {
    Variant given[5];
    std::size_t count = 0;
    ScriptedObject box;
    box.method(L"Action", [&](const ScriptedObject::Call& call) {
        count = call.count();
        for (std::size_t i = 0; i < 5 && i < count; ++i) given[i] = Variant(call.argument(i));
        return Variant(std::int16_t{2});
    });
    creation.answer([](const char*, SECURITY_ATTRIBUTES*) { return FALSE; });
    host = temporary.path(L"hote.exe");
    const auto help = temporary.file(L"hote.chm");
    EXPECT_EQ(L"", created({text(nowhere), test::object(&box), missing(), long32(4711)}));
    ASSERT_EQ(5u, count);
    EXPECT_EQ(describe(long32(4711).raw()), describe(given[0].raw()));
    EXPECT_EQ(describe(text(ownMessage(L"Q:\\Données\\été\\")).raw()), describe(given[1].raw()));
    EXPECT_EQ(describe(long32(17).raw()), describe(given[2].raw()));
    EXPECT_EQ(describe(text(L"hote").raw()), describe(given[3].raw()));
    EXPECT_EQ(describe(text(help).raw()), describe(given[4].raw()));
    // A message from the host is shown unchanged. A host may have no help file.
    host = L"D:\\hote.exe";
    EXPECT_EQ(L"", created({text(nowhere), test::object(&box), text(L"Où ranger ?\r\n"), long32(0)}));
    EXPECT_EQ(describe(long32(0).raw()), describe(given[0].raw()));
    EXPECT_EQ(describe(text(L"Où ranger ?\r\n").raw()), describe(given[1].raw()));
    EXPECT_EQ(describe(text(L"").raw()), describe(given[4].raw()));
    EXPECT_EQ(0, box.references());
}

// The user's answers.
class Answers : public FichierFolders {
protected:
    // Asks for a folder that cannot be made through a host's box that gives this back.
    std::wstring askedWith(Variant answer) {
        ScriptedObject box;
        box.method(L"Action", [&](const ScriptedObject::Call&) { return answer; });
        const auto result = created({text(nowhere), test::object(&box), text(L""), long32(0)});
        EXPECT_EQ(1u, box.logged(L"call Action"));
        EXPECT_EQ(0, box.references());
        return result;
    }
};

TEST_F(Answers, cancelInTheSystemsBox) {
    const DialogWatcher watcher(IDCANCEL);
    EXPECT_EQ(L"", created({text(nowhere), missing(), missing(), long32(0)}));
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_EQ(L"contract_tests", watcher.seen()[0].title);
    EXPECT_EQ(Texts{ownMessage(L"Q:\\Données\\été\\")}, watcher.seen()[0].texts);
    EXPECT_EQ(2u, watcher.seen()[0].buttons.size());
    EXPECT_EQ(L"", created({text(nowhere), nothing(), text(L"Où ?"), long32(1)}));
    ASSERT_EQ(2u, watcher.seen().size());
    EXPECT_EQ(Texts{L"Où ?"}, watcher.seen()[1].texts);
}

// Every dialog is answered with OK. The one for folders opens on the current directory or on the wanted
// folder.
TEST_F(Answers, okInTheSystemsBoxOpensTheDialogForFolders) {
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    SetCurrentDirectoryW(L"C:\\windows");
    const DialogWatcher watcher;
    EXPECT_EQ(L"C:\\windows\\", created({text(nowhere), missing(), missing(), long32(0)}));
    // A root has its backslash already.
    SetCurrentDirectoryW(L"C:\\");
    EXPECT_EQ(L"C:\\", created({text(nowhere), missing(), missing(), long32(0)}));
    SetCurrentDirectoryW(before);
    ASSERT_EQ(4u, watcher.seen().size());
    EXPECT_EQ(Texts{ownMessage(L"Q:\\Données\\été\\")}, watcher.seen()[0].texts);
    // The dialog has no text of its own, and a button for a new folder.
    EXPECT_EQ(Texts(), watcher.seen()[1].texts);
    EXPECT_EQ(3u, watcher.seen()[1].buttons.size());
}

TEST_F(Answers, theDialogForFoldersCanBeCancelledToo) {
    int boxes = 0;
    const DialogWatcher watcher([&](HWND) { return boxes++ == 0 ? IDOK : IDCANCEL; });
    EXPECT_EQ(L"", created({text(nowhere), missing(), missing(), long32(0)}));
    EXPECT_EQ(2u, watcher.seen().size());
}

TEST_F(Answers, everythingButCancelGoesOn) {
    const DialogWatcher watcher(IDCANCEL);
    const struct {
        Variant answer;
        bool asksForAFolder;
    } rows[] = {{long32(1), true},       {long32(2), false},   {std::int16_t{2}, false}, {2.0, false},
                {text(L"2"), false},     {text(L"1"), true},   {long32(6), true},        {long32(0), true},
                {Variant(), true},       {nullValue(), false}, {text(L"oui"), false},    {1e30, false},
                {test::nothing(), false}};
    for (const auto& row : rows) {
        const auto before = watcher.seen().size();
        EXPECT_EQ(L"", askedWith(row.answer));
        EXPECT_EQ(row.asksForAFolder ? 1u : 0u, watcher.seen().size() - before) << describe(row.answer.raw());
    }
}

TEST_F(Answers, aFolderMadeMeanwhileIsWhereTheDialogOpens) {
    const auto file = temporary.file(L"Nom");
    ScriptedObject box;
    box.method(L"Action", [&](const ScriptedObject::Call&) {
        // The user does what the message asks and deletes the file that is in the way.
        EXPECT_TRUE(::DeleteFileW(file.c_str()));
        temporary.folder(L"Nom");
        return Variant(std::int32_t{1});
    });
    Intercept<decltype(SHBrowseForFolderA)> dialog(component.module(), "shell32.dll", "SHBrowseForFolderA");
    dialog.answer([&](BROWSEINFOA* request) -> LPITEMIDLIST {
        EXPECT_STREQ("", request->lpszTitle);
        EXPECT_EQ(321u, request->ulFlags);
        LPITEMIDLIST item = nullptr;
        EXPECT_EQ(S_OK, SHParseDisplayName(temporary.path().c_str(), nullptr, &item, 0, nullptr));
        return item;
    });
    Variant variable = test::object(&box), own = text(L"Message"), owner = long32(0);
    EXPECT_EQ(temporary.path() + L"\\",
              created({text(file), byReference(variable), byReference(own), byReference(owner)}));
    EXPECT_EQ(describe(long32(0).raw()), describe(owner.raw()));
    EXPECT_EQ(1, dialog.calls());
}

TEST_F(Answers, aHostsBoxThatFailsIsTheEnd) {
    const DialogWatcher watcher;
    ScriptedObject box;
    box.method(L"Action", [](const ScriptedObject::Call&) { return Variant(std::int32_t{1}); });
    box.failCall(1, E_FAIL);
    EXPECT_EQ(L"", created({text(nowhere), test::object(&box), text(L""), long32(0)}));
    box.failCallWithNumber(1, 5);
    EXPECT_EQ(L"", created({text(nowhere), test::object(&box), text(L""), long32(0)}));
    ScriptedObject other;
    other.property(L"Caption");
    EXPECT_EQ(L"", created({text(nowhere), test::object(&other), text(L""), long32(0)}));
    EXPECT_TRUE(watcher.seen().empty());
    EXPECT_EQ(0, box.references());
    EXPECT_EQ(0, other.references());
}

TEST_F(Answers, theSystemsBoxIsAskedFor) {
    const auto help = temporary.file(L"hote.chm");
    Intercept<decltype(GetModuleFileNameW)> program(component.module(), "kernel32.dll", "GetModuleFileNameW");
    std::wstring host = temporary.path(L"hote.exe");
    program.answer([&](HMODULE, wchar_t* path, DWORD size) -> DWORD {
        wcsncpy(path, host.c_str(), size);
        return static_cast<DWORD>(host.size());
    });
    std::vector<std::wstring> opened;
    Intercept<decltype(ShellExecuteW)> execution(component.module(), "shell32.dll", "ShellExecuteW");
    execution.answer(
        [&](HWND, const wchar_t* verb, const wchar_t* file, const wchar_t*, const wchar_t*, INT) {
            EXPECT_STREQ(L"open", verb);
            opened.emplace_back(file);
            return reinterpret_cast<HINSTANCE>(33);
        });
    HWND owner = nullptr;
    Intercept<decltype(MessageBoxIndirectW)> box(component.module(), "user32.dll", "MessageBoxIndirectW");
    box.answer([&](const MSGBOXPARAMSW* asked) {
        EXPECT_EQ(17u, asked->dwStyle);
        EXPECT_STREQ(L"hote", asked->lpszCaption);
        EXPECT_STREQ(L"Message", asked->lpszText);
        owner = asked->hwndOwner;
        // The user presses F1.
        HELPINFO request{};
        asked->lpfnMsgBoxCallback(&request);
        return IDCANCEL;
    });
    const HWND window =
        CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    const auto handle = static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window));
    EXPECT_EQ(L"", created({text(nowhere), missing(), text(L"Message"), long32(handle)}));
    EXPECT_EQ(window, owner);
    EXPECT_EQ(std::vector<std::wstring>{help}, opened);
    // Without a help file F1 does nothing. A window that no longer exists owns nothing.
    DestroyWindow(window);
    host = L"D:\\hote.exe";
    EXPECT_EQ(L"", created({text(nowhere), missing(), text(L"Message"), long32(handle)}));
    EXPECT_EQ(nullptr, owner);
    EXPECT_EQ(1u, opened.size());
}

TEST_F(Answers, aBoxThatCannotBeShownIsTheEnd) {
    const DialogWatcher watcher;
    Intercept<decltype(MessageBoxIndirectW)> box(component.module(), "user32.dll", "MessageBoxIndirectW");
    for (const int answer : {0, -1}) {
        box.failCall(1, answer, ERROR_NOT_ENOUGH_MEMORY);
        EXPECT_EQ(L"", created({text(nowhere), missing(), text(L""), long32(0)}));
    }
    EXPECT_TRUE(watcher.seen().empty());
}

TEST_F(Answers, eachCallThatFailsGivesNothing) {
    const auto folder = temporary.path(L"A\\B");
    Intercept<decltype(WideCharToMultiByte)> narrowing(component.module(), "kernel32.dll",
                                                       "WideCharToMultiByte");
    // Each path that is tested or created is converted in two steps; each step fails in turn. A path that
    // cannot be converted does not exist, or is not created.
    int failed = 0;
    for (int n = 1; n < 100; ++n) {
        const int before = narrowing.calls();
        narrowing.failCall(n, 0);
        const auto result = created(folder);
        failed += result.empty();
        if (narrowing.calls() - before < n) break;
        EXPECT_TRUE(result.empty() || (result == folder + L"\\" && TemporaryFolder::exists(folder))) << n;
        RemoveDirectoryW(folder.c_str());
        RemoveDirectoryW(temporary.path(L"A").c_str());
    }
    EXPECT_GT(failed, 4);
    Intercept<decltype(GetFileAttributesA)> attributes(component.module(), "kernel32.dll",
                                                       "GetFileAttributesA");
    attributes.answer([](const char*) { return INVALID_FILE_ATTRIBUTES; });
    // All levels exist, but none is found: the first one after the root is refused.
    EXPECT_EQ(L"", created(temporary.path()));
}

// The message, the host's box and the dialog included.
TEST_F(FichierFolders, withoutMemoryThereIsNoFolder) {
    ScriptedObject box;
    box.method(L"Action", [](const ScriptedObject::Call&) { return Variant(std::int32_t{1}); });
    Intercept<decltype(SHBrowseForFolderA)> dialog(component.module(), "shell32.dll", "SHBrowseForFolderA");
    dialog.answer([](BROWSEINFOA*) { return static_cast<LPITEMIDLIST>(CoTaskMemAlloc(2)); });
    Intercept<decltype(SHGetPathFromIDListA)> path(component.module(), "shell32.dll", "SHGetPathFromIDListA");
    path.answer([](LPCITEMIDLIST, char* written) -> BOOL {
        strcpy(written, "C:\\un dossier au nom assez long");
        return TRUE;
    });
    const Variant host = test::object(&box);
    const auto answer = [&] {
        const auto outcome = call({text(nowhere), host, text(L""), long32(0)});
        return outcome.code == S_OK ? describe(outcome.result.raw()) : std::string("failure");
    };
    EXPECT_GT(failEachCall(component.module(), noMemory(), "CreateFolder", answer,
                           describe(text(L"C:\\un dossier au nom assez long\\").raw()),
                           {describe(text(L"").raw()), "failure"}),
              10);
}

TEST_F(FichierFolders, nothingIsLeftBehind) {
    ScriptedObject box;
    box.method(L"Action", [](const ScriptedObject::Call&) { return Variant(std::int32_t{1}); });
    Intercept<decltype(SHBrowseForFolderA)> dialog(component.module(), "shell32.dll", "SHBrowseForFolderA");
    dialog.answer([](BROWSEINFOA*) { return static_cast<LPITEMIDLIST>(CoTaskMemAlloc(2)); });
    Intercept<decltype(SHGetPathFromIDListA)> path(component.module(), "shell32.dll", "SHGetPathFromIDListA");
    path.answer([](LPCITEMIDLIST, char* written) -> BOOL {
        strcpy(written, "C:\\");
        return TRUE;
    });
    creation.answer([](const char*, SECURITY_ATTRIBUTES*) { return FALSE; });
    const Variant host = test::object(&box);
    expectNothingLeft([&] {
        invoke(object.get(), L"CreateFolder", {text(L"C:\\")});
        invoke(object.get(), L"CreateFolder", {text(L"Q:\\x")});
        invoke(object.get(), L"CreateFolder", {text(L"Q:\\x"), host, text(L"Message"), long32(0)});
    });
}

TEST_F(FichierFolders, wrongArgumentsAreRefusedByDispatch) {
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call({}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call({nullValue()}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call({text(nowhere), text(L"boîte")}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call({text(nowhere), nothing(), text(L""), text(L"elle")}).code);
    EXPECT_EQ(0, creation.calls());
}

}  // namespace
}  // namespace vorla::test
