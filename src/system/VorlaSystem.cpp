#include "system/VorlaSystem.h"

#include <shlobj.h>
#include <shlwapi.h>
#include <winnetwk.h>

#include <array>
#include <cstring>

#include "frame/host/bound_object.h"
#include "frame/host/error_object.h"
#include "frame/host/globals.h"
#include "frame/host/message_box.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/files.h"
#include "frame/shared/paths.h"
#include "frame/shared/profile.h"
#include "frame/shared/system_queries.h"
#include "frame/shared/waiting.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"
#include "system/shell_errors.h"
#include "system/words.h"

namespace vorla {
namespace {

// The text that Windows writes into a buffer of this size; empty when the call fails. `fill` gets the buffer
// and returns whether the call worked.
template <std::size_t room, class Fill>
Text filled(Fill&& fill) {
    std::array<char, room> buffer{};
    if (!fill(buffer.data())) return {};
    return fromAnsiBuffer({buffer.data(), buffer.size()});
}

std::string rootOf(TextView path) { return toAnsi(DecoupeChemin(path, eFileN::efRacine).text()); }

// For calls that return the length written or, if the buffer is too small, the size that they need.
constexpr bool hasWritten(DWORD length, DWORD room) { return length > 0 && length < room; }

// Empty on failure; the shell then uses its own current folder.
Text currentFolder() {
    const auto folder = filled<MAX_PATH>(
        [](char* buffer) { return hasWritten(GetCurrentDirectoryA(MAX_PATH, buffer), MAX_PATH); });
    return folder.empty() ? folder : AjouteAntiSlash(folder).text();
}

// The folder of a bare name is the current one. As a path, it would be the name itself.
Text folderOf(TextView path) {
    if (path.find(L'\\') == TextView::npos) return currentFolder();
    return DecoupeChemin(path, eFileN::efRépertoire).text();
}

void reportShellError(std::int32_t code, bool message) {
    const auto text = shellErrorText(code);
    if (message)
        warningBox(text, L"Erreur");
    else
        storeError(IID_NULL, {L"Vorla6.VorlaSystem", text, {}, static_cast<DWORD>(code)});
}

// Asks the shell about a file by its name and folder, and reports a failure. Some shells crash on a path that
// is longer than Windows allows, so such a path is not passed on.
template <class Ask>
std::int32_t askShell(TextView path, bool message, Ask&& ask) {
    const auto name = toAnsi(DecoupeChemin(path, eFileN::eFNomFichier).text()),
               folder = toAnsi(folderOf(path));
    std::int32_t answer = SE_ERR_FNF;
    if (name.size() + folder.size() < MAX_PATH) {
        const HINSTANCE number = ask(name.c_str(), folder.c_str());
        answer = static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(number));
    }
    if (isShellError(answer)) reportShellError(answer, message);
    return answer;
}

// An empty file that exists as long as this object. If the file exists already, nothing is created or
// deleted.
class ShortLivedFile {
public:
    explicit ShortLivedFile(Text path) : path_(std::move(path)) {
        made_ = static_cast<bool>(File(CreateFileA(toAnsi(path_).c_str(), GENERIC_WRITE, 0, nullptr,
                                                   CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)));
    }
    ShortLivedFile(const ShortLivedFile&) = delete;
    ShortLivedFile& operator=(const ShortLivedFile&) = delete;
    ~ShortLivedFile() {
        if (made_) step([this] { DeleteFileA(toAnsi(path_).c_str()); });
    }

private:
    Text path_;
    bool made_;
};

// A place where a file of this name can be created: its folder or, under another name, the folder for
// temporary files.
Text placeFor(TextView fileName) {
    if (ExisteDossier(fileName)) return Text(fileName);
    auto extension = DecoupeChemin(fileName, eFileN::eFExtension).text();
    const auto other = CheminTemporaire(L"vla", extension);
    return other.empty() ? Text(fileName) : other;
}

Text associatedProgram(TextView path, bool message) {
    // Windows is not told the size of the buffer and may fill this much.
    return filled<MAX_PATH>([&](char* buffer) {
        return !isShellError(askShell(path, message, [buffer](LPCSTR name, LPCSTR folder) {
            return FindExecutableA(name, folder, buffer);
        }));
    });
}

struct Started {
    KernelObject process;
    DWORD id;

    // A process may also end with the exit code that means "still running".
    bool hasEndedWith(DWORD exitCode) const {
        return exitCode != STILL_ACTIVE || WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0;
    }
};

// Starts a program in one of the hosts' window styles. Error 5 for another style, 53 for a program that does
// not start.
Started start(TextView command, std::int32_t windowStyle) {
    constexpr std::int32_t lastStyle = 9;
    if (windowStyle < 0 || windowStyle > lastStyle) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    auto line = toAnsi(command);
    STARTUPINFOA information{};
    information.cb = sizeof information;
    information.dwFlags = STARTF_USESHOWWINDOW;
    information.wShowWindow = static_cast<WORD>(windowStyle);
    PROCESS_INFORMATION made{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &information,
                        &made))
        throw RuntimeError(ErrorNumber::fileNotFound);
    CloseHandle(made.hThread);
    return {KernelObject(made.hProcess), made.dwProcessId};
}

