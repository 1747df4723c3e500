#include "language/VorlaLangue.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {

PUBLISH(VorlaLangue, DATA_MEMBER(ThemedBackColorApply), DATA_MEMBER(ThemedBackColor),
        DATA_MEMBER(ThemedTabBackColor), DATA_MEMBER(ThemedBackColorDef), DATA_MEMBER(ThemedOldColor),
        PROPERTY_GET(lngMesNull, lngMesNull), PROPERTY_GET(LngSeparator, LngSeparator),
        PROPERTY_GET(LngDefStatus, LngDefStatus), PROPERTY_GET(LngExtension, LngExtension),
        PROPERTY_GET(LngExtensionStatus, LngExtensionStatus), PROPERTY_GET(iniLngSys, iniLngSys),
        PROPERTY_GET(strMesConst, strMesConst), PROPERTY_GET(lngDefaulltLanguage, lngDefaulltLanguage),
        PROPERTY_GET(PathOfLang, PathOfLang), PROPERTY_GET(LngGetFileName, LngGetFileName),
        PROPERTY_GET(LngGetFileNameStatus, LngGetFileNameStatus),
        PROPERTY_GET(LngFolder, LngFolder, optional(L"TypeRep", eFileN::efRépertoire)),
        METHOD(LngSetFileName, L"AppPath", L"Code"), METHOD(LngSetLanguage, L"Language"),
        METHOD(LngGetPresent, L"TypeRetour", optional(L"Lst")), METHOD(StringEscape, L"strMsg"),
        METHOD(StringUnEscape, L"strMsg"),
        RESERVED_SLOT,  // the routine behind every read
        METHOD(LoadMsgLng, L"strMsgId", optional(L"SuppressEt", false), optional(L"String_1"),
               optional(L"String_2"), optional(L"String_3"), optional(L"String_4")),
        METHOD(LoadCtlLng, L"strFormName", L"strCtlName", L"CtlProperty", optional(L"CtlIndex", -1),
               optional(L"SuppressEt", false), optional(L"String_1"), optional(L"String_2"),
               optional(L"String_3"), optional(L"String_4")),
        METHOD(LngSaveMsg, L"strMsgId", L"strMsg"),
        METHOD(LngPrepareMotCle, L"Ctl", L"CtlIndex", L"Propriete"),
        METHOD(LngSpecialInfos, L"SpecialInfos", optional(L"KeyReturn", false)),
        METHOD(LngFormLoad, L"Frm", L"lblTest", optional(L"OnlyBackColor", false),
               optional(L"NoChangeBackColor", false), optional(L"FrmSubstitute", L"")),
        METHOD(LngFormSave, L"Frm", L"NewLanguageName"), METHOD(LngRedimCtl, L"Ctl", L"lblTest", L"Texte"))

}  // namespace vorla
