// VorlaChaine: fixed-width columns, fields, bounded replacing, counting, quoting, and record keys.
//
// Every member is unguarded: failures reach the host as run-time errors. Positions count from 1 and,
// like lengths, are 16-bit integers: past 32,767 they raise error 6, overflow.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/values/bstr.h"
#include "frame/values/joined.h"
#include "frame/values/variant.h"

namespace vorla {

class VorlaChaine {
public:
    /// `Chaine` left-aligned in a column of `Longueur` characters, cut on the right. Numbers are written with
    /// a point, whatever the system's settings. Errors: 5 for a negative length, 94 for Null, 13 for a value
    /// that has no text.
    Bstr CBR(VariantView Chaine, std::int16_t Longueur);

    /// The same, right-aligned and cut on the left.
    Bstr CBL(VariantView Chaine, std::int16_t Longueur);

    /// Field `Rang` of a text delimited by `Separateur`, or by a tab when that is empty; see ExtraitChamp.
    TextView ExtraitChaine(TextView Chaine, std::int16_t Rang, TextView Separateur, bool DepuisLaFin);

    /// `Chaine` with up to `Nombre` occurrences of `Car1` replaced by `Car2` from position `Debut` on;
    /// see replaced() for what a replacement skips. Below 1, `Nombre` and `Debut` mean all and the start.
    Text Transfrm(TextView Chaine, TextView Car1, TextView Car2, std::int16_t Debut, std::int16_t Nombre);

    /// How often `Cherche` occurs in `Chaine` from position `Start` on, overlapping occurrences included.
    float Occurrence(TextView Chaine, TextView Cherche, bool CaseSensitive, std::int16_t Start);

    /// A key as typed, in the form in which a key column stores it. A number by the user's locale is rounded
    /// and zero-filled to `Longueur` digits. Any other text is in upper case with exactly `Longueur`
    /// characters. Error 5 for a negative length.
    Bstr Zclé(TextView Clé, std::int16_t Longueur);

    /// The code that follows `Chaine` in base 36, as long as `Chaine`. An empty code stands for `Longueur`
    /// zeros. See nextCode(). Error 5 for a negative length.
    Joined NumLet(TextView Chaine, std::int16_t Longueur);

    /// The text of `Chaine` up to its first NUL character. Errors as for CBR's text.
    Bstr SplitStr(VariantView Chaine);

    /// `strArg` between two delimiters of the kind `ParseSeparatorType`; `CustomSeparator` is the
    /// delimiter of `epsCustom`.
    Bstr Parse(TextView strArg, const eParseSeparator& ParseSeparatorType, const Text& CustomSeparator);
};

}  // namespace vorla
