#include "system/VorlaSystem.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaSystem,
        METHOD(0, SysDisqueNumero, L"Disque"),
        METHOD(1, SysDisqueLabel, L"Disque"),
        METHOD(2, SysDisqueType, L"Chem"),
        METHOD(3, SysRepertoires, L"Repertoire"),
        METHOD(4, SysSpecialFolder, L"Repertoire"),
        METHOD(5, SysFindAppliAssocié, L"FileName", optional(L"Message", true),
               optional(L"NoCreateFileIfNotExist", false)),
        METHOD(6, SysShellWait, L"sShell", optional(L"eWindowStyle", 1)),
        METHOD(7, SysShellAppliAssocié, L"FileName", optional(L"Message", true)),
        METHOD(8, SysSymboleMonétaire, L"TypeInfo"),
        METHOD(9, WindowsVersion, optional(L"VarToReceiveStrVersion")),
        METHOD(10, IniLit, L"FichierINI", L"Section", L"MotClé", optional(L"ValParDefaut", L""),
               optional(L"ConvertionOEM", false)),
        METHOD(11, IniEcrit, L"FichierINI", L"Section", L"MotClé", optional(L"Valeur", L""),
               optional(L"ConvertionOEM", false)),
        METHOD(12, OemToChar, L"ChaineSource"),
        METHOD(13, CharToOem, L"ChaineSource"),
        METHOD(14, FlashWindow, L"Frm"),
        PROPERTY_GET(15, GetComputerName, GetComputerName),
        METHOD(16, OsVersion95NT),
        METHOD(17, MakeLong, L"wLow", L"wHigh"),
        METHOD(18, MakeLParam, L"wLow", L"wHigh"),
        METHOD(19, MakeWord, L"wLow", L"wHigh"),
        METHOD(20, LoWord, L"dwValue"),
        METHOD(21, HiWord, L"dwValue"),
        METHOD(22, LoByte, L"dwValue"),
        METHOD(23, HiByte, L"dwValue"),
        METHOD(24, LongToUShort, L"Unsigned"),
        METHOD(25, IsDiskReady, L"Chem"),
        METHOD(26, SleepNoWait, L"Millisecondes"),
        METHOD(27, IsScreenSaverRunning),
        METHOD(28, UNCPathFromPath, L"pLocalName"),
        METHOD(29, WinProcIDFromWnd, L"hwnd"),
        METHOD(30, WindowHandle, L"Titre"),
        // The report of a shell failure, which hosts do not call.
        RESERVED_SLOT(31))
// clang-format on

}  // namespace vorla
