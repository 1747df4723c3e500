#include "system/VorlaFichier.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// A row's place is its member's identifier and slot: new members go to the end.
// clang-format off
PUBLISH(VorlaFichier,
        METHOD(0, NormalisePath, L"Path"),
        METHOD(1, DeNormalisePath, L"Path"),
        METHOD(2, ExtraitChemin, L"Chemin", optional(L"RenvoieNomFic", eFileN::efRépertoire)),
        METHOD(3, FileNameShortToLong, L"FileName"),
        METHOD(4, FileNameLongToShort, L"FileName"),
        METHOD(5, LectDat, L"FileName"),
        METHOD(6, FileExist, L"FileName", optional(L"TypeFile", eFileToTest::eftFile)),
        METHOD(7, IsFileExist, L"FileName", optional(L"TypeFile", eFileToTest::eftFile)),
        METHOD(8, FileType, L"FileName"),
        METHOD(9, FileSize, L"NomFichier", optional(L"Short", false)),
        METHOD(10, SizeToString, L"FileSise", optional(L"Short", false)),
        METHOD(11, GetFolder, L"Title", optional(L"InitDir"), optional(L"AllowCreateFolder", true),
               optional(L"BrowseForFilesAndFolder", false)),
        METHOD(12, GetComputer, L"Title"),
        METHOD(13, GetPrinter, L"Title"),
        METHOD(14, CreateFolder, L"Folder", optional(L"MsgBoxCtl"), optional(L"Mes", L""),
               optional(L"hwndOwner", -1)),
        PROPERTY_GET(15, FileDate, readFileDate, L"FileName", L"DateType"),
        PROPERTY_LET(16, FileDate, writeFileDate, L"FileName", L"DateType"),
        METHOD(17, DeleteFile, L"NomFichier"),
        METHOD(18, RenameFile, L"NomFichierSrc", L"NomFichierDest"),
        METHOD(19, GetTempFileName, optional(L"sPrefix")),
        METHOD(20, IsFieldEpmty, L"Valeur"),
        METHOD(21, CDEjectLoad, L"Action", L"Lecteur"))
// clang-format on

}  // namespace vorla
