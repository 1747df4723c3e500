#include "system/VorlaFichier.h"

#include "frame/com/publish.h"
#include "frame/contract/catalogue.h"

namespace vorla {

// A row's place is its member's identifier and slot: new members go behind the last one.
PUBLISH(VorlaFichier, METHOD(NormalisePath, L"Path"), METHOD(DeNormalisePath, L"Path"),
        METHOD(ExtraitChemin, L"Chemin", optional(L"RenvoieNomFic", eFileN::efRépertoire)),
        METHOD(FileNameShortToLong, L"FileName"), METHOD(FileNameLongToShort, L"FileName"),
        METHOD(LectDat, L"FileName"),
        METHOD(FileExist, L"FileName", optional(L"TypeFile", eFileToTest::eftFile)),
        METHOD(IsFileExist, L"FileName", optional(L"TypeFile", eFileToTest::eftFile)),
        METHOD(FileType, L"FileName"), METHOD(FileSize, L"NomFichier", optional(L"Short", false)),
        METHOD(SizeToString, L"FileSise", optional(L"Short", false)))

}  // namespace vorla
