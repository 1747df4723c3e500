#include "graphics/VorlaGraphique.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"
#include "graphics/menu_colour.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaGraphique,
        METHOD(0, Centre, L"Frm", optional(L"ParentWindows")),
        METHOD(1, WinOnTop, L"Frm", optional(L"ZPos", ewPos::ewpDessus)),
        METHOD(2, InitBarreTitre, L"Frm"),
        METHOD(3, FormSize, L"Frm", L"SizeType"),
        METHOD(4, FormSansCadre, L"Frm"),
        METHOD(5, FormDegrade, L"Frm", L"R", L"V", L"B", optional(L"ToWhite", false)),
        METHOD(6, FormTransparente, L"hwnd", optional(L"Transparency"), optional(L"BackColor")),
        METHOD(7, ComboHeight, L"Combo", L"NbLig", optional(L"DropWidthPixels", 0)),
        METHOD(8, FormArrondie, L"Frm", optional(L"Elipse", 34), optional(L"Border", false),
               optional(L"BorderColor", 0)),
        METHOD(9, FormTitle, L"Frm"),
        METHOD(10, GetRGB, L"Color", L"R", L"G", L"B"),
        METHOD(11, OleColorToRGB, L"Color"),
        METHOD(12, GetSysColor, L"Color"),
        METHOD(13, ShiftColor, L"Color", L"RValue", L"vValue", L"BValue",
               optional(L"OPE", eXpColorShift::Add)),
        METHOD(14, TextRotate, L"hdc", L"Output", L"x", L"y", L"Rotation", optional(L"FontHeight", 0),
               optional(L"Smooth", false)),
        METHOD(15, MenuBackColor, L"lhForm", L"lMenuColor", optional(L"bIncludeSubMenus", true),
               optional(L"lMenuIndex", wholeMenuBar)),
        PROPERTY_GET(16, ScreenVirtualSize, ScreenVirtualSize, optional(L"TypeUnit", eUnit::euTwips)),
        PROPERTY_GET(17, ScreenWidth, ScreenWidth, optional(L"TypeUnit", eUnit::euTwips)),
        PROPERTY_GET(18, ScreenHeight, ScreenHeight, optional(L"TypeUnit", eUnit::euTwips)))
// clang-format on

}  // namespace vorla
