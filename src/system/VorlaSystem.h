// VorlaSystem: drives and folders, the shell, the user's locale, the Windows version, INI files, windows,
// words and bytes.
//
// Texts reach Windows in the ANSI code page, up to their first NUL character. Unless a member says otherwise,
// it gives an empty text, 0 or False when Windows cannot answer.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/bstr.h"
#include "frame/values/joined.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaSystem {
public:
    /// The serial number of the volume that the path is on.
    std::int32_t SysDisqueNumero(TextView Disque);

    /// The label of the volume that the path is on.
    Text SysDisqueLabel(TextView Disque);

    /// The type of the drive that the path is on.
    eDriveType SysDisqueType(TextView Chem);

    /// One of Windows' own folders, with a backslash at its end. Just a backslash for any other value and on
    /// failure.
    Text SysRepertoires(SysRepert Repertoire);

    /// One of the user's or the system's special folders, with a backslash at its end.
    Text SysSpecialFolder(eSpecialFolderConstants Repertoire);

    /// The program that opens files of this type; "-1" without a name. Unless `NoCreateFileIfNotExist`, an
    /// empty file is created during the call if the file does not exist, in the folder for temporary files if
    /// its own folder is missing. Failures are reported as by SysShellAppliAssocié.
    Text SysFindAppliAssocié(TextView FileName, bool Message, const bool& NoCreateFileIfNotExist);

    /// Starts a command line in a window of this style and waits until the program ends. The host processes
    /// its events meanwhile. False when the program does not start, or for a style other than 0 to 9.
    bool SysShellWait(const Text& sShell, std::int32_t eWindowStyle);

    /// Opens a file with the program of its type. Returns the shell's result; -1 without a name. A result of
    /// 32 or less is a failure. With `Message` a box shows it; otherwise the thread's error object gets its
    /// text and, as help context, its number. No error is raised.
    std::int32_t SysShellAppliAssocié(TextView FileName, bool Message);

    /// One item of the user's locale; empty for an item of more than 48 characters.
    Text SysSymboleMonétaire(eInfoMonetaire TypeInfo);

    /// The running Windows, and in `VarToReceiveStrVersion` its name; see VersionWindows().
    WinVer WindowsVersion(Text& VarToReceiveStrVersion);

    /// A value of an INI file; see IniLecture().
    Text IniLit(TextView FichierINI, TextView Section, TextView MotClé, TextView ValParDefaut,
                bool ConvertionOEM);

    /// Writes or deletes a value of an INI file, or deletes a section; see IniEcriture(). With
    /// `ConvertionOEM` only the names are converted, while IniLit also converts the value, so accented
    /// letters come back changed.
    std::int32_t IniEcrit(TextView FichierINI, TextView Section, TextView MotClé, TextView Valeur,
                          bool ConvertionOEM);

    /// A text from the OEM code page to the ANSI code page.
    Text OemToChar(TextView ChaineSource);
    /// The reverse.
    Text CharToOem(TextView ChaineSource);

    /// Flashes a window's caption and taskbar button until it comes to the foreground. `Frm` is a form or a
    /// window handle; anything else is ignored. Errors: 6 for a number of more than 32 bits, and the form's
    /// own.
    void FlashWindow(const Variant& Frm);

    /// The computer's name.
    Text GetComputerName();

    /// Whether this is Windows 95 or NT up to 4.
    bool OsVersion95NT();

    /// Two words in one integer; see joinedWords() for the effect of a negative low word.
    std::int32_t MakeLong(std::int32_t wLow, std::int32_t wHigh);
    std::int32_t MakeLParam(std::int32_t wLow, std::int32_t wHigh);

    /// Two bytes in one word.
    std::int32_t MakeWord(std::int32_t wLow, std::int32_t wHigh);

    std::int16_t LoWord(std::int32_t dwValue);
    std::int16_t HiWord(std::int32_t dwValue);
    std::uint8_t LoByte(std::int32_t dwValue);
    /// Bits 8 to 15.
    std::uint8_t HiByte(std::int32_t dwValue);

    /// The signed word with the bits of an unsigned one. Error 6 for a number that fits neither.
    std::int16_t LongToUShort(const std::int32_t& Unsigned);

    /// Whether the path's folder can be read.
    bool IsDiskReady(TextView Chem);

    /// Waits while the host processes its events; see Attente().
    void SleepNoWait(std::int32_t Millisecondes);

    /// Whether a screen saver runs, or a desktop for screen savers exists.
    bool IsScreenSaverRunning();

    /// The network path of a path on a connected network drive; any other path, and one of 260 characters or
    /// more, unchanged.
    Text UNCPathFromPath(const Text& pLocalName);

    /// The process that a window belongs to.
    std::int32_t WinProcIDFromWnd(std::int32_t hwnd);

    /// The top-level window with exactly this title.
    std::int32_t WindowHandle(TextView Titre);
};

}  // namespace vorla
