// VorlaDivers: searches in lists and trees, keyboard filters, helpers on controls.
#pragma once

#include "frame/contract/enumerations.h"
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

    /// Whether the value is no array, or an array that was never dimensioned or has been erased.
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
    /// for what is no code, and when `Quoi` or `Sens` is not a member of its enumeration.
    Variant ElTranslate(eElTranslate Quoi, VariantView Value, eElTranslateSens Sens);
};

}  // namespace vorla
