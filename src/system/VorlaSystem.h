// VorlaSystem: drives and folders, the shell, the user's locale, the Windows version, INI files, windows,
// words and bytes.
//
// Texts cross to Windows in the ANSI code page, up to their first NUL character. Where nothing else is said,
// what Windows cannot answer gives an empty text, 0 or False.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/bstr.h"
#include "frame/values/joined.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaSystem {
public:
    /// The serial number of the volume that the path lies on.
    std::int32_t SysDisqueNumero(TextView Disque);

    /// The label of the volume that the path lies on.
    Text SysDisqueLabel(TextView Disque);

    /// The type of the drive that the path lies on.
    eDriveType SysDisqueType(TextView Chem);

    /// One of Windows' own folders, with a backslash at its end; a backslash alone for any other value and
    /// for a folder that Windows does not tell.
    Text SysRepertoires(SysRepert Repertoire);

    /// One of the user's or the system's special folders, with a backslash at its end.
    Text SysSpecialFolder(eSpecialFolderConstants Repertoire);

    /// The program that opens a file's type; "-1" without a name. For a file that does not exist an empty
    /// one is made for the length of the call, unless `NoCreateFileIfNotExist`; where there is no such
    /// folder, in the one for temporary files. Failures are reported as by SysShellAppliAssocié.
    Text SysFindAppliAssocié(TextView FileName, bool Message, const bool& NoCreateFileIfNotExist);

    /// Starts a command line in a window of this style and waits until the program has ended, while the host
    /// processes its events. False when it does not start, so for a style that is none (0 to 9).
    bool SysShellWait(const Text& sShell, std::int32_t eWindowStyle);

    /// Opens a file with the program of its type; the shell's answer, -1 without a name. An answer of 32 or
    /// less is a failure: with `Message` a box tells it, otherwise the thread's error object, as text and,
    /// in its help context, as number. No error is raised.
    std::int32_t SysShellAppliAssocié(TextView FileName, bool Message);

    /// One item of the user's locale; empty for one of more than 49 characters.
    Text SysSymboleMonétaire(eInfoMonetaire TypeInfo);

    /// The running Windows, and in `VarToReceiveStrVersion` its name; see VersionWindows().
    WinVer WindowsVersion(Text& VarToReceiveStrVersion);

    /// A value of an INI file; see IniLecture().
    Text IniLit(TextView FichierINI, TextView Section, TextView MotClé, TextView ValParDefaut,
                bool ConvertionOEM);

    /// Writes or deletes a value of an INI file, or deletes a section; see IniEcriture(). With
    /// `ConvertionOEM` only the names are converted, while IniLit converts the value too: accented letters
    /// do not come back. Hosts rely on it.
    std::int32_t IniEcrit(TextView FichierINI, TextView Section, TextView MotClé, TextView Valeur,
                          bool ConvertionOEM);

    /// A text from the OEM code page to the ANSI one, and back.
    Text OemToChar(TextView ChaineSource);
    Text CharToOem(TextView ChaineSource);

    /// Flashes a window's caption and taskbar button until it comes to the foreground. The window is a
    /// form's, or has this number as its handle; anything else is nobody's. A form's own failure, and a
    /// number of more than 32 bits, reach the caller.
    void FlashWindow(const Variant& Frm);

    /// The computer's name.
    Text GetComputerName();

    /// Whether this is Windows 95 or NT up to 4.
    bool OsVersion95NT();

    /// Two words in one integer; see joinedWords() for what a negative low one does.
    std::int32_t MakeLong(std::int32_t wLow, std::int32_t wHigh);
    std::int32_t MakeLParam(std::int32_t wLow, std::int32_t wHigh);

    /// Two bytes in one word.
    std::int32_t MakeWord(std::int32_t wLow, std::int32_t wHigh);

    std::int16_t LoWord(std::int32_t dwValue);
    std::int16_t HiWord(std::int32_t dwValue);
    std::uint8_t LoByte(std::int32_t dwValue);
    /// Of the low word.
    std::uint8_t HiByte(std::int32_t dwValue);

    /// The signed word with the bits of an unsigned one. Error 6 for a number that is neither.
    std::int16_t LongToUShort(const std::int32_t& Unsigned);

    /// Whether the folder that the path leads to can be read.
    bool IsDiskReady(TextView Chem);

    /// Waits while the host processes its events; see Attente().
    void SleepNoWait(std::int32_t Millisecondes);

    /// Whether a screen saver runs, or a desktop that only it may open exists.
    bool IsScreenSaverRunning();

    /// The network path of a path on a drive that a network folder is connected to; any other path as it is,
    /// and one of 260 characters or more.
    Text UNCPathFromPath(const Text& pLocalName);

    /// The process that a window belongs to.
    std::int32_t WinProcIDFromWnd(std::int32_t hwnd);

    /// The top-level window with exactly this title.
    std::int32_t WindowHandle(TextView Titre);
};

}  // namespace vorla
