#include "graphics/VorlaGraphique.h"

#include "frame/values/conversions.h"
#include "frame/values/winapi.h"
#include "graphics/colour_shift.h"
#include "graphics/form_look.h"
#include "graphics/form_place.h"
#include "graphics/menu_colour.h"
#include "graphics/screen_measures.h"
#include "graphics/text_drawing.h"

namespace vorla {
namespace {

std::int32_t systemColour(std::int32_t number) { return static_cast<std::int32_t>(::GetSysColor(number)); }

std::int32_t plainColour(std::int32_t colour) {
    constexpr std::int32_t withoutTopBit = 0x7FFFFFFF;
    return colour < 0 ? systemColour(colour & withoutTopBit) : colour;
}

}  // namespace

void VorlaGraphique::Centre(const HostObject& Frm, VariantView ParentWindows) {
    centreForm(Frm, ParentWindows);
}

void VorlaGraphique::WinOnTop(const HostObject& Frm, ewPos ZPos) { putInOrder(Frm, ZPos); }

void VorlaGraphique::InitBarreTitre(const HostObject&) {}

std::int32_t VorlaGraphique::FormSize(const HostObject& Frm, WS_Flags SizeType) {
    return frameSize(Frm, SizeType);
}

void VorlaGraphique::FormSansCadre(const HostObject& Frm) { paintDesktop(Frm); }

void VorlaGraphique::FormDegrade(const HostObject& Frm, std::uint8_t R, std::uint8_t V, std::uint8_t B,
                                 bool ToWhite) {
    paintGradient(Frm, {R, V, B}, ToWhite);
}

bool VorlaGraphique::FormTransparente(std::int32_t hwnd, VariantView Transparency, VariantView BackColor) {
    return setTransparency(hwnd, Transparency, BackColor);
}

void VorlaGraphique::ComboHeight(const HostObject& Combo, std::int16_t NbLig, std::int32_t DropWidthPixels) {
    sizeComboList(Combo, NbLig, DropWidthPixels);
}

void VorlaGraphique::FormArrondie(HostObject& Frm, std::int16_t Elipse, bool Border,
                                  std::int32_t BorderColor) {
    roundCorners(Frm, Elipse, {Border, BorderColor});
}

bool VorlaGraphique::FormTitle(const HostObject& Frm) { return hasTitleBar(Frm); }

void VorlaGraphique::GetRGB(std::int32_t Color, Variant& R, Variant& G, Variant& B) {
    const auto colour = plainColour(Color);
    B = blueOf(colour);
    G = greenOf(colour);
    R = redOf(colour);
}

std::int32_t VorlaGraphique::OleColorToRGB(std::int32_t Color) { return plainColour(Color); }

std::int32_t VorlaGraphique::GetSysColor(const SysColor& Color) {
    return systemColour(static_cast<std::int32_t>(Color));
}

std::int32_t VorlaGraphique::ShiftColor(std::int32_t Color, VariantView RValue, VariantView vValue,
                                        VariantView BValue, const eXpColorShift& OPE) {
    const ColourShift shift{convertedTo<double>(RValue), convertedTo<double>(vValue),
                            convertedTo<double>(BValue)};
    return shiftedColour(plainColour(Color), shift, OPE);
}

bool VorlaGraphique::TextRotate(const std::int32_t& hdc, const Text& Output, std::int32_t& x, std::int32_t& y,
                                float Rotation, float FontHeight, bool Smooth) {
    return drawRotated(hdc, Output, x, y, {Rotation, FontHeight, Smooth});
}

bool VorlaGraphique::MenuBackColor(std::int32_t lhForm, std::int32_t lMenuColor, bool bIncludeSubMenus,
                                   const std::int32_t& lMenuIndex) {
    return colourMenu(lhForm, lMenuColor, bIncludeSubMenus, lMenuIndex);
}

records::RectSise VorlaGraphique::ScreenVirtualSize(eUnit TypeUnit) { return virtualScreen(TypeUnit); }
std::int32_t VorlaGraphique::ScreenWidth(eUnit TypeUnit) { return screenWidth(TypeUnit); }
std::int32_t VorlaGraphique::ScreenHeight(eUnit TypeUnit) { return screenHeight(TypeUnit); }

}  // namespace vorla
