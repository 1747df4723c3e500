#include "misc/VorlaDivers.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaDivers,
        METHOD(0, KeyMajusc, L"KeyAscii"),
        METHOD(1, KeyNum, L"KeyAscii", optional(L"WithDecimal", false)),
        METHOD(2, KeyFile, L"KeyAscii", optional(L"TypeName", eKeyFileType::ekftFilenameWithoutPath)),
        METHOD(3, Ctl_Argument, L"Premier", L"Second", optional(L"obligatoire", false), optional(L"Mes"),
               optional(L"Label1Associé"), optional(L"Label2Associé")),
        METHOD(4, eSetFocus, L"Ctl"),
        METHOD(5, ToucheEnfoncée, L"Touche"),
        METHOD(6, IsControlExist, L"Ctl"),
        METHOD(7, ContainerScaleMode, L"ScaleMd"),
        METHOD(8, FindContainerScaleMode, L"Ctl"),
        METHOD(9, FrameChangeEnabled, L"Frm", L"ObjetContainer", L"blEnabled"),
        METHOD(10, FormEffaceCtl, L"Frm"),
        METHOD(11, MousePlace, L"Controle", optional(L"AuCentre", true)),
        METHOD(12, CtlPosition, L"Controle"),
        METHOD(13, CursorPos, optional(L"x", -99), optional(L"y", -99)),
        METHOD(14, PropertyExist, L"Ctl", L"Property", optional(L"TypeProperty", 2)),
        METHOD(15, IsPropertyExist, L"Ctl", L"Property", optional(L"TypeProperty", 2)),
        METHOD(16, IsFormLoad, L"FrmNameOrHwnd", L"FormsCol"),
        METHOD(17, OptionButtonValue, L"Opt", optional(L"TrueValue")),
        METHOD(18, FindObjectContainerScaleMode, L"Ctl"),
        METHOD(19, CopyFont, L"Src", L"dest"))
// clang-format on

}  // namespace vorla
