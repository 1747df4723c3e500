// VorlaLangue with real language files: the language in use, lookups, and writing.
#include <algorithm>

#include "contract/langue_fixture.h"
#include "contract/signatures.h"
#include "support/asked_object.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

constexpr const wchar_t* marker = L"**********";

TEST_F(Langue, membersAreDescribed) {
    const Texts expected = {
        L"40030000 get BOOL ThemedBackColorApply()",
        L"40030000 put void ThemedBackColorApply(BOOL)",
        L"40030001 get I4 ThemedBackColor()",
        L"40030001 put void ThemedBackColor(I4)",
        L"40030002 get I4 ThemedTabBackColor()",
        L"40030002 put void ThemedTabBackColor(I4)",
        L"40030003 get I4 ThemedBackColorDef()",
        L"40030003 put void ThemedBackColorDef(I4)",
        L"40030004 get I4 ThemedOldColor()",
        L"40030004 put void ThemedOldColor(I4)",
        L"6803000b get BSTR lngMesNull()",
        L"6803000a get BSTR LngSeparator()",
        L"68030009 get UI1 LngDefStatus()",
        L"68030008 get BSTR LngExtension()",
        L"68030007 get BSTR LngExtensionStatus()",
        L"68030006 get BSTR iniLngSys()",
        L"68030005 get BSTR strMesConst()",
        L"68030004 get BSTR lngDefaulltLanguage()",
        L"68030003 get BSTR PathOfLang()",
        L"68030002 get BSTR LngGetFileName()",
        L"68030001 get BSTR LngGetFileNameStatus()",
        L"68030000 get BSTR LngFolder([eFileN TypeRep=1])",
        L"60030000 void LngSetFileName(BSTR AppPath, BSTR Code)",
        L"60030001 BOOL LngSetLanguage(BSTR Language)",
        L"60030002 VARIANT LngGetPresent(lngRetour TypeRetour, [&object Lst])",
        L"60030003 BSTR StringEscape(&BSTR strMsg)",
        L"60030004 BSTR StringUnEscape(&BSTR strMsg)",
        L"60030006 BSTR LoadMsgLng(BSTR strMsgId, [BOOL SuppressEt=0], [VARIANT String_1], "
        L"[VARIANT String_2], [VARIANT String_3], [VARIANT String_4])",
        L"60030007 BSTR LoadCtlLng(BSTR strFormName, BSTR strCtlName, eLngProperty CtlProperty, "
        L"[I2 CtlIndex=-1], [BOOL SuppressEt=0], [VARIANT String_1], [VARIANT String_2], "
        L"[VARIANT String_3], [VARIANT String_4])",
        L"60030008 void LngSaveMsg(BSTR strMsgId, BSTR strMsg)",
        L"60030009 BSTR LngPrepareMotCle(BSTR Ctl, BSTR CtlIndex, BSTR Propriete)",
        L"6003000a BSTR LngSpecialInfos(enumLngSpecialInfos SpecialInfos, [BOOL KeyReturn=0])",
        L"6003000b void LngFormLoad(&object Frm, &object lblTest, [BOOL OnlyBackColor=0], "
        L"[BOOL NoChangeBackColor=0], [BSTR FrmSubstitute=\"\"])",
        L"6003000c void LngFormSave(&object Frm, BSTR NewLanguageName)",
        L"6003000d void LngRedimCtl(&object Ctl, &object lblTest, BSTR Texte)"};
    EXPECT_EQ(expected, signatures(langue.get()));
    // The place of the private routine.
    auto none = Arguments().parameters();
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, invoke(langue.get(), 0x60030005, DISPATCH_METHOD, none).code);
}

