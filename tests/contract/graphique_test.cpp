// VorlaGraphique: its publication, colours, the sizes of the screen.
#include "contract/graphique_fixture.h"
#include "contract/signatures.h"
#include "frame/contract/records.h"
#include "support/asked_object.h"

namespace vorla::test {
namespace {

TEST_F(Graphique, membersAreDescribed) {
    const std::vector<std::wstring> expected{
        L"60030000 void Centre(&object Frm, [VARIANT ParentWindows])",
        L"60030001 void WinOnTop(&object Frm, [ewPos ZPos=-1])",
        L"60030002 void InitBarreTitre(&object Frm)",
        L"60030003 I4 FormSize(&object Frm, WS_Flags SizeType)",
        L"60030004 void FormSansCadre(&object Frm)",
        L"60030005 void FormDegrade(&object Frm, UI1 R, UI1 V, UI1 B, [BOOL ToWhite=0])",
        L"60030006 BOOL FormTransparente(I4 hwnd, [VARIANT Transparency], [VARIANT BackColor])",
        L"60030007 void ComboHeight(&object Combo, I2 NbLig, [I4 DropWidthPixels=0])",
        L"60030008 void FormArrondie(&object Frm, [I2 Elipse=34], [BOOL Border=0], [I4 BorderColor=0])",
        L"60030009 BOOL FormTitle(&object Frm)",
        L"6003000a void GetRGB(I4 Color, &VARIANT R, &VARIANT G, &VARIANT B)",
        L"6003000b I4 OleColorToRGB(I4 Color)",
        L"6003000c I4 GetSysColor(&SysColor Color)",
        L"6003000d I4 ShiftColor(I4 Color, VARIANT RValue, VARIANT vValue, VARIANT BValue, "
        L"[&eXpColorShift OPE=0])",
        L"6003000e BOOL TextRotate(&I4 hdc, &BSTR Output, &I4 x, &I4 y, R4 Rotation, [R4 FontHeight=0], "
        L"[BOOL Smooth=0])",
        L"6003000f BOOL MenuBackColor(I4 lhForm, I4 lMenuColor, [BOOL bIncludeSubMenus=-1], "
        L"[&I4 lMenuIndex=-1])",
        L"68030002 get RectSise ScreenVirtualSize([eUnit TypeUnit=1])",
        L"68030001 get I4 ScreenWidth([eUnit TypeUnit=1])",
        L"68030000 get I4 ScreenHeight([eUnit TypeUnit=1])",
    };
    EXPECT_EQ(expected, signatures(graphique.get()));
}

TEST_F(Graphique, membersAnswerThroughTheVtable) {
    const auto slots = *reinterpret_cast<void***>(graphique.get());
    constexpr std::size_t first = 7;
    VARIANT red, green, blue;
    VariantInit(&red), VariantInit(&green), VariantInit(&blue);
    using Split = HRESULT STDMETHODCALLTYPE(IDispatch*, LONG, VARIANT*, VARIANT*, VARIANT*);
    EXPECT_EQ(S_OK,
              reinterpret_cast<Split*>(slots[first + 10])(graphique.get(), 0x336699, &red, &green, &blue));
    EXPECT_EQ("vt 3 153", describe(red));
    EXPECT_EQ("vt 3 102", describe(green));
    EXPECT_EQ("vt 3 51", describe(blue));
    records::RectSise screen{-1, -1, -1, -1};
    using Screen = HRESULT STDMETHODCALLTYPE(IDispatch*, LONG, records::RectSise*);
    EXPECT_EQ(S_OK, reinterpret_cast<Screen*>(slots[first + 16])(graphique.get(), 0, &screen));
    EXPECT_EQ(GetSystemMetrics(SM_XVIRTUALSCREEN), screen.Left);
    EXPECT_EQ(GetSystemMetrics(SM_YVIRTUALSCREEN), screen.Top);
    EXPECT_EQ(GetSystemMetrics(SM_CXVIRTUALSCREEN), screen.Width);
    EXPECT_EQ(GetSystemMetrics(SM_CYVIRTUALSCREEN), screen.Height);
    LONG colour = 15, answer = 0;
    using Colour = HRESULT STDMETHODCALLTYPE(IDispatch*, LONG*, LONG*);
    EXPECT_EQ(S_OK, reinterpret_cast<Colour*>(slots[first + 12])(graphique.get(), &colour, &answer));
    EXPECT_EQ(static_cast<LONG>(GetSysColor(COLOR_BTNFACE)), answer);
    EXPECT_EQ(E_POINTER, reinterpret_cast<Colour*>(slots[first + 12])(graphique.get(), nullptr, &answer));
    EXPECT_EQ(0, answer);
}

TEST_F(Graphique, GetRGBSplitsAColour) {
    Variant red, green, blue;
    run(L"GetRGB", {long32(0x336699), byReference(red), byReference(green), byReference(blue)});
    EXPECT_EQ("vt 3 153", describe(red.raw()));
    EXPECT_EQ("vt 3 102", describe(green.raw()));
    EXPECT_EQ("vt 3 51", describe(blue.raw()));
    // Variables of a type keep it.
    SHORT word = -1;
    float number = -1;
    BSTR written = SysAllocString(L"avant");
    run(L"GetRGB", {long32(0x010203), byReference(VT_I2, &word), byReference(VT_R4, &number),
                    byReference(VT_BSTR, &written)});
    EXPECT_EQ(3, word);
    EXPECT_EQ(2.0f, number);
    EXPECT_EQ(L"1", viewOf(written));
    SysFreeString(written);
    // A system colour is split as the colour that it is.
    const auto face = GetSysColor(COLOR_BTNFACE);
    run(L"GetRGB", {long32(forms::systemColour(COLOR_BTNFACE)), byReference(red), byReference(green),
                    byReference(blue)});
    EXPECT_EQ(describe(long32(GetRValue(face)).raw()), describe(red.raw()));
    EXPECT_EQ(describe(long32(GetGValue(face)).raw()), describe(green.raw()));
    EXPECT_EQ(describe(long32(GetBValue(face)).raw()), describe(blue.raw()));
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"GetRGB", {long32(1)}).code);
    EXPECT_EQ(DISP_E_TYPEMISMATCH,
              call(L"GetRGB", {text(L"x"), byReference(red), byReference(green), byReference(blue)}).code);
}

