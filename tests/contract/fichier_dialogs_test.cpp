// VorlaFichier's dialogs. Real ones are opened, and read, used and answered by a watcher. Where Wine's
// dialogs differ from Windows' or cannot be made to fail, the requests to the system are tested.
#include <shlobj.h>

#include <algorithm>

#include "contract/component.h"
#include "support/browse_dialog.h"
#include "support/dialog_watcher.h"
#include "support/failing_calls.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

constexpr std::uint16_t numberOfFichier = 5;

using Texts = std::vector<std::wstring>;

bool contains(const Texts& texts, const std::wstring& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

std::wstring currentDirectory() {
    wchar_t path[MAX_PATH] = L"";
    GetCurrentDirectoryW(MAX_PATH, path);
    return path;
}

// Another current directory as long as this exists.
class CurrentDirectory {
public:
    explicit CurrentDirectory(const std::wstring& path) { EXPECT_TRUE(SetCurrentDirectoryW(path.c_str())); }
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;
    ~CurrentDirectory() { EXPECT_TRUE(SetCurrentDirectoryW(before_.c_str())); }

private:
    const std::wstring before_ = currentDirectory();
};

LPITEMIDLIST itemOf(const std::wstring& path) {
    LPITEMIDLIST item = nullptr;
    EXPECT_EQ(S_OK, SHParseDisplayName(path.c_str(), nullptr, &item, 0, nullptr));
    return item;
}

class FichierDialogs : public testing::Test {
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
    std::wstring folderFrom(const std::wstring& start) {
        readTheWayTo(temporary.path(L"\\"));
        return textOf(L"GetFolder", {text(L"Titre"), text(start)});
    }

    const Component component;
    const Dispatch object = component.create(numberOfFichier);
    const TemporaryFolder temporary;
};

TEST_F(FichierDialogs, aFolderIsChosen) {
    const auto folder = temporary.folder(L"dossier été €");
    std::wstring selected;
    const DialogWatcher watcher([&](HWND dialog) {
        selected = BrowseDialog(dialog).selected();
        return IDOK;
    });
    readTheWayTo(folder);
    EXPECT_EQ(folder, textOf(L"GetFolder", {text(L"Où l'été ?"), text(folder)}));
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_TRUE(contains(watcher.seen()[0].texts, L"Où l'été ?"));
    EXPECT_EQ(L"dossier été €", selected);
    // OK, Cancel, and the button for a new folder.
    EXPECT_EQ(3u, watcher.seen()[0].buttons.size());
}

TEST_F(FichierDialogs, anotherFolderIsChosenThanTheOneShown) {
    temporary.folder(L"dedans");
    bool found = false;
    const DialogWatcher watcher([&](HWND dialog) {
        found = BrowseDialog(dialog).select(L"dedans");
        return IDOK;
    });
    EXPECT_EQ(temporary.path(L"dedans"), folderFrom(temporary.path()));
    EXPECT_TRUE(found);
}

TEST_F(FichierDialogs, cancelGivesNothing) {
    const DialogWatcher watcher(IDCANCEL);
    EXPECT_EQ(L"", folderFrom(temporary.path()));
    EXPECT_EQ(L"", textOf(L"GetFolder", {text(L"")}));
    EXPECT_EQ(L"", textOf(L"GetComputer", {text(L"Un poste")}));
    EXPECT_EQ(L"", textOf(L"GetPrinter", {text(L"Une imprimante")}));
    ASSERT_EQ(4u, watcher.seen().size());
    EXPECT_TRUE(contains(watcher.seen()[2].texts, L"Un poste"));
    EXPECT_TRUE(contains(watcher.seen()[3].texts, L"Une imprimante"));
    EXPECT_EQ(2u, watcher.seen()[3].buttons.size());
}

TEST_F(FichierDialogs, theDialogOpensOnAFolderThatExists) {
    const auto folder = temporary.folder(L"départ");
    const auto file = temporary.file(L"départ\\fichier.txt");
    const DialogWatcher watcher;
    EXPECT_EQ(folder, folderFrom(folder));
    EXPECT_EQ(folder, folderFrom(folder + L"\\"));
    EXPECT_EQ(folder, folderFrom(file));
    // A file's folder counts, not the file.
    EXPECT_EQ(folder, folderFrom(folder + L"\\rien.txt"));
    // The variable of the host stays as it is.
    Variant variable{TextView(file)};
    EXPECT_EQ(folder, textOf(L"GetFolder", {text(L"Titre"), byReference(variable)}));
    EXPECT_EQ(describe(text(file).raw()), describe(variable.raw()));
    EXPECT_EQ(5u, watcher.seen().size());
}

TEST_F(FichierDialogs, otherwiseItOpensOnTheCurrentDirectory) {
    const auto here = temporary.folder(L"ici é");
    const CurrentDirectory current(here);
    const DialogWatcher watcher;
    readTheWayTo(here);
    EXPECT_EQ(here, textOf(L"GetFolder", {text(L"Titre")}));
    EXPECT_EQ(here, textOf(L"GetFolder", {text(L"Titre"), missing()}));
    for (const std::wstring start : {L"", L"C:\\Sans\\", L"C:\\Sans\\rien.txt", L"Q:\\", L"sans", L"?*<>|",
                                     L":::", L"\\\\personne\\rien\\"})
        EXPECT_EQ(here, folderFrom(start)) << narrow(start);
    EXPECT_EQ(here, folderFrom(L"C:\\" + std::wstring(40000, L'x') + L"\\"));
    EXPECT_EQ(here, currentDirectory());
}

TEST_F(FichierDialogs, withoutLeaveThereIsNoButtonForANewFolder) {
    const DialogWatcher watcher;
    readTheWayTo(temporary.path());
    EXPECT_EQ(temporary.path(), textOf(L"GetFolder", {text(L"Titre"), text(temporary.path()), false}));
    Variant yes(true), no(false);
    textOf(L"GetFolder", {text(L"Titre"), text(temporary.path()), byReference(no)});
    textOf(L"GetFolder", {text(L"Titre"), text(temporary.path()), byReference(yes)});
    textOf(L"GetFolder", Arguments({text(L"Titre")}).named(2, false));
    ASSERT_EQ(4u, watcher.seen().size());
    EXPECT_EQ(2u, watcher.seen()[0].buttons.size());
    EXPECT_EQ(2u, watcher.seen()[1].buttons.size());
    EXPECT_EQ(3u, watcher.seen()[2].buttons.size());
    EXPECT_EQ(2u, watcher.seen()[3].buttons.size());
    EXPECT_EQ(describe(Variant(true).raw()), describe(yes.raw()));
    EXPECT_EQ(describe(Variant(false).raw()), describe(no.raw()));
}

TEST_F(FichierDialogs, filesAreShownAndChosenWhenAskedFor) {
    const auto file = temporary.file(L"fichier.txt");
    temporary.folder(L"dossier");
    Texts below;
    const auto lookAndChoose = [&](HWND dialog) {
        const BrowseDialog browse(dialog);
        below = browse.below();
        browse.select(L"fichier.txt");
        return IDOK;
    };
    const DialogWatcher watcher(lookAndChoose);
    EXPECT_EQ(temporary.path(), folderFrom(temporary.path()));
    EXPECT_EQ(Texts{L"dossier"}, below);
    EXPECT_EQ(file, textOf(L"GetFolder", {text(L"Titre"), text(temporary.path()), true, true}));
    EXPECT_EQ((Texts{L"dossier", L"fichier.txt"}), below);
    EXPECT_EQ(file, textOf(L"GetFolder", Arguments({text(L"Titre"), text(file)}).named(3, true)));
}

TEST_F(FichierDialogs, titlesOfAnyLength) {
    const DialogWatcher watcher(IDCANCEL);
    textOf(L"GetFolder", {text(std::wstring(2000, L'é'))});
    textOf(L"GetFolder", {text(std::wstring(L"avant\0après", 11))});
    ASSERT_EQ(2u, watcher.seen().size());
    EXPECT_TRUE(contains(watcher.seen()[1].texts, L"avant"));
}

// The requests that the dialogs make. They are answered with an item of the tree and, in the caller's buffer,
// a name.
class Requests : public FichierDialogs {
protected:
    Requests() {
        dialog.answer([this](BROWSEINFOA* request) -> LPITEMIDLIST {
            flags.push_back(request->ulFlags);
            owner = request->hwndOwner;
            title = request->lpszTitle;
            rooted = request->pidlRoot ? IsEqual(request->pidlRoot) : 0;
            callback = request->lpfn;
            parameter = request->lParam;
            if (whileOpen) whileOpen();
            strcpy(request->pszDisplayName, name.c_str());
            return cancelled ? nullptr : itemOf(temporary.path());
        });
    }

    // The special folder that an item is, of the two that matter.
    static int IsEqual(LPCITEMIDLIST item) {
        for (const int known : {CSIDL_NETWORK, CSIDL_PRINTERS}) {
            LPITEMIDLIST other = nullptr;
            SHGetSpecialFolderLocation(nullptr, known, &other);
            const bool same = ILIsEqual(item, other);
            CoTaskMemFree(other);
            if (same) return known;
        }
        return -1;
    }

    Intercept<decltype(SHBrowseForFolderA)> dialog{component.module(), "shell32.dll", "SHBrowseForFolderA"};
    std::vector<UINT> flags;
    HWND owner = nullptr;
    std::string title;
    int rooted = 0;
    BFFCALLBACK callback = nullptr;
    LPARAM parameter = 0;
    bool cancelled = false;
    std::string name = "NOM";
    std::function<void()> whileOpen;
};

TEST_F(Requests, foldersByTheirFlags) {
    Intercept<decltype(GetForegroundWindow)> foreground(component.module(), "user32.dll",
                                                        "GetForegroundWindow");
    const HWND host = GetDesktopWindow();
    foreground.answer([host] { return host; });
    for (const bool mayCreate : {true, false})
        for (const bool filesToo : {false, true})
            EXPECT_EQ(temporary.path(), textOf(L"GetFolder", {text(L"Été"), text(L""), mayCreate, filesToo}));
    EXPECT_EQ((std::vector<UINT>{321, 321 + 16384, 833, 833 + 16384}), flags);
    EXPECT_EQ("\xC9t\xE9", title);
    EXPECT_EQ(host, owner);
    EXPECT_EQ(0, rooted);
    // Without the optional ones.
    textOf(L"GetFolder", {text(L"Été")});
    EXPECT_EQ(321u, flags.back());
}

TEST_F(Requests, computersAndPrinters) {
    EXPECT_EQ(L"NOM", textOf(L"GetComputer", {text(L"Poste ?")}));
    EXPECT_EQ(4096u, flags.back());
    EXPECT_EQ(CSIDL_NETWORK, rooted);
    EXPECT_EQ("Poste ?", title);
    EXPECT_EQ(nullptr, callback);
    EXPECT_EQ(GetForegroundWindow(), owner);
    name = "Imprimante \xE9t\xE9";
    EXPECT_EQ(L"Imprimante été", textOf(L"GetPrinter", {text(L"")}));
    EXPECT_EQ(8768u, flags.back());
    EXPECT_EQ(CSIDL_PRINTERS, rooted);
    EXPECT_EQ(nullptr, callback);
    // The result is empty whatever the dialog has left in the buffer.
    cancelled = true;
    EXPECT_EQ(L"", textOf(L"GetComputer", {text(L"")}));
    EXPECT_EQ(L"", textOf(L"GetPrinter", {text(L"")}));
}

TEST_F(Requests, namesThatFillTheBuffer) {
    name = std::string(259, 'n');
    EXPECT_EQ(std::wstring(259, L'n'), textOf(L"GetComputer", {text(L"")}));
}

// The folder is selected once the dialog is ready, by a message with its path.
TEST_F(Requests, theStartFolderIsSelectedWhenTheDialogIsReady) {
    const auto folder = temporary.folder(L"ici é");
    struct Sent {
        UINT message;
        WPARAM isText;
        std::string path;
    };
    std::vector<Sent> sent;
    Intercept<decltype(SendMessageA)> message(component.module(), "user32.dll", "SendMessageA");
    message.answer([&](HWND window, UINT number, WPARAM isText, LPARAM path) -> LRESULT {
        EXPECT_EQ(reinterpret_cast<HWND>(42), window);
        sent.push_back({number, isText, reinterpret_cast<const char*>(path)});
        return 0;
    });
    Intercept<decltype(GetCurrentDirectoryA)> directory(component.module(), "kernel32.dll",
                                                        "GetCurrentDirectoryA");
    directory.answer([](DWORD size, char* path) -> DWORD {
        if (size < 7) return 7;
        strcpy(path, "C:\\ici");
        return 6;
    });
    whileOpen = [&] {
        for (const int notice : {BFFM_INITIALIZED, BFFM_SELCHANGED, BFFM_VALIDATEFAILEDA})
            EXPECT_EQ(0, callback(reinterpret_cast<HWND>(42), static_cast<UINT>(notice), 0, parameter));
    };
    folderFrom(folder);
    folderFrom(folder + L"\\x.txt");
    folderFrom(L"Q:\\");
    directory.answer([](DWORD, char*) -> DWORD { return 0; });
    folderFrom(L"");
    ASSERT_EQ(4u, sent.size());
    std::string expected(MAX_PATH, '\0');
    expected.resize(static_cast<std::size_t>(WideCharToMultiByte(
                        CP_ACP, 0, folder.c_str(), -1, expected.data(), MAX_PATH, nullptr, nullptr)) -
                    1);
    const std::string paths[] = {expected, expected + "\\", "C:\\ici", ""};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(0x466u, sent[i].message);
        EXPECT_EQ(1u, sent[i].isText);
        EXPECT_EQ(paths[i], sent[i].path);
    }
}