TEST_F(Langue, fixedWordsNeverChange) {
    for (int pass = 0; pass < 2; ++pass) {
        EXPECT_EQ(marker, textOf(L"lngMesNull"));
        EXPECT_EQ(L"#", textOf(L"LngSeparator"));
        expectResult(call(L"LngDefStatus"), [] {
            Variant zero;
            zero.put()->vt = VT_UI1;
            zero.put()->bVal = 0;
            return zero;
        }());
        EXPECT_EQ(L".lng", textOf(L"LngExtension"));
        EXPECT_EQ(L".stu", textOf(L"LngExtensionStatus"));
        EXPECT_EQ(L"System", textOf(L"iniLngSys"));
        EXPECT_EQ(L"Messages", textOf(L"strMesConst"));
        EXPECT_EQ(L"FRA", textOf(L"lngDefaulltLanguage"));
        EXPECT_EQ(L"Languages\\", textOf(L"PathOfLang"));
        select(L"ENG");
    }
    // They cannot be written.
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND,
              invoke(langue.get(), L"lngMesNull", Arguments().named(DISPID_PROPERTYPUT, text(L"x")),
                     DISPATCH_PROPERTYPUT)
                  .code);
}

TEST_F(Langue, fileNamesAreMadeOfTheApplicationsPathAndTheCode) {
    EXPECT_EQ(L"", textOf(L"LngGetFileName"));
    EXPECT_EQ(L"", textOf(L"LngGetFileNameStatus"));
    EXPECT_EQ(L"", textOf(L"LngFolder"));
    for (const wchar_t* path : {L"C:\\App", L"C:\\App\\"}) {
        run(L"LngSetFileName", {text(path), text(L"ENG")});
        EXPECT_EQ(L"C:\\App\\Languages\\ENG.lng", textOf(L"LngGetFileName"));
        EXPECT_EQ(L"C:\\App\\Languages\\ENG.stu", textOf(L"LngGetFileNameStatus"));
    }
    // Nothing is checked, not even whether the names are empty.
    run(L"LngSetFileName", {text(L""), text(L"")});
    EXPECT_EQ(L"\\Languages\\.lng", textOf(L"LngGetFileName"));
    EXPECT_EQ(L"\\Languages\\.stu", textOf(L"LngGetFileNameStatus"));
    run(L"LngSetFileName", {text(L"C:\\a\\\\"), text(L"ça va?")});
    EXPECT_EQ(L"C:\\a\\\\Languages\\ça va?.lng", textOf(L"LngGetFileName"));
    run(L"LngSetFileName", {long32(7), Variant()});
    EXPECT_EQ(L"7\\Languages\\.lng", textOf(L"LngGetFileName"));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"LngSetFileName", {text(L"a"), nullValue()}).code);
    EXPECT_EQ(L"7\\Languages\\.lng", textOf(L"LngGetFileName"));
}

TEST_F(Langue, piecesOfTheFilesName) {
    run(L"LngSetFileName", {text(L"C:\\App"), text(L"ENG")});
    const wchar_t* const pieces[] = {
        L"C:\\App\\Languages\\", L"ENG.lng", L"lng",  L"ENG",
        L"\\App\\Languages\\",   L"C:",      L"C:\\", L"C:\\App\\Languages\\ENG.lng"};
    for (int part = 1; part <= 8; ++part)
        EXPECT_EQ(pieces[part - 1], textOf(L"LngFolder", {long32(part)})) << part;
    EXPECT_EQ(pieces[0], textOf(L"LngFolder"));
    EXPECT_EQ(pieces[0], textOf(L"LngFolder", {missing()}));
    for (const int part : {0, 9, -1}) EXPECT_EQ(L"", textOf(L"LngFolder", {long32(part)})) << part;
}

