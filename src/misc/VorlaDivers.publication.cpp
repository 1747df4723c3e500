#include "misc/VorlaDivers.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaDivers,
        METHOD(0, Maxi, L"Valeur1", L"Valeur2"),
        METHOD(1, Mini, L"Valeur1", L"Valeur2"),
        METHOD(2, ListeCherche, L"List", L"Cle", optional(L"OnItemData", false),
               optional(L"CaseSensitive", false), optional(L"RechercheIdentique", true),
               optional(L"Separateur", L"\t"), optional(L"Rang", 0)),
        METHOD(3, ListeSelectRange, L"LstBiox", L"NewState", optional(L"FirstItem", 0),
               optional(L"LastItem", -1)),
        METHOD(4, TreeCherche, L"Tree", L"Valeur", optional(L"OnText", false),
               optional(L"CaseSensitive", false), optional(L"RechercheIdentique", true)),
        VIEWING_METHOD(5, TabCherche, L"Tabl", L"Cle"),
        METHOD(6, CalcTauxAugm, L"Mt1", L"Mt2"),
        METHOD(7, SysTempsRestant, L"TimerDeb", L"lgMax", L"lgNow"),
        METHOD(8, SysWait, L"nbSeconde"),
        METHOD(9, SecondToTime, L"Temps", optional(L"MmSs", false)),
        METHOD(10, RndBetween, L"FromValue", L"ToValue"),
        VIEWING_METHOD(11, IsArrayEmpty, L"Tableau"),
        METHOD(12, DateDiffDaysAndTime, L"DateDeb", optional(L"DateFin"), optional(L"HeureString", false)),
        METHOD(13, IsMemberExist, L"mCol", L"Key"),
        METHOD(14, IsNodeExist, L"Tree", L"Key"),
        METHOD(15, ElTranslate, L"Quoi", L"Value", L"Sens"),
        METHOD(16, KeyMajusc, L"KeyAscii"),
        METHOD(17, KeyNum, L"KeyAscii", optional(L"WithDecimal", false)),
        METHOD(18, KeyFile, L"KeyAscii", optional(L"TypeName", eKeyFileType::ekftFilenameWithoutPath)),
        METHOD(19, Ctl_Argument, L"Premier", L"Second", optional(L"obligatoire", false), optional(L"Mes"),
               optional(L"Label1Associé"), optional(L"Label2Associé")),
        METHOD(20, eSetFocus, L"Ctl"),
        METHOD(21, ToucheEnfoncée, L"Touche"),
        METHOD(22, IsControlExist, L"Ctl"),
        METHOD(23, ContainerScaleMode, L"ScaleMd"),
        METHOD(24, FindContainerScaleMode, L"Ctl"),
        METHOD(25, FrameChangeEnabled, L"Frm", L"ObjetContainer", L"blEnabled"),
        METHOD(26, FormEffaceCtl, L"Frm"),
        METHOD(27, MousePlace, L"Controle", optional(L"AuCentre", true)),
        METHOD(28, CtlPosition, L"Controle"),
        METHOD(29, CursorPos, optional(L"x", -99), optional(L"y", -99)),
        METHOD(30, PropertyExist, L"Ctl", L"Property", optional(L"TypeProperty", 2)),
        METHOD(31, IsPropertyExist, L"Ctl", L"Property", optional(L"TypeProperty", 2)),
        METHOD(32, IsFormLoad, L"FrmNameOrHwnd", L"FormsCol"),
        METHOD(33, OptionButtonValue, L"Opt", optional(L"TrueValue")),
        METHOD(34, FindObjectContainerScaleMode, L"Ctl"),
        METHOD(35, CopyFont, L"Src", L"dest"))
// clang-format on

}  // namespace vorla
