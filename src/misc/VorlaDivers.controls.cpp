// The keyboard filters and the helpers on controls.
#include "frame/host/bound_object.h"
#include "frame/host/globals.h"
#include "frame/host/host_items.h"
#include "frame/host/message_box.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/comparison.h"
#include "frame/shared/host_queries.h"
#include "frame/shared/system_queries.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/invocation.h"
#include "frame/values/rounding.h"
#include "frame/values/winapi.h"
#include "misc/VorlaDivers.h"
#include "misc/container_switch.h"
#include "misc/key_filters.h"
#include "misc/pointer_place.h"
#include "misc/range_criteria.h"
#include "misc/scale_names.h"

namespace vorla {
namespace {

// A single character travels in the place of the pointer.
std::uint8_t upperOf(std::uint8_t character) {
    return static_cast<std::uint8_t>(
        reinterpret_cast<ULONG_PTR>(CharUpperA(reinterpret_cast<LPSTR>(ULONG_PTR{character}))));
}

std::int16_t withBeep(std::int16_t kept) {
    if (kept == refusedKey) MessageBeep(MB_OK);
    return kept;
}

// The separator of the user's amounts, for a character that stands for it.
std::int16_t decimalKey(std::int16_t typed) {
    return endOnError(typed, [typed] {
        const auto separator = toAnsi(InfoLocale(LOCALE_SMONDECIMALSEP));
        return separator.empty() ? typed : std::int16_t{static_cast<std::uint8_t>(separator.front())};
    });
}

// Text boxes with a kind of field, of another maker.
bool hasFieldKinds(TextView typeName) { return typeName == L"QZText" || typeName == L"QZTextStd"; }

bool isDateField(BoundObject& control) {
    return endOnError(false, [&] {
        constexpr auto date = static_cast<std::int32_t>(ewTypeChamp::Datejjmmaaaa);
        return control.getAs<std::int32_t>(L"eTypeChamp") == date;
    });
}

// Empty for a criterion that cannot be read.
Text criterion(BoundObject& control, bool withFieldKinds) {
    return endOnError(Text(), [&] {
        const bool isDate = withFieldKinds && isDateField(control);
        return isDate ? control.getAs<Text>(L"eValeur") : control.getAs<Text>(L"Text");
    });
}

void showCritical(TextView message) {
    constexpr std::int32_t noOwner = 0;
    step([&] { messageBox(message, MB_OK | MB_ICONHAND, noOwner); });
}

// Both are read before one is written: where that fails, neither is lost.
void swapProperty(BoundObject& one, BoundObject& other, Literal name) {
    step([&] {
        const auto first = one.get(name), second = other.get(name);
        one.put(name, second);
        other.put(name, first);
    });
}

records::Rect screenRectangle(const HostObject& control) {
    RECT rectangle{};
    const auto window = windowOf(BoundObject(control).getAs<std::int32_t>(L"hwnd"));
    if (!GetWindowRect(window, &rectangle)) throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

bool answers(const HostObject& object, TextView member, std::int32_t kindOfCall) {
    // A kind of more than 16 bits is none that a member could answer.
    const auto kind = static_cast<std::int16_t>(kindOfCall);
    return kind == kindOfCall && ProprieteExiste(object, member, kind);
}

}  // namespace

std::int16_t VorlaDivers::KeyMajusc(std::int16_t KeyAscii) { return upperKey(KeyAscii, upperOf); }

std::int16_t VorlaDivers::KeyNum(std::int16_t KeyAscii, bool WithDecimal) {
    if (WithDecimal && isDecimalKey(KeyAscii)) return decimalKey(KeyAscii);
    return withBeep(numericKey(KeyAscii));
}

std::int16_t VorlaDivers::KeyFile(std::int16_t KeyAscii, const eKeyFileType& TypeName) {
    const auto kept = fileKey(KeyAscii, TypeName);
    return kept == KeyAscii ? kept : withBeep(kept);
}

bool VorlaDivers::Ctl_Argument(const HostObject& Premier, const HostObject& Second, const bool& obligatoire,
                               const Text& Mes, const HostObject& Label1Associé,
                               const HostObject& Label2Associé) {
    BoundObject first(Premier), second(Second);
    bool withFieldKinds = false;
    step([&] { withFieldKinds = hasFieldKinds(typeName(Premier)); });
    const auto from = criterion(first, withFieldKinds), to = criterion(second, withFieldKinds);
    switch (criteriaOf(from, to, obligatoire)) {
        case Criteria::accepted: break;
        case Criteria::missing: showCritical(missingMessage); return false;
        case Criteria::descending:
            showCritical(Mes.empty() ? descendingMessage : TextView(Mes));
            swapProperty(first, second, L"Text");
            if (Label1Associé && Label2Associé) {
                BoundObject label1(Label1Associé), label2(Label2Associé);
                swapProperty(label1, label2, L"Caption");
            }
            step([] { DoEvents(); });
    }
    return true;
}

void VorlaDivers::eSetFocus(const HostObject& Ctl) {
    endOnError([&] {
        BoundObject control(Ctl);
        if (control.getAs<bool>(L"Visible") && control.getAs<bool>(L"Enabled")) control.call(L"SetFocus");
    });
}

bool VorlaDivers::ToucheEnfoncée(ToucheCtl Touche) {
    return isKeyOn(Touche, GetKeyState(static_cast<int>(Touche)));
}

bool VorlaDivers::IsControlExist(const Variant& Ctl) {
    return endOnError(false, [&] { return BoundObject(Ctl.view()).hasProperty(L"Left"); });
}

std::int16_t VorlaDivers::ContainerScaleMode(Text& ScaleMd) {
    step([&] { ScaleMd = lowerCased(ScaleMd); });
    return scaleModeNamed(ScaleMd);
}

std::int16_t VorlaDivers::FindContainerScaleMode(const HostObject& Ctl) { return ScaleModeConteneur(Ctl); }

void VorlaDivers::FrameChangeEnabled(HostObject Frm, HostObject ObjetContainer, bool blEnabled) {
    switchContainer(Frm, ObjetContainer, blEnabled);
}

void VorlaDivers::FormEffaceCtl(HostObject Frm) {
    step([&] {
        HostItems controls(BoundObject(Frm).getObject(L"Controls"));
        forEachItem(controls, [](BoundObject& control) {
            step([&] { control.put(L"Text", L""); });
            step([&] { control.put(L"ListIndex", std::int16_t{-1}); });
            step([&] { control.put(L"Value", false); });
        });
    });
}

void VorlaDivers::MousePlace(HostObject Controle, bool AuCentre) {
    endOnError([&] {
        const auto at = screenRectangle(Controle);
        if (AuCentre)
            SetCursorPos(middle(at.Left, at.Right), middle(at.Top, at.Bottom));
        else
            SetCursorPos(at.Left, at.Top);
    });
}

records::Rect VorlaDivers::CtlPosition(HostObject Controle) {
    return endOnError(records::Rect{}, [&] { return screenRectangle(Controle); });
}

records::CursorPosition VorlaDivers::CursorPos(float x, float y) {
    constexpr float unset = -99;
    if (x != unset || y != unset) {
        SetCursorPos(roundedToInt32(x), roundedToInt32(y));
        return {};
    }
    POINT position{};
    GetCursorPos(&position);
    return {position.x, position.y};
}

bool VorlaDivers::PropertyExist(HostObject Ctl, TextView Property, std::int32_t TypeProperty) {
    return answers(Ctl, Property, TypeProperty);
}

bool VorlaDivers::IsPropertyExist(HostObject Ctl, TextView Property, std::int32_t TypeProperty) {
    return answers(Ctl, Property, TypeProperty);
}

bool VorlaDivers::IsFormLoad(const Variant& FrmNameOrHwnd, const Variant& FormsCol) {
    return FormChargee(FrmNameOrHwnd.view(), objectIn(FormsCol.view()));
}

std::int16_t VorlaDivers::OptionButtonValue(HostObject Opt, const Variant& TrueValue) {
    constexpr std::int16_t none = -1;
    return endOnError(none, [&] {
        if (!ProprieteExiste(Opt, L"Count", callPropertyGet)) return none;
        const auto chosen = TrueValue.view().isMissing() ? Variant(true) : plainValue(TrueValue.view());
        BoundObject buttons(Opt);
        const auto count = buttons.getAs<std::int32_t>(L"Count");
        for (std::int32_t i = 0; i < count; ++i) {
            const auto position = static_cast<std::int16_t>(checkedPosition(static_cast<std::size_t>(i)));
            BoundObject button(buttons.getDefault(position).view());
            if (isEqual(button.get(L"Value").view(), chosen.view())) return position;
        }
        return none;
    });
}

HostObject VorlaDivers::FindObjectContainerScaleMode(HostObject Ctl) { return ObjetConteneur(Ctl); }

void VorlaDivers::CopyFont(const HostFont& Src, const HostFont& dest) {
    constexpr DISPID properties[] = {DISPID_FONT_BOLD,  DISPID_FONT_CHARSET, DISPID_FONT_ITALIC,
                                     DISPID_FONT_NAME,  DISPID_FONT_SIZE,    DISPID_FONT_STRIKE,
                                     DISPID_FONT_UNDER, DISPID_FONT_WEIGHT};
    if (!Src) return;
    for (const DISPID property : properties) {
        step([&] {
            auto value = invoked(Src.get(), property, DISPATCH_PROPERTYGET, {});
            DISPID stored = DISPID_PROPERTYPUT;
            invoked(dest.get(), property, DISPATCH_PROPERTYPUT, {value.put(), &stored, 1, 1});
        });
    }
}

}  // namespace vorla