TEST_F(Langue, aLanguageIsSelectedWhenItHasAFile) {
    languageFile(L"ENG", L"[Messages]\r\nm=hello\r\n");
    languageFile(L"", L"[Messages]\r\nm=nobody\r\n");
    application.folder(L"Languages\\DIR.lng");
    // Without a folder only the file's name is left.
    expectResult(call(L"LngSetLanguage", {text(L"ENG")}), false);
    EXPECT_EQ(L"", textOf(L"LngGetFileName"));

    select(L"FRA");
    const auto status = textOf(L"LngGetFileNameStatus");
    expectResult(call(L"LngSetLanguage", {text(L"ENG")}), true);
    EXPECT_EQ(languages + L"\\ENG.lng", textOf(L"LngGetFileName"));
    EXPECT_EQ(L"hello", textOf(L"LoadMsgLng", {text(L"m")}));
    for (const wchar_t* code : {L"DEU", L"DIR", L"..", L"ENG.lng", L"E*"}) {
        expectResult(call(L"LngSetLanguage", {text(code)}), false, narrow(code));
        EXPECT_EQ(languages + L"\\ENG.lng", textOf(L"LngGetFileName"));
    }
    // An empty code deselects the language, unless it has a file too.
    expectResult(call(L"LngSetLanguage", {text(L"")}), true);
    EXPECT_EQ(languages + L"\\.lng", textOf(L"LngGetFileName"));
    EXPECT_TRUE(DeleteFileW((languages + L"\\.lng").c_str()));
    expectResult(call(L"LngSetLanguage", {text(L"")}), false);
    EXPECT_EQ(L"", textOf(L"LngGetFileName"));
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"m")}));
    // The folder is still known, and the status file never changes.
    expectResult(call(L"LngSetLanguage", {text(L"eng")}), true);
    EXPECT_EQ(status, textOf(L"LngGetFileNameStatus"));
    EXPECT_EQ(languages + L"\\FRA.stu", status);
}

TEST_F(Langue, escapesOfLineBreaks) {
    EXPECT_EQ(L"a\u00FF{l}b\u00FF{r}c\u00FF{f}d=", textOf(L"StringEscape", {text(L"a\r\nb\rc\nd=")}));
    EXPECT_EQ(L"Line1\r\nLine2", textOf(L"StringUnEscape", {text(L"Line1\u00FF{l}Line2")}));
    EXPECT_EQ(L"=\r\n", textOf(L"StringUnEscape", {text(L"\u00FF{e}\u00FF{r}\u00FF{f}")}));
    EXPECT_EQ(L"", textOf(L"StringEscape", {text(L"")}));
    EXPECT_EQ(L"", textOf(L"StringUnEscape", {text(L"")}));
    EXPECT_EQ(L"a=b", textOf(L"StringEscape", {text(L"a=b")}));
    // The variables are only read, whatever they hold.
    Variant variable(text(L"\r\n"));
    EXPECT_EQ(L"\u00FF{l}", textOf(L"StringEscape", {byReference(variable)}));
    EXPECT_EQ(L"\r\n", viewOf(variable.raw().bstrVal));
    BSTR none = nullptr;
    EXPECT_EQ(L"", textOf(L"StringEscape", {byReference(VT_BSTR, &none)}));
    EXPECT_EQ(nullptr, none);
    EXPECT_EQ(L"12", textOf(L"StringUnEscape", {long32(12)}));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"StringEscape", {nullValue()}).code);
}

TEST_F(Langue, messagesComeFromTheLanguageThenFromTheDefault) {
    languageFile(L"ENG",
                 L"[Messages]\r\nboth=english\r\nempty=\r\nbreaks=Save %%1 before leaving?\u00FF{l}Lost "
                 L"\u00FF{e}\r\n");
    languageFile(L"FRA",
                 L"[Messages]\r\nboth=français\r\nonly=seulement\r\nempty=vide\r\n[messages2]\r\nx=1\r\n");
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"both")}));
    select(L"ENG");
    EXPECT_EQ(L"english", textOf(L"LoadMsgLng", {text(L"both")}));
    EXPECT_EQ(L"english", textOf(L"LoadMsgLng", {text(L"BOTH")}));
    EXPECT_EQ(L"seulement", textOf(L"LoadMsgLng", {text(L"only")}));
    EXPECT_EQ(L"vide", textOf(L"LoadMsgLng", {text(L"empty")}));
    EXPECT_EQ(L"Save %%1 before leaving?\r\nLost =", textOf(L"LoadMsgLng", {text(L"breaks")}));
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"x")}));
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"absent")}));
    // An empty key must not ask for the names of all keys.
    for (const wchar_t* key : {L"", L" ", L"   "}) EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(key)}));
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(std::wstring(1, L'\0') + L"both")}));
    // A language without a file takes all texts from the default language.
    select(L"DEU");
    EXPECT_EQ(L"français", textOf(L"LoadMsgLng", {text(L"both")}));
    EXPECT_TRUE(DeleteFileW((languages + L"\\FRA.lng").c_str()));
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"both")}));
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"LoadMsgLng").code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"LoadMsgLng", {nullValue()}).code);
}

