// The fixed words of language files, and the rules that a text goes by on its way into one and out of it.
//
// A language file is an INI file: a section "System" with the header, a section "Messages", and one section
// for each form, named as the form is.
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

/// What hosts get for a message that no language has.
inline constexpr TextView missingMessage = L"**********";

/// The properties of controls that have translations, by number.
inline constexpr Literal properties[] = {L"Caption", L"Text", L"ToolTipText"};

/// The key of a control's property: the control's name, "#" and its index without surrounding blanks when it
/// has one, "#" and the property. Just the name when neither is given. With an index and no property the key
/// ends in "#", which hosts rely on.
Text controlKey(TextView control, TextView index, TextView property);

/// The key of one piece of the header; empty for a value that names none. The format's version is its own
/// key.
TextView headerKey(enumLngSpecialInfos info);

/// The text with its line breaks written so that they can stand in a file: "ÿ{l}" for CR LF, "ÿ{r}" for a
/// lone CR, "ÿ{f}" for a lone LF.
Text escaped(TextView text);

/// The text that escaped() wrote, and "=" for "ÿ{e}", which only translators write. A text that held such
/// groups itself before it was escaped does not come back: nothing escapes the "ÿ".
Text unescaped(TextView text);

}  // namespace vorla::language
