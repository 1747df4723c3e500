// VorlaDivers: searches in lists and trees, keyboard filters, helpers on controls.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/contract/records.h"
#include "frame/host/host_reference.h"
#include "frame/values/scalars.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaDivers {
public:
    // Searches and values, in VorlaDivers.cpp.

    /// The greater (Maxi) or the smaller (Mini) of two values; see MaxVar() and MinVar().
    Variant Maxi(VariantView Valeur1, VariantView Valeur2);
    Variant Mini(VariantView Valeur1, VariantView Valeur2);

    /// The index (0 is the first) of the first line of a list box that matches `Cle`, or -1. A line matches
    /// when its text is `Cle`, or begins with it when `RechercheIdentique` is False. A `Rang` that is not 0
    /// compares that field of the line, see ExtraitChamp(). `OnItemData` looks for the line whose item data
    /// is the number in `Cle`. End on error: -1.
    std::int32_t ListeCherche(HostObject List, TextView Cle, const bool& OnItemData,
                              const bool& CaseSensitive, const bool& RechercheIdentique,
                              const Text& Separateur, const std::uint8_t& Rang);

    /// Selects the lines from `FirstItem` to `LastItem` of a list box with multiple selection, or clears
    /// them. A `LastItem` below `FirstItem` becomes the last line. The list box gets both as 16 bits without
    /// a sign. Errors are the host's.
    void ListeSelectRange(const HostObject& LstBiox, bool NewState, const std::int32_t& FirstItem,
                          std::int32_t& LastItem);

    /// The number (1 is the first) of the first node of a tree view whose key, or text, matches `Valeur`, or
    /// -1. Matching is that of ListeCherche. Errors are the host's; 94 for Null instead of a text.
    std::int32_t TreeCherche(HostObject Tree, TextView Valeur, bool OnText, const bool& CaseSensitive,
                             const bool& RechercheIdentique);

    /// The index of the first element, from index 0 on, that matches `Cle`, or -1. A number (16 or 32 bits,
    /// single, double, currency) matches its equals. For any other key, the element's text begins with the
    /// key's text. End on error: -1, for example for an array whose first index is above 0.
    std::int32_t TabCherche(VariantView Tabl, VariantView Cle);

    /// The growth from one amount to another in percent; see growth(). Error 6 for a result beyond a
    /// currency.
    Currency CalcTauxAugm(Currency Mt1, Currency Mt2);

    /// How long the remaining work takes as "hh:nn:ss", when `lgNow` of `lgMax` steps are done since
    /// `TimerDeb`, in seconds since midnight. Whole days are left out. Error 11 when `lgNow` is 0.
    Bstr SysTempsRestant(float TimerDeb, std::int32_t lgMax, std::int32_t lgNow);

    /// Waits for a number of seconds and lets the host process its events meanwhile. A wait that passes
    /// midnight does not end: the clock starts again at 0. Old hosts rely on the time of day being the
    /// measure.
    void SysWait(float nbSeconde);

    /// Seconds as clock text; see DureeTexte().
    Text SecondToTime(std::int32_t Temps, const bool& MmSs);

    /// A random whole number from `FromValue` to `ToValue`, both included. `FromValue` if it is not below
    /// `ToValue`.
    std::int32_t RndBetween(std::int32_t FromValue, const std::int32_t& ToValue);

    /// Whether the value is not an array, or an array that was never dimensioned or has been erased.
    bool IsArrayEmpty(const Variant& Tableau);

    /// The time from one date to another in French words; see dateDifference(). A `DateFin` of 0 is now. With
    /// `HeureString`, hours, minutes and seconds are a time in the user's format. Error 5 for dates before
    /// the year 100 or after 9999.
    Text DateDiffDaysAndTime(Date DateDeb, Date DateFin, const bool& HeureString);

    /// Whether `Item` of a collection answers for this key. End on error: false.
    bool IsMemberExist(const HostObject& mCol, const Text& Key);

    /// Whether a tree view has a node with this key whose text can be read. End on error: false.
    bool IsNodeExist(const HostObject& Tree, TextView Key);

    /// The code of a mouse button in the host's numbering or in another control's; see mouseButtons. Empty
    /// for what is not a code, and when `Quoi` or `Sens` is not a member of its enumeration.
    Variant ElTranslate(eElTranslate Quoi, VariantView Value, eElTranslateSens Sens);

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