// The first value's default property assigns to the variable of the second.
TEST_F(Langue, valuesAreWhatWasGiven) {
    languageFile(L"FRA", L"[Messages]\r\nm=%%1 et %%2\r\n");
    select(L"FRA");
    Variant variable = text(L"une valeur assez longue");
    AskedObject first(text(L"un"), [&] {
        std::fill_n(variable.raw().bstrVal, SysStringLen(variable.raw().bstrVal), L'#');
        variable = text(L"neuf");
    });
    EXPECT_EQ(L"un et une valeur assez longue",
              textOf(L"LoadMsgLng", {text(L"m"), false, object(&first), byReference(variable)}));
    EXPECT_EQ(L"neuf", viewOf(variable.raw().bstrVal));
    EXPECT_EQ(0, first.references());
}

TEST_F(Langue, valuesTakeTheirPlaces) {
    languageFile(L"ENG",
                 L"[Messages]\r\nopen=&Ouvrir %%1\r\nall=%%1,%%2,%%3,%%4,%%5,%%1\r\nten=%%10%%%1\r\n");
    select(L"ENG");
    EXPECT_EQ(L"&Ouvrir C:\\x&y", textOf(L"LoadMsgLng", {text(L"open"), false, text(L"C:\\x&y")}));
    EXPECT_EQ(L"&Ouvrir %%1", textOf(L"LoadMsgLng", {text(L"open")}));
    EXPECT_EQ(L"Ouvrir A&B", textOf(L"LoadMsgLng", {text(L"open"), true, text(L"A&B")}));
    EXPECT_EQ(L"Ouvrir %%1", textOf(L"LoadMsgLng", {text(L"open"), true, missing()}));
    EXPECT_EQ(L"1,b,%%3,d,%%5,1",
              textOf(L"LoadMsgLng", {text(L"all"), false, short16(1), text(L"b"), missing(), text(L"d")}));
    EXPECT_EQ(L"x0%x", textOf(L"LoadMsgLng", {text(L"ten"), false, text(L"x")}));
    // Placeholders in a value are replaced by later values and not by earlier ones.
    EXPECT_EQ(L"2,2,%%3,%%4,%%5,2", textOf(L"LoadMsgLng", {text(L"all"), false, text(L"%%2"), text(L"2")}));
    EXPECT_EQ(L"a,%%1,%%3,%%4,%%5,a", textOf(L"LoadMsgLng", {text(L"all"), false, text(L"a"), text(L"%%1")}));
    // Named, in a variable, and of any type that converts by the user's settings.
    Variant variable(2.5);
    EXPECT_EQ(isFrench() ? L"&Ouvrir 2,5" : L"&Ouvrir 2.5",
              textOf(L"LoadMsgLng", Arguments({text(L"open")}).named(2, byReference(variable))));
    EXPECT_EQ(isFrench() ? L"&Ouvrir Vrai" : L"&Ouvrir True",
              textOf(L"LoadMsgLng", {text(L"open"), false, true}));
    EXPECT_EQ(L"&Ouvrir ", textOf(L"LoadMsgLng", {text(L"open"), false, Variant()}));
    ScriptedObject standsForText{text(L"objet")};
    EXPECT_EQ(L"&Ouvrir objet", textOf(L"LoadMsgLng", {text(L"open"), false, object(&standsForText)}));
    EXPECT_EQ(0, standsForText.references());
    // A value without a text leaves its placeholder, and the others replace theirs.
    ScriptedObject dumb;
    Variant array;
    array.put()->parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    array.put()->vt = VT_ARRAY | VT_VARIANT;
    Variant error;
    error.put()->vt = VT_ERROR;
    error.put()->scode = E_FAIL;
    for (const Variant& value : {nullValue(), nothing(), object(&dumb), array, error}) {
        EXPECT_EQ(L"%%1,b,%%3,%%4,%%5,%%1", textOf(L"LoadMsgLng", {text(L"all"), false, value, text(L"b")}))
            << describe(value.raw());
    }
    // A missing argument that a host passes on is left out too.
    Variant handedOn = missing();
    EXPECT_EQ(L"%%1,b,%%3,%%4,%%5,%%1",
              textOf(L"LoadMsgLng", {text(L"all"), false, byReference(handedOn), text(L"b")}));
    // The marker is treated like any other message.
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"absent"), true, text(L"x")}));
    const std::wstring million(1'000'000, L'm');
    EXPECT_EQ(L"&Ouvrir " + million, textOf(L"LoadMsgLng", {text(L"open"), false, text(million)}));
}

