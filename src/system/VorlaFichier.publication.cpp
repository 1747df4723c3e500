#include "system/VorlaFichier.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// A row's place is its member's identifier and slot: new members go behind the last one.
PUBLISH(VorlaFichier, METHOD(NormalisePath, L"Path"), METHOD(DeNormalisePath, L"Path"),
        METHOD(ExtraitChemin, L"Chemin", optional(L"RenvoieNomFic", eFileN::efRépertoire)),
        METHOD(FileNameShortToLong, L"FileName"), METHOD(FileNameLongToShort, L"FileName"),
        METHOD(LectDat, L"FileName"),
        METHOD(FileExist, L"FileName", optional(L"TypeFile", eFileToTest::eftFile)),
        METHOD(IsFileExist, L"FileName", optional(L"TypeFile", eFileToTest::eftFile)),
        METHOD(FileType, L"FileName"), METHOD(FileSize, L"NomFichier", optional(L"Short", false)),
        METHOD(SizeToString, L"FileSise", optional(L"Short", false)),
        METHOD(GetFolder, L"Title", optional(L"InitDir"), optional(L"AllowCreateFolder", true),
               optional(L"BrowseForFilesAndFolder", false)),
        METHOD(GetComputer, L"Title"), METHOD(GetPrinter, L"Title"),
        METHOD(CreateFolder, L"Folder", optional(L"MsgBoxCtl"), optional(L"Mes", L""),
               optional(L"hwndOwner", -1)),
        PROPERTY_GET(FileDate, readFileDate, L"FileName", L"DateType"),
        PROPERTY_LET(FileDate, writeFileDate, L"FileName", L"DateType"), METHOD(DeleteFile, L"NomFichier"),
        METHOD(RenameFile, L"NomFichierSrc", L"NomFichierDest"),
        METHOD(GetTempFileName, optional(L"sPrefix")), METHOD(IsFieldEpmty, L"Valeur"),
        METHOD(CDEjectLoad, L"Action", L"Lecteur"))

}  // namespace vorla
