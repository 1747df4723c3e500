// VorlaLangue: an application's texts in several languages, with one file for each language, and the colours
// of its forms.
//
// The language in use belongs to the thread: all VorlaLangue objects of a thread share it. A text that it
// lacks comes from the default language. Nothing else is kept: each call reads its file again. Texts, keys
// and paths reach Windows in the ANSI code page.
#pragma once

#include <cstdint>

#include "frame/contract/enumerations.h"
#include "frame/host/host_reference.h"
#include "frame/values/joined.h"
#include "frame/values/variant.h"
#include "language/theme.h"

namespace vorla {

class VorlaLangue {
public:
    /// The theme: if `ThemedBackColorApply`, LngFormLoad gives these colours to forms and controls of the
    /// colour `ThemedOldColor`; see language/theme.h. `ThemedBackColorDef` is for the host's own use.
    bool ThemedBackColorApply = false;
    std::int32_t ThemedBackColor = 0;
    std::int32_t ThemedTabBackColor = 0;
    std::int32_t ThemedBackColorDef = language::buttonFace;
    std::int32_t ThemedOldColor = 0;

    /// The fixed words of language files.
    TextView lngMesNull();
    TextView LngSeparator();
    std::uint8_t LngDefStatus();
    TextView LngExtension();
    TextView LngExtensionStatus();
    TextView iniLngSys();
    TextView strMesConst();
    TextView lngDefaulltLanguage();
    TextView PathOfLang();

    /// The file of the language in use; empty when none is selected.
    TextView LngGetFileName();
    /// The status file of the language that LngSetFileName named.
    TextView LngGetFileNameStatus();

    /// The piece of LngGetFileName that `TypeRep` names; see DecoupeChemin.
    Joined LngFolder(eFileN TypeRep);

    /// Makes "Languages" below `AppPath` the folder of language files and selects the language `Code`.
    /// Neither needs to exist.
    void LngSetFileName(TextView AppPath, TextView Code);

    /// Selects a language if it has a file, and returns whether it has. An empty `Language` deselects the
    /// language and gives False. A language without a file changes nothing.
    bool LngSetLanguage(TextView Language);

    /// The languages that have files: their names or codes as an array of strings, their number, or an item
    /// of `Lst` for each. The list is always cleared first. The result is Empty before LngSetFileName. The
    /// array is unallocated when a list was filled or there are no files. Unguarded: a failure of `Lst`
    /// reaches the caller, and error 6 for more than 32,767 files.
    Variant LngGetPresent(lngRetour TypeRetour, const HostObject& Lst);

    /// The text in the form used in language files; see language/language_format.h.
    Text StringEscape(const Text& strMsg);
    /// The reverse.
    Text StringUnEscape(const Text& strMsg);

    /// The message of this name; "**********" when no language has it. With `SuppressEt` without its "&". The
    /// values replace "%%1" to "%%4"; a value that is left out, or has no text, leaves its placeholder as it
    /// is. Continue on error.
    Text LoadMsgLng(TextView strMsgId, bool SuppressEt, VariantView String_1, VariantView String_2,
                    VariantView String_3, VariantView String_4);

    /// The text of a control's property, as LoadMsgLng. An index below 0 means no index. Empty when no
    /// language is selected; hosts tell that from a missing text. Continue on error.
    Text LoadCtlLng(TextView strFormName, TextView strCtlName, eLngProperty CtlProperty,
                    std::int16_t CtlIndex, bool SuppressEt, VariantView String_1, VariantView String_2,
                    VariantView String_3, VariantView String_4);

    /// Writes a message into the file of the language in use. Nothing happens when no language is selected,
    /// or when the name or the message is empty or longer than 32,766 characters. A failure of Windows is not
    /// reported.
    void LngSaveMsg(TextView strMsgId, TextView strMsg);

    /// The key of a control's property; see language/language_format.h.
    Text LngPrepareMotCle(TextView Ctl, TextView CtlIndex, TextView Propriete);

    /// An item of the header of the language in use or, with `KeyReturn`, its key. Empty for an unknown
    /// value.
    Text LngSpecialInfos(enumLngSpecialInfos SpecialInfos, bool KeyReturn);

    /// Puts texts, colours and widths on a form; see language/form_translation.h. Nothing happens when no
    /// language is selected. `OnlyBackColor` skips texts and widths, `NoChangeBackColor` skips colours.
    /// `FrmSubstitute` names the form whose texts the controls share. Continue on error.
    void LngFormLoad(const HostObject& Frm, const HostObject& lblTest, bool OnlyBackColor,
                     bool NoChangeBackColor, TextView FrmSubstitute);

    /// Writes the texts of a form into the file of the language `NewLanguageName`, in the folder of the
    /// language in use. Continue on error.
    void LngFormSave(const HostObject& Frm, TextView NewLanguageName);

    /// Gives an option button or a check box a caption and the width that it needs. Unguarded.
    void LngRedimCtl(const HostObject& Ctl, const HostObject& lblTest, TextView Texte);
};

}  // namespace vorla