TEST_F(Langue, textsOfControls) {
    languageFile(L"ENG",
                 L"[frmMain]\r\nfrmMain#Caption=Customer file\r\ncmdOK#Caption=&OK %%1\r\n"
                 L"txtName#Text=%%2\r\ntxtName#ToolTipText=Your name\r\ntxtName#3#ToolTipText=Third\r\n"
                 L"optMode#0#Caption=Simple\r\noptMode#32767#Caption=Last\r\n");
    languageFile(L"FRA", L"[frmMain]\r\noptMode#1#Caption=Avancé\r\n");
    const auto caption = long32(0), content = long32(1), tip = long32(2);
    EXPECT_EQ(L"", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"cmdOK"), caption}));
    EXPECT_EQ(L"", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"rien"), long32(7)}));
    select(L"ENG");
    EXPECT_EQ(L"&OK %%1", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"cmdOK"), caption}));
    EXPECT_EQ(L"Customer file", textOf(L"LoadCtlLng", {text(L"FRMMAIN"), text(L"frmmain"), caption}));
    EXPECT_EQ(L"OK A&B", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"cmdOK"), caption, short16(-1), true,
                                                text(L"A&B")}));
    EXPECT_EQ(L"deux", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"txtName"), content, missing(),
                                              missing(), missing(), text(L"deux")}));
    EXPECT_EQ(L"Your name", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"txtName"), tip, short16(-1)}));
    EXPECT_EQ(L"Your name",
              textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"txtName"), tip, short16(-32768)}));
    EXPECT_EQ(L"Third", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"txtName"), tip, short16(3)}));
    EXPECT_EQ(L"Simple", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"optMode"), caption, short16(0)}));
    EXPECT_EQ(L"Last", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"optMode"), caption, short16(32767)}));
    EXPECT_EQ(L"Avancé", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"optMode"), caption, short16(1)}));
    EXPECT_EQ(marker, textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"optMode"), caption}));
    EXPECT_EQ(marker, textOf(L"LoadCtlLng", {text(L"frmAutre"), text(L"cmdOK"), caption}));
    for (const int property : {3, -1, 2147483647})
        EXPECT_EQ(marker, textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"cmdOK"), long32(property)}))
            << property;
    EXPECT_EQ(DISP_E_OVERFLOW,
              call(L"LoadCtlLng", {text(L"frmMain"), text(L"cmdOK"), caption, long32(32768)}).code);
}

