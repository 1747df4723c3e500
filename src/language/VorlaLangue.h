// VorlaLangue: an application's texts in several languages, one file for each, and the colours of its forms.
//
// Which language is in use is kept once for each thread of the host: every VorlaLangue of a thread sees the
// same one. A text that the language in use lacks comes from the default language. Nothing is kept between
// calls: each reads its file afresh. Texts, keys and paths cross to Windows in the ANSI code page.
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
    /// The colours that LngFormLoad gives to forms and controls of the colour `ThemedOldColor`, when
    /// `ThemedBackColorApply` says so; see language/theme.h. `ThemedBackColorDef` is the host's to use.
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

    /// The file of the language in use, empty when none is selected, and the status file that goes with the
    /// language that LngSetFileName named.
    TextView LngGetFileName();
    TextView LngGetFileNameStatus();

    /// The piece of LngGetFileName that `TypeRep` names; see DecoupeChemin.
    Joined LngFolder(eFileN TypeRep);

    /// Makes "Languages" below `AppPath` the folder of language files and selects the language `Code`.
    /// Neither needs to exist.
    void LngSetFileName(TextView AppPath, TextView Code);

    /// Selects a language when it has a file, and says whether it has. An empty `Language` selects none and
    /// gives False; of any other without a file nothing changes.
    bool LngSetLanguage(TextView Language);

    /// The languages that have files: names or codes as an array of strings, their number, or an item of
    /// `Lst` for each. The list is cleared first, whatever is asked. Empty before LngSetFileName; the array
    /// of a list that was filled, or of no files, is unallocated. Unguarded: a failure of `Lst` reaches the
    /// caller, and error 6 for more than 32,767 files.
    Variant LngGetPresent(lngRetour TypeRetour, const HostObject& Lst);

    /// The text with its line breaks as they stand in language files, and back; see
    /// language/language_format.h.
    Text StringEscape(const Text& strMsg);
    Text StringUnEscape(const Text& strMsg);

    /// The message of this name, "**********" when no language has it, without its "&" when `SuppressEt`,
    /// with the values in the places of "%%1" to "%%4". A value that is left out, or has no text, leaves its
    /// place as it is. Continue on error.
    Text LoadMsgLng(TextView strMsgId, bool SuppressEt, VariantView String_1, VariantView String_2,
                    VariantView String_3, VariantView String_4);

    /// The text of a control's property, as LoadMsgLng. An index below 0 is none. Empty when no language is
    /// selected: hosts tell that from a missing text. Continue on error.
    Text LoadCtlLng(TextView strFormName, TextView strCtlName, eLngProperty CtlProperty,
                    std::int16_t CtlIndex, bool SuppressEt, VariantView String_1, VariantView String_2,
                    VariantView String_3, VariantView String_4);

    /// Writes a message into the file of the language in use. Nothing happens when none is selected or when
    /// either is empty, or longer than 32,766 characters; a failure of Windows goes unreported.
    void LngSaveMsg(TextView strMsgId, TextView strMsg);

    /// The key of a control's property; see language/language_format.h.
    Text LngPrepareMotCle(TextView Ctl, TextView CtlIndex, TextView Propriete);

    /// A piece of the header of the language in use or, when `KeyReturn`, the key that it has there. Empty
    /// for a value that names none.
    Text LngSpecialInfos(enumLngSpecialInfos SpecialInfos, bool KeyReturn);

    /// Puts texts, colours and widths on a form; see language/form_translation.h. Nothing at all when no
    /// language is selected. `OnlyBackColor` leaves texts and widths alone, `NoChangeBackColor` colours;
    /// `FrmSubstitute` names the form whose texts the controls share. Continue on error.
    void LngFormLoad(const HostObject& Frm, const HostObject& lblTest, bool OnlyBackColor,
                     bool NoChangeBackColor, TextView FrmSubstitute);

    /// Writes the texts of a form into the file of the language `NewLanguageName`, beside the language in
    /// use. Continue on error.
    void LngFormSave(const HostObject& Frm, TextView NewLanguageName);

    /// Gives an option button or a check box a caption and the width that it takes. Unguarded.
    void LngRedimCtl(const HostObject& Ctl, const HostObject& lblTest, TextView Texte);
};

}  // namespace vorla