TEST_F(Requests, eachCallThatFailsGivesNothing) {
    const HMODULE module = component.module();
    dialog.failCall(1, nullptr);
    EXPECT_EQ(L"", folderFrom(temporary.path()));
    {
        Intercept<decltype(SHGetPathFromIDListA)> path(module, "shell32.dll", "SHGetPathFromIDListA");
        path.failCall(1, FALSE);
        EXPECT_EQ(L"", folderFrom(temporary.path()));
    }
    {
        Intercept<decltype(SHGetSpecialFolderLocation)> root(module, "shell32.dll",
                                                             "SHGetSpecialFolderLocation");
        const int opened = dialog.calls();
        for (const wchar_t* member : {L"GetComputer", L"GetPrinter"}) {
            root.failCall(1, E_FAIL);
            EXPECT_EQ(L"", textOf(member, {text(L"")}));
        }
        EXPECT_EQ(opened, dialog.calls());
    }
    {
        Intercept<decltype(WideCharToMultiByte)> narrowing(module, "kernel32.dll", "WideCharToMultiByte");
        for (const wchar_t* member : {L"GetFolder", L"GetComputer", L"GetPrinter"}) {
            narrowing.failCall(1, 0);
            EXPECT_EQ(L"", textOf(member, {text(L"Titre")}));
        }
    }
    {
        Intercept<decltype(MultiByteToWideChar)> widening(module, "kernel32.dll", "MultiByteToWideChar");
        for (const wchar_t* member : {L"GetFolder", L"GetComputer", L"GetPrinter"})
            for (const int number : {1, 2}) {
                widening.failCall(number, 0);
                EXPECT_EQ(L"", textOf(member, {text(L"Titre")})) << number;
            }
    }
    {
        // A folder whose attributes cannot be read does not exist.
        Intercept<decltype(GetFileAttributesA)> attributes(module, "kernel32.dll", "GetFileAttributesA");
        attributes.answer([](const char*) { return INVALID_FILE_ATTRIBUTES; });
        EXPECT_EQ(temporary.path(), folderFrom(temporary.path()));
    }
    Intercept<decltype(GetForegroundWindow)> foreground(module, "user32.dll", "GetForegroundWindow");
    foreground.failCall(1, nullptr);
    EXPECT_EQ(temporary.path(), folderFrom(temporary.path()));
    EXPECT_EQ(nullptr, owner);
}

