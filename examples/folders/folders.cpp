// A compiled host that calls by name: it creates folders, dates and renames a file, and lets its user choose
// where to store pictures.
//
//     folders.exe folder
//
// leaves pictures of the dialogs in that folder, as the user would see them. A thread plays the user: it
// photographs each dialog and presses its OK button. Ends with 0 when every answer was as expected.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/browse_dialog.h"
#include "support/png_file.h"
#include "support/window_picture.h"

namespace {

constexpr LONG lastModification = 1;  // efdLastModification

// --- calls by name ---

class Value {
public:
    Value() { VariantInit(&value_); }
    Value(const std::wstring& text) : Value() {
        value_.vt = VT_BSTR;
        value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    Value(const wchar_t* text) : Value(std::wstring(text)) {}
    Value(LONG number) : Value() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    Value(bool truth) : Value() {
        value_.vt = VT_BOOL;
        value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Value(const Value& other) : Value() { VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)); }
    Value& operator=(const Value&) = delete;
    ~Value() { VariantClear(&value_); }

    static Value date(const SYSTEMTIME& fields) {
        Value result;
        result.value_.vt = VT_DATE;
        SYSTEMTIME copy = fields;
        SystemTimeToVariantTime(&copy, &result.value_.date);
        return result;
    }
    // An optional argument that the caller leaves out.
    static Value leftOut() {
        Value result;
        result.value_.vt = VT_ERROR;
        result.value_.scode = DISP_E_PARAMNOTFOUND;
        return result;
    }

    VARIANT* put() { return &value_; }
    const VARIANT& raw() const { return value_; }
    std::wstring text() const {
        Value written;
        VariantChangeType(&written.value_, const_cast<VARIANT*>(&value_), VARIANT_LOCALBOOL, VT_BSTR);
        return written.value_.vt == VT_BSTR
                   ? std::wstring(written.value_.bstrVal, SysStringLen(written.value_.bstrVal))
                   : std::wstring();
    }

private:
    VARIANT value_;
};

class Object {
public:
    explicit Object(const wchar_t* programId) {
        CLSID id;
        if (SUCCEEDED(CLSIDFromProgID(programId, &id)))
            CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                             reinterpret_cast<void**>(&object_));
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    ~Object() {
        if (object_) object_->Release();
    }

    explicit operator bool() const { return object_ != nullptr; }

    Value call(const wchar_t* name, std::initializer_list<Value> arguments) {
        return invoke(name, arguments, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
    }
    // The new value comes last.
    void let(const wchar_t* name, std::initializer_list<Value> arguments) {
        invoke(name, arguments, DISPATCH_PROPERTYPUT);
    }

private:
    Value invoke(const wchar_t* name, std::initializer_list<Value> arguments, WORD kind) {
        auto asked = const_cast<wchar_t*>(name);
        DISPID id = DISPID_UNKNOWN, value = DISPID_PROPERTYPUT;
        object_->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
        std::vector<VARIANT> reversed;
        for (auto argument = arguments.end(); argument != arguments.begin();)
            reversed.push_back((--argument)->raw());
        DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
        if (kind == DISPATCH_PROPERTYPUT) {
            parameters.rgdispidNamedArgs = &value;
            parameters.cNamedArgs = 1;
        }
        Value result;
        object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result.put(), nullptr, nullptr);
        return result;
    }

    IDispatch* object_ = nullptr;
};

// --- the user ---

BOOL CALLBACK findDialog(HWND window, LPARAM parameter) {
    wchar_t name[20] = L"";
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 20);
    if (process != GetCurrentProcessId() || std::wstring(name) != L"#32770" || !IsWindowVisible(window) ||
        !GetDlgItem(window, IDOK))
        return TRUE;
    *reinterpret_cast<HWND*>(parameter) = window;
    return FALSE;
}

// Plays the user as long as this exists, and answers the dialogs in the order of their pictures.
class User {
public:
    explicit User(std::vector<std::wstring> pictures)
        : pictures_(std::move(pictures)), thread_(CreateThread(nullptr, 0, &sit, this, 0, nullptr)) {}
    User(const User&) = delete;
    User& operator=(const User&) = delete;
    ~User() {
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
    }

private:
    static DWORD WINAPI sit(void* self) {
        for (const auto& picture : static_cast<User*>(self)->pictures_) answer(picture);
        return 0;
    }

    static void answer(const std::wstring& picture) {
        constexpr DWORD glance = 20, reading = 300;  // milliseconds
        constexpr int patience = 1000;
        HWND dialog = nullptr;
        for (int i = 0; i < patience && !dialog; ++i) {
            Sleep(glance);
            EnumWindows(&findDialog, reinterpret_cast<LPARAM>(&dialog));
        }
        if (!dialog) return;
        // Without a screen, a program's first window is active without being told.
        SendMessageW(dialog, WM_NCACTIVATE, TRUE, 0);
        // In a dialog for folders, unfolds the selected folder so that its contents are visible.
        vorla::test::BrowseDialog(dialog).below();
        Sleep(reading);
        if (!photograph(dialog, picture)) std::fprintf(stderr, "no picture of a dialog\n");
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        while (IsWindow(dialog) && IsWindowVisible(dialog)) Sleep(glance);
    }

    static bool photograph(HWND dialog, const std::wstring& picture) {
        const auto bitmap = picture + L".bmp", png = picture + L".png";
        const bool done =
            vorla::test::saveWindowPicture(dialog, bitmap) && vorla::test::saveAsPng(bitmap, png);
        DeleteFileW(bitmap.c_str());
        return done;
    }

    const std::vector<std::wstring> pictures_;
    const HANDLE thread_;
};

