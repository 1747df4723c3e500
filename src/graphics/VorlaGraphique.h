// VorlaGraphique: the look and the place of forms, colours, rotated text, menu colours, screen sizes.
//
// Forms and controls are the host's objects; handles are 32-bit numbers; forms are placed in twips. Members
// that continue on error skip a step that fails and report nothing.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/contract/records.h"
#include "frame/host/host_reference.h"
#include "frame/values/text.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaGraphique {
public:
    /// Centres a form on a parent window or, without a usable one, on the main screen; see centreForm().
    /// Continue on error.
    void Centre(const HostObject& Frm, VariantView ParentWindows);

    /// Puts a form before or after other windows. `ewpDessusTout` also makes it the foreground window;
    /// `ewpTop` ends "always on top" first. Errors: the form's own.
    void WinOnTop(const HostObject& Frm, ewPos ZPos);

    /// Does nothing. Old hosts call it.
    void InitBarreTitre(const HostObject& Frm);

    /// The height of a form's title bar or border in pixels, by its `BorderStyle`. Errors: the form's own.
    std::int32_t FormSize(const HostObject& Frm, WS_Flags SizeType);

    /// Paints a form's background with the part of the screen that it covers; see paintDesktop(). Continue on
    /// error.
    void FormSansCadre(const HostObject& Frm);

    /// Paints a form's background with a gradient from a colour at the top to 255 steps lighter or darker.
    /// Continue on error.
    void FormDegrade(const HostObject& Frm, std::uint8_t R, std::uint8_t V, std::uint8_t B, bool ToWhite);

    /// Makes a window transparent or opaque again; see setTransparency(). End on error: False, also before
    /// Windows 2000 and on versions without a code.
    bool FormTransparente(std::int32_t hwnd, VariantView Transparency, VariantView BackColor);

    /// Makes the list of a combo box `NbLig` + 1 lines high. Errors: 6 for a height past 32 bits, and the
    /// control's own.
    void ComboHeight(const HostObject& Combo, std::int16_t NbLig, std::int32_t DropWidthPixels);

    /// Rounds the corners of a form or control; see roundCorners(). For a control, `Frm` becomes its parent.
    /// Continue on error.
    void FormArrondie(HostObject& Frm, std::int16_t Elipse, bool Border, std::int32_t BorderColor);

    /// Whether a form has a title bar. Errors: the form's own.
    bool FormTitle(const HostObject& Frm);

    /// The components of a colour, 0 to 255.
    void GetRGB(std::int32_t Color, Variant& R, Variant& G, Variant& B);

    /// A system colour (0x80000000 and its number) as the colour that it is now; any other unchanged.
    std::int32_t OleColorToRGB(std::int32_t Color);

    /// The present colour of a part of Windows' display.
    std::int32_t GetSysColor(const SysColor& Color);

    /// A colour shifted by numbers; see shiftedColour(). Errors: 6 for what does not fit, 13 and 94 for
    /// values that are not numbers.
    std::int32_t ShiftColor(std::int32_t Color, VariantView RValue, VariantView vValue, VariantView BValue,
                            const eXpColorShift& OPE);

    /// Writes lines of text at an angle; see drawRotated(). End on error: False.
    bool TextRotate(const std::int32_t& hdc, const Text& Output, std::int32_t& x, std::int32_t& y,
                    float Rotation, float FontHeight, bool Smooth);

    /// Colours a form's menu; see colourMenu(). End on error: False.
    bool MenuBackColor(std::int32_t lhForm, std::int32_t lMenuColor, bool bIncludeSubMenus,
                       const std::int32_t& lMenuIndex);

    /// The virtual screen around all monitors. A unit that is neither twips nor pixels is pixels, here and
    /// below.
    records::RectSise ScreenVirtualSize(eUnit TypeUnit);

    /// The size of the main screen.
    std::int32_t ScreenWidth(eUnit TypeUnit);
    std::int32_t ScreenHeight(eUnit TypeUnit);
};

}  // namespace vorla