TEST_F(Requests, withoutMemoryThereIsNoChoice) {
    dialog.answer([](BROWSEINFOA* request) {
        strcpy(request->pszDisplayName, "NOM");
        return static_cast<LPITEMIDLIST>(CoTaskMemAlloc(2));
    });
    Intercept<decltype(SHGetPathFromIDListA)> path(component.module(), "shell32.dll", "SHGetPathFromIDListA");
    path.answer([](LPCITEMIDLIST, char* written) -> BOOL {
        strcpy(written, "C:\\un dossier au nom assez long");
        return TRUE;
    });
    const std::string noMemoryLeft = "failure";
    const auto failing = [&](const wchar_t* member, const Arguments& arguments, const wchar_t* right) {
        const auto answer = [&] {
            const auto outcome = call(member, arguments);
            return outcome.code == S_OK ? describe(outcome.result.raw()) : noMemoryLeft;
        };
        EXPECT_GT(failEachCall(component.module(), noMemory(), narrow(member), answer,
                               describe(text(right).raw()), {describe(text(L"").raw()), noMemoryLeft}),
                  0)
            << narrow(member);
    };
    const auto longTitle = text(L"Un titre plus long que ce qui tient sans mémoire");
    failing(L"GetFolder", {longTitle, text(temporary.path())}, L"C:\\un dossier au nom assez long");
    failing(L"GetComputer", {longTitle}, L"NOM");
    failing(L"GetPrinter", {longTitle}, L"NOM");
}