bool isNumber(VariantView value) {
    switch (value.type()) {
        case VT_EMPTY:
        case VT_BOOL:
        case VT_I1:
        case VT_UI1:
        case VT_I2:
        case VT_UI2:
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_I8:
        case VT_UI8:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DECIMAL: return true;
        case VT_BSTR: return isNumeric(viewOf(value.raw().bstrVal));
        default: return false;
    }
}

// The window handle in a number or a form; 0 for anything else.
std::int32_t handleOf(VariantView window) {
    if (isNumber(window)) return convertedTo<std::int32_t>(window);
    if (!window.isObject() || !window.raw().punkVal) return 0;
    const auto form = objectIn(window);
    return isHostForm(form) ? BoundObject(form).getAs<std::int32_t>(L"hwnd") : 0;
}

bool foregroundIsScreenSaver() {
    constexpr int room = 255;
    const auto name =
        filled<room + 1>([](char* buffer) { return GetClassNameA(GetForegroundWindow(), buffer, room) > 0; });
    return lowerCased(name) == L"windowsscreensaverclass";
}

bool hasScreenSaverDesktop() {
    const Desktop desktop(OpenDesktopA("screen-saver", 0, FALSE, MAXIMUM_ALLOWED));
    return desktop || GetLastError() == ERROR_ACCESS_DENIED;
}

// The network folder that a drive ("X:") is connected to; empty when there is none.
Text connectionOf(const std::string& drive) {
    constexpr DWORD room = 255;
    if (!PathIsNetworkPathA(drive.c_str())) return {};
    return filled<room>([&drive](char* buffer) {
        auto length = room;
        return WNetGetConnectionA(drive.c_str(), buffer, &length) == NO_ERROR;
    });
}

}  // namespace

std::int32_t VorlaSystem::SysDisqueNumero(TextView Disque) {
    DWORD number = 0;
    if (!GetVolumeInformationA(rootOf(Disque).c_str(), nullptr, 0, &number, nullptr, nullptr, nullptr, 0))
        return 0;
    return static_cast<std::int32_t>(number);
}

Text VorlaSystem::SysDisqueLabel(TextView Disque) {
    constexpr DWORD room = 261;
    return filled<room>([root = rootOf(Disque)](char* buffer) {
        return GetVolumeInformationA(root.c_str(), buffer, room, nullptr, nullptr, nullptr, nullptr, 0);
    });
}

eDriveType VorlaSystem::SysDisqueType(TextView Chem) { return TypeLecteur(Chem); }

Text VorlaSystem::SysRepertoires(SysRepert Repertoire) {
    constexpr UINT room = 4095;
    const auto folder = filled<room + 1>([Repertoire](char* buffer) {
        switch (Repertoire) {
            case SysRepert::Windows: return hasWritten(GetWindowsDirectoryA(buffer, room), room);
            case SysRepert::Système: return hasWritten(GetSystemDirectoryA(buffer, room), room);
            case SysRepert::Temp: return hasWritten(GetTempPathA(room, buffer), room);
        }
        return false;
    });
    return AjouteAntiSlash(folder).text();
}

Text VorlaSystem::SysSpecialFolder(eSpecialFolderConstants Repertoire) {
    bool known = false;
    const auto folder = filled<MAX_PATH>([&](char* buffer) {
        return known = SHGetFolderPathA(nullptr, static_cast<int>(Repertoire), nullptr, SHGFP_TYPE_CURRENT,
                                        buffer) == S_OK;
    });
    return known ? AjouteAntiSlash(folder).text() : Text();
}

Text VorlaSystem::SysFindAppliAssocié(TextView FileName, bool Message, const bool& NoCreateFileIfNotExist) {
    if (FileName.empty()) return L"-1";
    if (NoCreateFileIfNotExist || ExisteFichier(FileName, eFileToTest::eftFile))
        return associatedProgram(FileName, Message);
    const auto path = placeFor(FileName);
    const ShortLivedFile file(path);
    return associatedProgram(path, Message);
}

bool VorlaSystem::SysShellWait(const Text& sShell, std::int32_t eWindowStyle) {
    return endOnError(false, [&] {
        constexpr DWORD pause = 100;
        const auto started = start(sShell, eWindowStyle);
        const KernelObject process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, started.id));
        if (!process) return false;
        for (DWORD exitCode = 0;;) {
            if (!GetExitCodeProcess(process.get(), &exitCode)) return false;
            if (started.hasEndedWith(exitCode)) return true;
            DoEvents();
            // Sleeps until the pause or the process ends.
            WaitForSingleObject(started.process.get(), pause);
        }
    });
}

std::int32_t VorlaSystem::SysShellAppliAssocié(TextView FileName, bool Message) {
    if (FileName.empty()) return -1;
    return askShell(FileName, Message, [](LPCSTR name, LPCSTR folder) {
        return ShellExecuteA(GetDesktopWindow(), "Open", name, nullptr, folder, SW_SHOWNORMAL);
    });
}

