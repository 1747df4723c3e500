// The fixed words of language files, and the rules by which texts are written into one and read from it.
//
// A language file is an INI file: a section "System" with the header, a section "Messages", and a section for
// each form under the form's name.
#pragma once

#include "frame/contract/enumerations.h"
#include "frame/values/literal.h"
#include "frame/values/text.h"

namespace vorla::language {

inline constexpr TextView folderName = L"Languages\\";
inline constexpr TextView fileExtension = L".lng";
inline constexpr TextView statusExtension = L".stu";
inline constexpr TextView defaultCode = L"FRA";

inline constexpr TextView headerSection = L"System";
inline constexpr TextView messageSection = L"Messages";
inline constexpr TextView keySeparator = L"#";

/// Returned for a message that no language has.
inline constexpr TextView missingMessage = L"**********";

/// The properties of controls that have translations, by number.
inline constexpr Literal properties[] = {L"Caption", L"Text", L"ToolTipText"};

/// The key of a control's property: the control's name, "#" and the index if it has one, "#" and the
/// property. Blanks around the index are dropped. Just the name when neither is given. With an index and no
/// property the key ends in "#"; old hosts rely on this.
Text controlKey(TextView control, TextView index, TextView property);

/// The key of an item of the header; empty for an unknown value. The key of the format's version is the
/// version itself.
TextView headerKey(enumLngSpecialInfos info);

/// The text with its line breaks in the form used in a file: "ÿ{l}" for CR LF, "ÿ{r}" for a lone CR, "ÿ{f}"
/// for a lone LF.
Text escaped(TextView text);

/// The reverse of escaped(). Also reads "=" for "ÿ{e}", which only translators write. A text that contained
/// such groups before it was escaped does not come back, because "ÿ" cannot be escaped.
Text unescaped(TextView text);

}  // namespace vorla::language