TEST_F(Langue, keysOfControls) {
    EXPECT_EQ(L"cmd#2#Caption", textOf(L"LngPrepareMotCle", {text(L"cmd"), text(L" 2 "), text(L"Caption")}));
    EXPECT_EQ(L"cmd", textOf(L"LngPrepareMotCle", {text(L"cmd"), text(L""), text(L"")}));
    EXPECT_EQ(L"cmd#Caption", textOf(L"LngPrepareMotCle", {text(L"cmd"), text(L""), text(L"Caption")}));
    EXPECT_EQ(L"cmd#2#", textOf(L"LngPrepareMotCle", {text(L"cmd"), short16(2), text(L"")}));
    EXPECT_EQ(L"cmd##x", textOf(L"LngPrepareMotCle", {text(L"cmd"), text(L"  "), text(L"x")}));
}

TEST_F(Langue, headerInformation) {
    languageFile(L"ENG",
                 L"[System]\r\nVersion=1.3\r\nNameISO=English\r\nCodeISO=ENG\r\nTranslator=J. Smith\r\n"
                 L"UserComment=reviewed\u00FF{l}twice\r\n2.0=two\r\n");
    languageFile(L"FRA", L"[System]\r\nVersion=9\r\ne-Mail=qui@quoi\r\n");
    const wchar_t* const keys[] = {L"Version",     L"NameISO", L"CodeISO", L"Translator",
                                   L"UserComment", L"2.0",     L"e-Mail"};
    const wchar_t* const values[] = {L"1.3", L"English", L"ENG", L"J. Smith", L"reviewed\r\ntwice",
                                     L"two", L"qui@quoi"};
    for (int info = 1; info <= 7; ++info) {
        EXPECT_EQ(keys[info - 1], textOf(L"LngSpecialInfos", {long32(info), true}));
        EXPECT_EQ(L"", textOf(L"LngSpecialInfos", {long32(info)}));
    }
    select(L"ENG");
    for (int info = 1; info <= 7; ++info) {
        EXPECT_EQ(keys[info - 1], textOf(L"LngSpecialInfos", {long32(info), true}));
        EXPECT_EQ(values[info - 1], textOf(L"LngSpecialInfos", {long32(info), false}));
        EXPECT_EQ(values[info - 1], textOf(L"LngSpecialInfos", {long32(info)}));
    }
    for (const int info : {0, 8, -1}) {
        EXPECT_EQ(L"", textOf(L"LngSpecialInfos", {long32(info), true})) << info;
        EXPECT_EQ(L"", textOf(L"LngSpecialInfos", {long32(info)})) << info;
    }
}

TEST_F(Langue, messagesAreWrittenIntoTheLanguageInUse) {
    const auto save = [this](const wchar_t* key, const wchar_t* message) {
        run(L"LngSaveMsg", {text(key), text(message)});
    };
    save(L"m", L"nowhere");
    select(L"ENG");
    const auto file = languages + L"\\ENG.lng";
    save(L"", L"no name");
    save(L"m", L"");
    EXPECT_FALSE(TemporaryFolder::exists(file));
    save(L"m", L"one");
    EXPECT_EQ("[Messages]\r\nm=one\r\n", bytesOf(file));
    save(L"m", L"two\r\nlines =");
    save(L"n", L"été");
    EXPECT_EQ("[Messages]\r\nm=two\xFF{l}lines =\r\nn=\xE9t\xE9\r\n", bytesOf(file));
    save(L"m", L"");
    save(L"", L"x");
    EXPECT_EQ("[Messages]\r\nm=two\xFF{l}lines =\r\nn=\xE9t\xE9\r\n", bytesOf(file));
    EXPECT_EQ(L"two\r\nlines =", textOf(L"LoadMsgLng", {text(L"m")}));
    EXPECT_FALSE(TemporaryFolder::exists(languages + L"\\FRA.lng"));
    // Without a language nothing is written.
    expectResult(call(L"LngSetLanguage", {text(L"")}), false);
    save(L"m", L"three");
    EXPECT_EQ("[Messages]\r\nm=two\xFF{l}lines =\r\nn=\xE9t\xE9\r\n", bytesOf(file));
}

}  // namespace
}  // namespace vorla::test
