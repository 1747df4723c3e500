// The published order of every class that has members: slots, identifiers and names, written down by hand.
//
// It is the binary interface, which hosts have compiled in. A member that is new goes behind the last one of
// its class; no row of these lists is ever moved, renamed or taken out.
#include "contract/component.h"

namespace vorla::test {
namespace {

// A slot of a class behind the seven of IDispatch: what hosts call it, its identifier, how it is called.
struct Place {
    const wchar_t* name;  // null for the place of a private procedure
    unsigned id = 0;
    INVOKEKIND kind = INVOKE_FUNC;
};

constexpr Place privately{nullptr};
constexpr auto get = INVOKE_PROPERTYGET, let = INVOKE_PROPERTYPUT;

std::wstring written(const std::wstring& name, MEMBERID id, INVOKEKIND kind) {
    wchar_t number[16];
    std::swprintf(number, std::size(number), L" %08x", static_cast<unsigned>(id));
    return name + number + (kind == get ? L" get" : kind == let ? L" let" : L"");
}

// The same from the component's own description, one for each slot.
std::vector<std::wstring> publishedOrder(ITypeInfo* dispatch, std::size_t slots) {
    std::vector<std::wstring> order(slots);
    HREFTYPE reference;
    ComPointer<ITypeInfo> vtable;
    EXPECT_EQ(S_OK, dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    EXPECT_EQ(S_OK, dispatch->GetRefTypeInfo(reference, vtable.put()));
    FUNCDESC* function;
    for (UINT i = 0; SUCCEEDED(vtable->GetFuncDesc(i, &function)); ++i) {
        Bstr name;
        EXPECT_EQ(S_OK, vtable->GetDocumentation(function->memid, name.put(), nullptr, nullptr, nullptr));
        const auto slot = static_cast<std::size_t>(function->oVft) / sizeof(void*) - 7;
        if (slot >= order.size()) order.resize(slot + 1);
        order[slot] = written(std::wstring(name.view()), function->memid, function->invkind);
        vtable->ReleaseFuncDesc(function);
    }
    return order;
}

void expectOrder(std::uint16_t number, std::initializer_list<Place> places) {
    const Component component;
    const auto object = component.create(number);
    ComPointer<ITypeInfo> description;
    ASSERT_EQ(S_OK, object->GetTypeInfo(0, 0, description.put()));
    const auto published = publishedOrder(description.get(), places.size());
    ASSERT_EQ(places.size(), published.size());
    std::size_t slot = 0;
    for (const Place& place : places) {
        const auto expected =
            place.name ? written(place.name, static_cast<MEMBERID>(place.id), place.kind) : std::wstring();
        EXPECT_EQ(expected, published[slot]) << "slot " << slot;
        ++slot;
    }
}

TEST(PublishedOrder, ofVorlaChaine) {
    expectOrder(0, {{L"CBR", 0x60030000},
                    {L"CBL", 0x60030001},
                    {L"ExtraitChaine", 0x60030002},
                    {L"Transfrm", 0x60030003},
                    {L"Occurrence", 0x60030004},
                    {L"Zclé", 0x60030005},
                    {L"NumLet", 0x60030006},
                    {L"SplitStr", 0x60030007},
                    {L"Parse", 0x60030008}});
}

TEST(PublishedOrder, ofVorlaNumérique) {
    expectOrder(1, {{L"NumFrmtSys", 0x60030000},
                    {L"NumFrmtEnr", 0x60030001},
                    privately,
                    {L"RIBControle", 0x60030003},
                    {L"RIBClé", 0x60030004}});
}

TEST(PublishedOrder, ofVorlaDate) {
    expectOrder(3, {{L"DateAMJtoJMA", 0x60030000},
                    {L"DateJMAtoAMJ", 0x60030001},
                    {L"Invd", 0x60030002},
                    {L"DateEnTexte", 0x60030003}});
}

TEST(PublishedOrder, ofVorlaDivers) {
    expectOrder(4, {{L"Maxi", 0x60030000},
                    {L"Mini", 0x60030001},
                    {L"ListeCherche", 0x60030002},
                    {L"ListeSelectRange", 0x60030003},
                    {L"TreeCherche", 0x60030004},
                    {L"TabCherche", 0x60030005},
                    {L"CalcTauxAugm", 0x60030006},
                    {L"SysTempsRestant", 0x60030007},
                    {L"SysWait", 0x60030008},
                    {L"SecondToTime", 0x60030009},
                    {L"RndBetween", 0x6003000A},
                    {L"IsArrayEmpty", 0x6003000B},
                    {L"DateDiffDaysAndTime", 0x6003000C},
                    {L"IsMemberExist", 0x6003000D},
                    {L"IsNodeExist", 0x6003000E},
                    {L"ElTranslate", 0x6003000F},
                    {L"KeyMajusc", 0x60030010},
                    {L"KeyNum", 0x60030011},
                    {L"KeyFile", 0x60030012},
                    {L"Ctl_Argument", 0x60030013},
                    {L"eSetFocus", 0x60030014},
                    {L"ToucheEnfoncée", 0x60030015},
                    {L"IsControlExist", 0x60030016},
                    {L"ContainerScaleMode", 0x60030017},
                    {L"FindContainerScaleMode", 0x60030018},
                    {L"FrameChangeEnabled", 0x60030019},
                    {L"FormEffaceCtl", 0x6003001A},
                    {L"MousePlace", 0x6003001B},
                    {L"CtlPosition", 0x6003001C},
                    {L"CursorPos", 0x6003001D},
                    {L"PropertyExist", 0x6003001E},
                    {L"IsPropertyExist", 0x6003001F},
                    {L"IsFormLoad", 0x60030020},
                    {L"OptionButtonValue", 0x60030021},
                    {L"FindObjectContainerScaleMode", 0x60030022},
                    {L"CopyFont", 0x60030023}});
}

TEST(PublishedOrder, ofVorlaFichier) {
    expectOrder(5, {{L"NormalisePath", 0x60030000},
                    {L"DeNormalisePath", 0x60030001},
                    {L"ExtraitChemin", 0x60030002},
                    {L"FileNameShortToLong", 0x60030003},
                    {L"FileNameLongToShort", 0x60030004},
                    {L"LectDat", 0x60030005},
                    {L"FileExist", 0x60030006},
                    {L"IsFileExist", 0x60030007},
                    {L"FileType", 0x60030008},
                    {L"FileSize", 0x60030009},
                    {L"SizeToString", 0x6003000A},
                    {L"GetFolder", 0x6003000B},
                    {L"GetComputer", 0x6003000C},
                    {L"GetPrinter", 0x6003000D},
                    {L"CreateFolder", 0x6003000E},
                    {L"FileDate", 0x68030000, get},
                    {L"FileDate", 0x68030000, let},
                    {L"DeleteFile", 0x6003000F},
                    {L"RenameFile", 0x60030010},
                    {L"GetTempFileName", 0x60030011},
                    {L"IsFieldEpmty", 0x60030012},
                    {L"CDEjectLoad", 0x60030013}});
}

TEST(PublishedOrder, ofVorlaRegistre) {
    expectOrder(6, {{L"RegIsFullAccessRight", 0x60030000},
                    {L"RegCreerNouvelleCle", 0x60030001},
                    {L"RegSupprimeCle", 0x60030002},
                    {L"RegLireCles", 0x60030003},
                    {L"RegLireValeurs", 0x60030004},
                    {L"RegEcritValeur", 0x60030005},
                    {L"RegExisteValeur", 0x60030006},
                    {L"RegExisteClé", 0x60030007},
                    {L"RegEffaceValeur", 0x60030008},
                    {L"RegLitValeur", 0x60030009},
                    {L"RegClePrimaire", 0x68030000, get},
                    {L"RegClePrimaire", 0x68030000, let}});
}

TEST(PublishedOrder, ofVorlaSystem) {
    // The place of a private procedure stands behind the last one, where a description does not show it.
    expectOrder(7, {{L"SysDisqueNumero", 0x60030000},
                    {L"SysDisqueLabel", 0x60030001},
                    {L"SysDisqueType", 0x60030002},
                    {L"SysRepertoires", 0x60030003},
                    {L"SysSpecialFolder", 0x60030004},
                    {L"SysFindAppliAssocié", 0x60030005},
                    {L"SysShellWait", 0x60030006},
                    {L"SysShellAppliAssocié", 0x60030007},
                    {L"SysSymboleMonétaire", 0x60030008},
                    {L"WindowsVersion", 0x60030009},
                    {L"IniLit", 0x6003000A},
                    {L"IniEcrit", 0x6003000B},
                    {L"OemToChar", 0x6003000C},
                    {L"CharToOem", 0x6003000D},
                    {L"FlashWindow", 0x6003000E},
                    {L"GetComputerName", 0x68030000, get},
                    {L"OsVersion95NT", 0x6003000F},
                    {L"MakeLong", 0x60030010},
                    {L"MakeLParam", 0x60030011},
                    {L"MakeWord", 0x60030012},
                    {L"LoWord", 0x60030013},
                    {L"HiWord", 0x60030014},
                    {L"LoByte", 0x60030015},
                    {L"HiByte", 0x60030016},
                    {L"LongToUShort", 0x60030017},
                    {L"IsDiskReady", 0x60030018},
                    {L"SleepNoWait", 0x60030019},
                    {L"IsScreenSaverRunning", 0x6003001A},
                    {L"UNCPathFromPath", 0x6003001B},
                    {L"WinProcIDFromWnd", 0x6003001C},
                    {L"WindowHandle", 0x6003001D}});
}

TEST(PublishedOrder, ofVorlaGraphique) {
    expectOrder(2, {{L"Centre", 0x60030000},
                    {L"WinOnTop", 0x60030001},
                    {L"InitBarreTitre", 0x60030002},
                    {L"FormSize", 0x60030003},
                    {L"FormSansCadre", 0x60030004},
                    {L"FormDegrade", 0x60030005},
                    {L"FormTransparente", 0x60030006},
                    {L"ComboHeight", 0x60030007},
                    {L"FormArrondie", 0x60030008},
                    {L"FormTitle", 0x60030009},
                    {L"GetRGB", 0x6003000A},
                    {L"OleColorToRGB", 0x6003000B},
                    {L"GetSysColor", 0x6003000C},
                    {L"ShiftColor", 0x6003000D},
                    {L"TextRotate", 0x6003000E},
                    {L"MenuBackColor", 0x6003000F},
                    {L"ScreenVirtualSize", 0x68030002, get},
                    {L"ScreenWidth", 0x68030001, get},
                    {L"ScreenHeight", 0x68030000, get}});
}

TEST(PublishedOrder, ofVorlaLangue) {
    expectOrder(8, {{L"ThemedBackColorApply", 0x40030000, get},
                    {L"ThemedBackColorApply", 0x40030000, let},
                    {L"ThemedBackColor", 0x40030001, get},
                    {L"ThemedBackColor", 0x40030001, let},
                    {L"ThemedTabBackColor", 0x40030002, get},
                    {L"ThemedTabBackColor", 0x40030002, let},
                    {L"ThemedBackColorDef", 0x40030003, get},
                    {L"ThemedBackColorDef", 0x40030003, let},
                    {L"ThemedOldColor", 0x40030004, get},
                    {L"ThemedOldColor", 0x40030004, let},
                    {L"lngMesNull", 0x6803000B, get},
                    {L"LngSeparator", 0x6803000A, get},
                    {L"LngDefStatus", 0x68030009, get},
                    {L"LngExtension", 0x68030008, get},
                    {L"LngExtensionStatus", 0x68030007, get},
                    {L"iniLngSys", 0x68030006, get},
                    {L"strMesConst", 0x68030005, get},
                    {L"lngDefaulltLanguage", 0x68030004, get},
                    {L"PathOfLang", 0x68030003, get},
                    {L"LngGetFileName", 0x68030002, get},
                    {L"LngGetFileNameStatus", 0x68030001, get},
                    {L"LngFolder", 0x68030000, get},
                    {L"LngSetFileName", 0x60030000},
                    {L"LngSetLanguage", 0x60030001},
                    {L"LngGetPresent", 0x60030002},
                    {L"StringEscape", 0x60030003},
                    {L"StringUnEscape", 0x60030004},
                    privately,
                    {L"LoadMsgLng", 0x60030006},
                    {L"LoadCtlLng", 0x60030007},
                    {L"LngSaveMsg", 0x60030008},
                    {L"LngPrepareMotCle", 0x60030009},
                    {L"LngSpecialInfos", 0x6003000A},
                    {L"LngFormLoad", 0x6003000B},
                    {L"LngFormSave", 0x6003000C},
                    {L"LngRedimCtl", 0x6003000D}});
}

TEST(PublishedOrder, ofPaintEffects) {
    expectOrder(numberOfPaintEffects, {{L"PaintDisabledStdPic", 0x60030000},
                                       {L"PaintDisabledDC", 0x60030001},
                                       {L"PaintTransparentDC", 0x60030002},
                                       {L"PaintTransparentStdPic", 0x60030003},
                                       {L"PaintNormalStdPic", 0x60030004}});
}

TEST(PublishedOrder, ofVorlaMultiMedia) {
    expectOrder(10, {{L"cCanalMusique", 0x6803000c, get},
                     {L"cCanalComment", 0x6803000b, get},
                     {L"MMPlay", 0x60030000},
                     {L"MMClose", 0x60030001},
                     {L"MMMediaLen", 0x60030002},
                     {L"MMVolume", 0x60030003},
                     {L"MMIncreaseVolume", 0x60030004},
                     {L"MMVolGet", 0x60030005},
                     {L"MMIsPlaying", 0x60030006},
                     {L"MMIsOpen", 0x60030007},
                     {L"MMStatus", 0x60030008},
                     {L"MMPause", 0x60030009},
                     {L"MMVolumePercentGet", 0x6803000a, get},
                     {L"MMVolumePercentLet", 0x6003000A},
                     {L"PlaySystemSound", 0x6003000B},
                     {L"IsSoundCard", 0x6003000C},
                     {L"IsMidiEnabled", 0x6003000D},
                     {L"MMMixVolume", 0x68030009, get},
                     {L"MMMixVolume", 0x68030009, let},
                     {L"MMMixPanVolume", 0x6003000E},
                     {L"MMMixConvToPercent", 0x6003000f},
                     {L"MMMixConvToLong", 0x60030010},
                     {L"MMCDAlias", 0x68030008, get},
                     {L"MMCDOpen", 0x60030011},
                     {L"MMCDIsReady", 0x68030007, get},
                     {L"MMCDIsOpen", 0x68030006, get},
                     {L"MMCDPlay", 0x60030012},
                     {L"MMCDStop", 0x60030013},
                     {L"MMCDEjectClose", 0x60030014},
                     {L"MMCDPause", 0x60030015},
                     {L"MMCDPlayTrack", 0x60030016},
                     {L"MMCDTracks", 0x60030017},
                     {L"MMCDLenght", 0x68030005, get},
                     {L"MMCDTrackLenght", 0x68030004, get},
                     {L"MMCDTrackCurrent", 0x68030003, get},
                     {L"MMCDTrackCount", 0x68030002, get},
                     {L"MMCDPosition", 0x68030001, get},
                     {L"MMCDTrackPosition", 0x68030000, get},
                     {L"IsCd", 0x60030018},
                     {L"MMCDTrackNumberGet", 0x60030019}});
}

}  // namespace
}  // namespace vorla::test
