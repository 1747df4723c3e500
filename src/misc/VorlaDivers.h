// VorlaDivers: searches in lists and trees, keyboard filters, helpers on controls.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/contract/records.h"
#include "frame/host/host_reference.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaDivers {
public:
    // Keyboard filters. They take a typed character's code in the ANSI code page and return the one to keep,
    // or 0, after the standard beep, to refuse it. None of them fails.

    /// The upper-case form of a character. One that has none in the code page, and a code outside a byte,
    /// stay.
    std::int16_t KeyMajusc(std::int16_t KeyAscii);

    /// Digits and backspace. With `WithDecimal` a point or comma becomes the decimal separator of the user's
    /// amounts; where there is none, it stays as typed.
    std::int16_t KeyNum(std::int16_t KeyAscii, bool WithDecimal);

    /// The characters of a file's name, or with `ekftPathAndFileName` of a path.
    std::int16_t KeyFile(std::int16_t KeyAscii, const eKeyFileType& TypeName);

    // Helpers on controls.

    /// Checks two range criteria by their `Text`, or in a QZText or QZTextStd that is a date field by their
    /// `eValeur`. When both are given and the first is the greater text, says so with `Mes` or a standard
    /// message, and swaps them and, if both labels are given, their captions. False, after a message, when
    /// one is missing and `obligatoire`. What fails is skipped.
    bool Ctl_Argument(const HostObject& Premier, const HostObject& Second, const bool& obligatoire,
                      const Text& Mes, const HostObject& Label1Associé, const HostObject& Label2Associé);

    /// Gives a control the focus if it is visible and enabled. Failures are ignored.
    void eSetFocus(const HostObject& Ctl);

    /// Whether a key is down. For `Pause` and `VerrouMajuscule`, also whether it is toggled on.
    bool ToucheEnfoncée(ToucheCtl Touche);

    /// Whether the variant refers to an object with a `Left` that can be read.
    bool IsControlExist(const Variant& Ctl);

    /// The scale mode of a name in English, in any case ("Pixel" is 3); twips, 1, for an unknown one.
    /// `ScaleMd` becomes lower-case.
    std::int16_t ContainerScaleMode(Text& ScaleMd);

    /// The scale mode of the control's container; see ScaleModeConteneur().
    std::int16_t FindContainerScaleMode(const HostObject& Ctl);

    /// Enables or disables a container of the form and everything in it; see switchContainer().
    void FrameChangeEnabled(HostObject Frm, HostObject ObjetContainer, bool blEnabled);

    /// Gives each control of a form an empty `Text`, the `ListIndex` -1 and the `Value` False. A control
    /// without one of them keeps the others; what fails is skipped.
    void FormEffaceCtl(HostObject Frm);

    /// Moves the mouse pointer to the middle of a control, or to its top left corner. Ends on error: the
    /// pointer stays.
    void MousePlace(HostObject Controle, bool AuCentre);

    /// The control's rectangle on the screen, in pixels. Ends on error: zeros.
    records::Rect CtlPosition(HostObject Controle);

    /// The position of the mouse pointer, in pixels. With a coordinate other than -99 the pointer is moved,
    /// and the result is zeros. Error 6 for a coordinate of more than 32 bits.
    records::CursorPosition CursorPos(float x, float y);

    /// Whether a call of this kind of the named member succeeds; see ProprieteExiste(). Two names of one
    /// test.
    bool PropertyExist(HostObject Ctl, TextView Property, std::int32_t TypeProperty);
    bool IsPropertyExist(HostObject Ctl, TextView Property, std::int32_t TypeProperty);

    /// Whether a form is loaded, by its name or its window handle; see FormChargee(). Errors: 424 and 91 for
    /// `FormsCol` without an object, and the host's own.
    bool IsFormLoad(const Variant& FrmNameOrHwnd, const Variant& FormsCol);

    /// The position in a control array of the first element whose `Value` equals `TrueValue` (True if
    /// missing). -1 when there is none, for a single control, and on an error.
    std::int16_t OptionButtonValue(HostObject Opt, const Variant& TrueValue);

    /// The control's container if it has a scale mode; see ObjetConteneur().
    HostObject FindObjectContainerScaleMode(HostObject Ctl);

    /// Copies the properties of a font into another one. What fails is skipped.
    void CopyFont(const HostFont& Src, const HostFont& dest);
};

}  // namespace vorla