TEST_F(Graphique, systemColoursBecomeColours) {
    Intercept<decltype(GetSysColor)> system(module, "user32.dll", "GetSysColor");
    std::vector<int> asked;
    system.answer([&asked](int number) -> DWORD {
        asked.push_back(number);
        return 0x00C0FFEEu;
    });
    expectResult(call(L"OleColorToRGB", {long32(forms::systemColour(15))}), long32(0xC0FFEE));
    expectResult(call(L"OleColorToRGB", {long32(-1)}), long32(0xC0FFEE));
    expectResult(call(L"OleColorToRGB", {long32(INT32_MIN)}), long32(0xC0FFEE));
    expectResult(call(L"OleColorToRGB", {long32(0xFF)}), long32(0xFF));
    expectResult(call(L"OleColorToRGB", {long32(0)}), long32(0));
    expectResult(call(L"OleColorToRGB", {long32(INT32_MAX)}), long32(INT32_MAX));
    EXPECT_EQ((std::vector<int>{15, INT32_MAX, 0}), asked);
    asked.clear();
    expectResult(call(L"GetSysColor", {long32(2)}), long32(0xC0FFEE));
    expectResult(call(L"GetSysColor", {long32(-7)}), long32(0xC0FFEE));
    EXPECT_EQ((std::vector<int>{2, -7}), asked);
    system.answer({});
    for (int number = 0; number < 31; ++number)
        expectResult(call(L"GetSysColor", {long32(number)}), long32(static_cast<int>(GetSysColor(number))));
}

TEST_F(Graphique, ShiftColorTakesNumbersOfAnyType) {
    const auto shift = [&](std::initializer_list<Variant> arguments) {
        return call(L"ShiftColor", arguments);
    };
    expectResult(shift({long32(0x0A141E), short16(1), long32(2), octet(3)}), long32(0x0D161F));
    expectResult(shift({long32(0), text(isFrench() ? L"1,5" : L"1.5"), single(2.5f), true}),
                 long32(0x000202));
    expectResult(shift({long32(0x0A141E), Variant(), -300.0, 300.0}), long32(0xFF001E));
    // Red and blue land crossed.
    expectResult(shift({long32(0), short16(10), short16(20), short16(30), long32(1)}), long32(0x0A141E));
    expectResult(shift({long32(0x0A141E), short16(2), 0.5, short16(100), long32(2)}), long32(0xFF0A3C));
    LONG operation = 2;
    expectResult(
        shift({long32(0x0A141E), short16(0), short16(1), short16(1), byReference(VT_I4, &operation)}),
        long32(0x0A1400));
    expectResult(shift({long32(0x0A141E), short16(9), short16(9), short16(9), long32(7)}), long32(0x0A141E));
    // The system's own: 0x80000000 and a number.
    const auto face = static_cast<std::int32_t>(GetSysColor(COLOR_BTNFACE));
    expectResult(shift({long32(forms::systemColour(15)), short16(0), short16(0), short16(0)}), long32(face));
}

TEST_F(Graphique, ShiftColorRefusesWhatIsNoNumber) {
    const auto red = [&](Variant value) {
        return call(L"ShiftColor", {long32(1), std::move(value), short16(0), short16(0)});
    };
    expectError(red(text(L"rouge")), 13);
    expectError(red(nullValue()), 94);
    expectError(red(nothing()), 91);
    expectError(red(1e39), 6);
    ScriptedObject dumb, number(short16(4));
    expectError(red(object(&dumb)), 438);
    expectResult(red(object(&number)), long32(5));
    EXPECT_EQ(0, dumb.references());
    EXPECT_EQ(0, number.references());
}

