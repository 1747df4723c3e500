#include "system/VorlaSystem.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaSystem, METHOD(SysDisqueNumero, L"Disque"), METHOD(SysDisqueLabel, L"Disque"),
        METHOD(SysDisqueType, L"Chem"), METHOD(SysRepertoires, L"Repertoire"),
        METHOD(SysSpecialFolder, L"Repertoire"),
        METHOD(SysFindAppliAssocié, L"FileName", optional(L"Message", true),
               optional(L"NoCreateFileIfNotExist", false)),
        METHOD(SysShellWait, L"sShell", optional(L"eWindowStyle", 1)),
        METHOD(SysShellAppliAssocié, L"FileName", optional(L"Message", true)),
        METHOD(SysSymboleMonétaire, L"TypeInfo"), METHOD(WindowsVersion, optional(L"VarToReceiveStrVersion")),
        METHOD(IniLit, L"FichierINI", L"Section", L"MotClé", optional(L"ValParDefaut", L""),
               optional(L"ConvertionOEM", false)),
        METHOD(IniEcrit, L"FichierINI", L"Section", L"MotClé", optional(L"Valeur", L""),
               optional(L"ConvertionOEM", false)),
        METHOD(OemToChar, L"ChaineSource"), METHOD(CharToOem, L"ChaineSource"), METHOD(FlashWindow, L"Frm"),
        PROPERTY_GET(GetComputerName, GetComputerName), METHOD(OsVersion95NT),
        METHOD(MakeLong, L"wLow", L"wHigh"), METHOD(MakeLParam, L"wLow", L"wHigh"),
        METHOD(MakeWord, L"wLow", L"wHigh"), METHOD(LoWord, L"dwValue"), METHOD(HiWord, L"dwValue"),
        METHOD(LoByte, L"dwValue"), METHOD(HiByte, L"dwValue"), METHOD(LongToUShort, L"Unsigned"),
        METHOD(IsDiskReady, L"Chem"), METHOD(SleepNoWait, L"Millisecondes"), METHOD(IsScreenSaverRunning),
        METHOD(UNCPathFromPath, L"pLocalName"), METHOD(WinProcIDFromWnd, L"hwnd"),
        METHOD(WindowHandle, L"Titre"),
        // The report of a shell failure, which hosts do not call.
        RESERVED_SLOT)

}  // namespace vorla