Text VorlaSystem::SysSymboleMonétaire(eInfoMonetaire TypeInfo) {
    return InfoLocale(static_cast<std::int32_t>(TypeInfo));
}

WinVer VorlaSystem::WindowsVersion(Text& VarToReceiveStrVersion) {
    return VersionWindows(VarToReceiveStrVersion);
}

Text VorlaSystem::IniLit(TextView FichierINI, TextView Section, TextView MotClé, TextView ValParDefaut,
                         bool ConvertionOEM) {
    return IniLecture(FichierINI, Section, MotClé, ValParDefaut, ConvertionOEM);
}

std::int32_t VorlaSystem::IniEcrit(TextView FichierINI, TextView Section, TextView MotClé, TextView Valeur,
                                   bool ConvertionOEM) {
    return IniEcriture(FichierINI, Section, MotClé, Valeur, ConvertionOEM);
}

Text VorlaSystem::OemToChar(TextView ChaineSource) { return OemVersAnsi(ChaineSource); }

Text VorlaSystem::CharToOem(TextView ChaineSource) { return AnsiVersOem(ChaineSource); }

void VorlaSystem::FlashWindow(const Variant& Frm) {
    constexpr UINT often = 10'000;
    const auto handle = handleOf(Frm.view());
    if (handle <= 0) return;
    FLASHWINFO flashing{sizeof flashing, windowOf(handle), FLASHW_ALL | FLASHW_TIMERNOFG, often, 0};
    FlashWindowEx(&flashing);
}

Text VorlaSystem::GetComputerName() {
    constexpr DWORD room = MAX_COMPUTERNAME_LENGTH + 1;
    return filled<room>([](char* buffer) {
        auto length = room;
        return GetComputerNameA(buffer, &length);
    });
}

bool VorlaSystem::OsVersion95NT() {
    Text name;
    switch (VersionWindows(name)) {
        case WinVer::WinNT351:
        case WinVer::Win95:
        case WinVer::Win95Osr2:
        case WinVer::WinNT4: return true;
        default: return false;
    }
}

std::int32_t VorlaSystem::MakeLong(std::int32_t wLow, std::int32_t wHigh) { return joinedWords(wLow, wHigh); }

std::int32_t VorlaSystem::MakeLParam(std::int32_t wLow, std::int32_t wHigh) {
    return joinedWords(wLow, wHigh);
}

std::int32_t VorlaSystem::MakeWord(std::int32_t wLow, std::int32_t wHigh) { return joinedBytes(wLow, wHigh); }

std::int16_t VorlaSystem::LoWord(std::int32_t dwValue) { return lowWord(dwValue); }

std::int16_t VorlaSystem::HiWord(std::int32_t dwValue) { return highWord(dwValue); }

std::uint8_t VorlaSystem::LoByte(std::int32_t dwValue) { return lowByte(dwValue); }

std::uint8_t VorlaSystem::HiByte(std::int32_t dwValue) { return highByte(dwValue); }

std::int16_t VorlaSystem::LongToUShort(const std::int32_t& Unsigned) { return signedWord(Unsigned); }

bool VorlaSystem::IsDiskReady(TextView Chem) { return ExisteDossier(Chem); }

void VorlaSystem::SleepNoWait(std::int32_t Millisecondes) { Attente(Millisecondes); }

bool VorlaSystem::IsScreenSaverRunning() {
    return endOnError(false, [] {
        if (foregroundIsScreenSaver() || hasScreenSaverDesktop()) return true;
        BOOL running = FALSE;
        return SystemParametersInfoA(SPI_GETSCREENSAVERRUNNING, 0, &running, 0) && running;
    });
}

Text VorlaSystem::UNCPathFromPath(const Text& pLocalName) {
    const auto path = toAnsi(pLocalName);
    // Finding the root of a longer one is beyond some systems, or takes them minutes.
    if (path.size() >= MAX_PATH) return pLocalName;
    auto root = path;
    PathStripToRootA(root.data());
    root.resize(std::strlen(root.c_str()));
    if (root.ends_with('\\')) root.pop_back();
    const char* rest = PathSkipRootA(path.c_str());
    // A path in the drive's current folder has no root that could be replaced.
    if (!rest && root.size() != path.size()) return pLocalName;
    const auto connection = connectionOf(root);
    if (connection.empty()) return pLocalName;
    return AjouteAntiSlash(connection).text() + (rest ? fromAnsi(rest) : Text());
}

std::int32_t VorlaSystem::WinProcIDFromWnd(std::int32_t hwnd) {
    DWORD process = 0;
    GetWindowThreadProcessId(windowOf(hwnd), &process);
    return static_cast<std::int32_t>(process);
}

std::int32_t VorlaSystem::WindowHandle(TextView Titre) {
    const auto window = FindWindowA(nullptr, toAnsi(Titre).c_str());
    return static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(window));
}

}  // namespace vorla