TEST_F(Requests, nothingIsLeftBehind) {
    Intercept<decltype(SHGetPathFromIDListA)> path(component.module(), "shell32.dll", "SHGetPathFromIDListA");
    expectNothingLeft([&] {
        dialog.answer([](BROWSEINFOA* request) {
            strcpy(request->pszDisplayName, "NOM");
            return static_cast<LPITEMIDLIST>(CoTaskMemAlloc(2));
        });
        path.answer([](LPCITEMIDLIST, char* written) -> BOOL {
            strcpy(written, "C:\\");
            return TRUE;
        });
        invoke(object.get(), L"GetFolder", {text(L"Titre"), text(L"C:\\")});
        path.answer([](LPCITEMIDLIST, char*) -> BOOL { return FALSE; });
        invoke(object.get(), L"GetFolder", {text(L"Titre"), text(L"Q:\\x")});
        invoke(object.get(), L"GetComputer", {text(L"Titre")});
        invoke(object.get(), L"GetPrinter", {text(L"Titre")});
        dialog.answer([](BROWSEINFOA*) -> LPITEMIDLIST { return nullptr; });
        invoke(object.get(), L"GetComputer", {text(L"Titre")});
        invoke(object.get(), L"GetFolder", {text(L"Titre")});
    });
}

TEST_F(FichierDialogs, wrongArgumentsAreRefusedByDispatch) {
    for (const wchar_t* name : {L"GetFolder", L"GetComputer", L"GetPrinter"}) {
        EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(name, {}).code) << narrow(name);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(name, {nullValue()}).code) << narrow(name);
    }
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"GetFolder", {text(L""), text(L""), text(L"peut-être")}).code);
}

}  // namespace
}  // namespace vorla::test
