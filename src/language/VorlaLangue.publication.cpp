#include "language/VorlaLangue.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

// clang-format off
PUBLISH(VorlaLangue,
        DATA_MEMBER(0, ThemedBackColorApply),
        DATA_MEMBER(2, ThemedBackColor),
        DATA_MEMBER(4, ThemedTabBackColor),
        DATA_MEMBER(6, ThemedBackColorDef),
        DATA_MEMBER(8, ThemedOldColor),
        PROPERTY_GET(10, lngMesNull, lngMesNull),
        PROPERTY_GET(11, LngSeparator, LngSeparator),
        PROPERTY_GET(12, LngDefStatus, LngDefStatus),
        PROPERTY_GET(13, LngExtension, LngExtension),
        PROPERTY_GET(14, LngExtensionStatus, LngExtensionStatus),
        PROPERTY_GET(15, iniLngSys, iniLngSys),
        PROPERTY_GET(16, strMesConst, strMesConst),
        PROPERTY_GET(17, lngDefaulltLanguage, lngDefaulltLanguage),
        PROPERTY_GET(18, PathOfLang, PathOfLang),
        PROPERTY_GET(19, LngGetFileName, LngGetFileName),
        PROPERTY_GET(20, LngGetFileNameStatus, LngGetFileNameStatus),
        PROPERTY_GET(21, LngFolder, LngFolder, optional(L"TypeRep", eFileN::efRépertoire)),
        METHOD(22, LngSetFileName, L"AppPath", L"Code"),
        METHOD(23, LngSetLanguage, L"Language"),
        METHOD(24, LngGetPresent, L"TypeRetour", optional(L"Lst")),
        METHOD(25, StringEscape, L"strMsg"),
        METHOD(26, StringUnEscape, L"strMsg"),
        RESERVED_SLOT(27),  // the routine that reads every value
        METHOD(28, LoadMsgLng, L"strMsgId", optional(L"SuppressEt", false), optional(L"String_1"),
               optional(L"String_2"), optional(L"String_3"), optional(L"String_4")),
        METHOD(29, LoadCtlLng, L"strFormName", L"strCtlName", L"CtlProperty", optional(L"CtlIndex", -1),
               optional(L"SuppressEt", false), optional(L"String_1"), optional(L"String_2"),
               optional(L"String_3"), optional(L"String_4")),
        METHOD(30, LngSaveMsg, L"strMsgId", L"strMsg"),
        METHOD(31, LngPrepareMotCle, L"Ctl", L"CtlIndex", L"Propriete"),
        METHOD(32, LngSpecialInfos, L"SpecialInfos", optional(L"KeyReturn", false)),
        METHOD(33, LngFormLoad, L"Frm", L"lblTest", optional(L"OnlyBackColor", false),
               optional(L"NoChangeBackColor", false), optional(L"FrmSubstitute", L"")),
        METHOD(34, LngFormSave, L"Frm", L"NewLanguageName"),
        METHOD(35, LngRedimCtl, L"Ctl", L"lblTest", L"Texte"))
// clang-format on

}  // namespace vorla