// Metrics and twips of a screen that is not the machine's.
TEST_F(Graphique, screenSizesArePixelsOrTwips) {
    const OtherScreens screens(module, {{SM_CXSCREEN, 1920}, {SM_CYSCREEN, 1081}});
    const OtherResolution resolution(module, 128, 144);  // 11.25 and 10 twips
    expectResult(call(L"ScreenWidth"), long32(21600));
    expectResult(call(L"ScreenWidth", {long32(1)}), long32(21600));
    expectResult(call(L"ScreenWidth", {long32(0)}), long32(1920));
    // By the horizontal factor: 1081 * 11.25 = 12161.25.
    expectResult(call(L"ScreenHeight"), long32(12161));
    expectResult(call(L"ScreenHeight", {long32(0)}), long32(1081));
    for (const int other : {2, -1, 3}) {
        expectResult(call(L"ScreenWidth", {long32(other)}), long32(1920));
        expectResult(call(L"ScreenHeight", {long32(other)}), long32(1081));
    }
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"ScreenWidth", {text(L"pixels")}).code);
}

TEST_F(Graphique, aSizePast32BitsIsAnError) {
    const OtherScreens screens(module, {{SM_CXSCREEN, INT_MAX}, {SM_CXVIRTUALSCREEN, INT_MAX}});
    expectError(call(L"ScreenWidth"), 6);
    expectResult(call(L"ScreenWidth", {long32(0)}), long32(INT_MAX));
    expectError(call(L"ScreenVirtualSize"), 6);
}

records::RectSise recordIn(const Outcome& outcome) {
    EXPECT_EQ(S_OK, outcome.code);
    EXPECT_EQ(VT_RECORD, outcome.result.raw().vt);
    if (outcome.result.raw().vt != VT_RECORD) return {};
    return *static_cast<const records::RectSise*>(outcome.result.raw().pvRecord);
}

std::vector<std::int32_t> numbersIn(const records::RectSise& size) {
    return {size.Left, size.Top, size.Width, size.Height};
}

TEST_F(Graphique, theVirtualScreenDependsOnWindows) {
    const OtherScreens screens(module, {{SM_CXSCREEN, 1024},
                                        {SM_CYSCREEN, 768},
                                        {SM_XVIRTUALSCREEN, -1281},
                                        {SM_YVIRTUALSCREEN, -3},
                                        {SM_CXVIRTUALSCREEN, 2305},
                                        {SM_CYVIRTUALSCREEN, 1025}});
    const OtherResolution resolution(module, 96, 144);  // 15 and 10 twips
    using Numbers = std::vector<std::int32_t>;
    struct Row {
        DWORD major, minor, platform;
        bool hasVirtual;
    };
    constexpr Row rows[] = {{3, 51, 2, false}, {4, 0, 1, false}, {4, 0, 2, false}, {4, 10, 1, true},
                            {4, 90, 1, true},  {5, 0, 2, true},  {5, 1, 2, true},  {5, 2, 2, true},
                            {6, 0, 2, true},   {6, 1, 2, true},  {10, 0, 2, true}, {0, 0, 0, true}};
    RunningWindows windows(module);
    for (const auto& [major, minor, platform, hasVirtual] : rows) {
        windows.become(major, minor, platform);
        const auto twips = recordIn(call(L"ScreenVirtualSize")),
                   pixels = recordIn(call(L"ScreenVirtualSize", {long32(0)}));
        // Without a virtual screen the height follows the horizontal factor, like ScreenHeight.
        EXPECT_EQ(hasVirtual ? (Numbers{-19215, -30, 34575, 10250}) : (Numbers{0, 0, 15360, 11520}),
                  numbersIn(twips))
            << major << "." << minor;
        EXPECT_EQ(hasVirtual ? (Numbers{-1281, -3, 2305, 1025}) : (Numbers{0, 0, 1024, 768}),
                  numbersIn(pixels))
            << major << "." << minor;
    }
    EXPECT_EQ((Numbers{-1281, -3, 2305, 1025}), numbersIn(recordIn(call(L"ScreenVirtualSize", {long32(9)}))));
}

// A host can move to another display: nothing is remembered.
TEST_F(Graphique, twipsAreAskedForAtEachCall) {
    const OtherScreens screens(module, {{SM_CXSCREEN, 1000}});
    {
        const OtherResolution resolution(module, 96, 96);
        expectResult(call(L"ScreenWidth"), long32(15000));
    }
    const OtherResolution resolution(module, 192, 96);
    expectResult(call(L"ScreenWidth"), long32(7500));
}

}  // namespace
}  // namespace vorla::test