// --- the host ---

void print(const std::wstring& line) {
    std::string utf8(line.size() * 3 + 1, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()),
                                           utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(length));
    std::printf("%s\n", utf8.c_str());
}

class Host {
public:
    explicit Host(std::wstring pictures) : pictures_(std::move(pictures)) {
        wchar_t shortForm[MAX_PATH] = L"", path[MAX_PATH] = L"";
        GetTempPathW(MAX_PATH, shortForm);
        GetLongPathNameW(shortForm, path, MAX_PATH);
        root_ = std::wstring(path) + L"Photothèque";
    }

    int run() {
        if (!fichier_) {
            std::fprintf(stderr, "Vorla6 is not registered\n");
            return 1;
        }
        sweep();
        makeFolders();
        nameAndDate();
        chooseFolder();
        chooseFile();
        chooseWhenRefused();
        sweep();
        print(agreed_ ? L"photothèque rangée" : L"DÉSACCORD");
        return agreed_ ? 0 : 1;
    }

private:
    void makeFolders() {
        print(L"Dossiers");
        show(L"CreateFolder", fichier_.call(L"CreateFolder", {inside(L"2026\\Été")}), inside(L"2026\\Été\\"));
        show(L"CreateFolder", fichier_.call(L"CreateFolder", {inside(L"2026\\Été\\Corse")}),
             inside(L"2026\\Été\\Corse\\"));
        show(L"CreateFolder", fichier_.call(L"CreateFolder", {L"Q:\\Sauvegarde"}), L"");
    }

    void nameAndDate() {
        print(L"Fichiers");
        const auto taken = inside(L"2026\\Été\\DSC00017.jpg"), named = inside(L"2026\\Été\\Plage.jpg");
        makeFile(taken);
        makeFile(inside(L"Vrac"));
        show(L"RenameFile", fichier_.call(L"RenameFile", {taken, named}), Value(true).text());
        show(L"RenameFile", fichier_.call(L"RenameFile", {named, inside(L"Vrac")}), Value(false).text());
        SYSTEMTIME summer{};
        summer.wYear = 2026;
        summer.wMonth = 7;
        summer.wDay = 14;
        summer.wHour = 22;
        summer.wMinute = 45;
        const auto date = Value::date(summer);
        fichier_.let(L"FileDate", {named, lastModification, date});
        show(L"FileDate", fichier_.call(L"FileDate", {named, lastModification}), date.text());
        const auto temporary = fichier_.call(L"GetTempFileName", {L"pho"}).text();
        show(L"FileExist (GetTempFileName)", fichier_.call(L"FileExist", {temporary}), Value(false).text());
    }

    void chooseFolder() {
        print(L"L'utilisateur choisit un dossier");
        vorla::test::readTheWayTo(inside(L"2026\\Été\\"));
        const User user({picture(L"folder")});
        show(L"GetFolder",
             fichier_.call(L"GetFolder", {L"Où ranger les photographies de l'été ?", inside(L"2026\\Été")}),
             inside(L"2026\\Été"));
    }

    void chooseFile() {
        print(L"Il peut aussi choisir un fichier, mais ne crée pas de dossier");
        vorla::test::readTheWayTo(inside(L"2026\\Été\\"));
        const User user({picture(L"files")});
        show(L"GetFolder",
             fichier_.call(L"GetFolder",
                           {L"Quelle photographie montrer ?", inside(L"2026\\Été\\Plage.jpg"), false, true}),
             inside(L"2026\\Été"));
    }

    // A file is in the place of the wanted folder. The user reads the message and then chooses the current
    // folder.
    void chooseWhenRefused() {
        print(L"Un fichier occupe la place d'un dossier");
        SetCurrentDirectoryW(inside(L"2026").c_str());
        vorla::test::readTheWayTo(inside(L"2026\\"));
        constexpr LONG noWindow = 0;
        {
            const User user({picture(L"message"), picture(L"choice")});
            show(L"CreateFolder",
                 fichier_.call(L"CreateFolder",
                               {inside(L"Vrac\\2026"), Value::leftOut(), Value::leftOut(), noWindow}),
                 inside(L"2026\\"));
        }
        SetCurrentDirectoryW(L"C:\\");
    }

    // Deletes what this run, or an interrupted one, has created.
    void sweep() {
        for (const wchar_t* file : {L"2026\\Été\\DSC00017.jpg", L"2026\\Été\\Plage.jpg", L"Vrac"})
            fichier_.call(L"DeleteFile", {inside(file)});
        for (const wchar_t* folder : {L"2026\\Été\\Corse", L"2026\\Été", L"2026", L""})
            RemoveDirectoryW(inside(folder).c_str());
    }

    void show(const wchar_t* call, const Value& answer, const std::wstring& expected) {
        const auto given = answer.text();
        print(L"  " + std::wstring(call) + L" : " + (given.empty() ? L"(rien)" : given));
        agreed_ = agreed_ && given == expected;
    }

    void makeFile(const std::wstring& path) {
        CloseHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                nullptr));
    }

    std::wstring inside(const std::wstring& name) const { return root_ + L'\\' + name; }
    std::wstring picture(const std::wstring& name) const { return pictures_ + L'\\' + name; }

    Object fichier_{L"Vorla6.VorlaFichier"};
    const std::wstring pictures_;
    std::wstring root_;
    bool agreed_ = true;
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "folders.exe folder-for-pictures\n");
        return 2;
    }
    if (FAILED(OleInitialize(nullptr))) return 1;
    const int status = Host(arguments[1]).run();
    OleUninitialize();
    return status;
}
