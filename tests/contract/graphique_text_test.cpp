// VorlaGraphique: rotated text on real contexts, and the colours of real menus.
#include <climits>
#include <cstring>

#include "contract/graphique_fixture.h"
#include "frame/values/unique_handle.h"
#include "support/failing_calls.h"

namespace vorla::test {
namespace {

class GraphiqueText : public Graphique {
protected:
    GraphiqueText() {
        BITMAPINFO layout{};
        layout.bmiHeader = {sizeof layout.bmiHeader, side, -side, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = Bitmap(CreateDIBSection(nullptr, &layout, DIB_RGB_COLORS, &bits, nullptr, 0));
        pixels = static_cast<const DWORD*>(bits);
        SelectObject(context.get(), bitmap.get());
        LOGFONTA look{};
        look.lfHeight = -20;
        look.lfQuality = NONANTIALIASED_QUALITY;
        std::strcpy(look.lfFaceName, "Arial");
        font = Font(CreateFontIndirectA(&look));
        ownFont();
        clear();
    }
    ~GraphiqueText() override { context = MemoryContext(); }

    void ownFont() { SelectObject(context.get(), font.get()); }
    void clear() {
        const RECT all{0, 0, side, side};
        FillRect(context.get(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        SetBkMode(context.get(), TRANSPARENT);
    }
    std::int32_t number() const {
        return static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(context.get()));
    }

    // The smallest rectangle around everything that is not white; empty for none.
    RECT inked() const {
        RECT area{side, side, 0, 0};
        GdiFlush();
        for (LONG y = 0; y < side; ++y)
            for (LONG x = 0; x < side; ++x) {
                if ((pixels[y * side + x] & 0xFFFFFF) == 0xFFFFFF) continue;
                area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x + 1),
                        std::max(area.bottom, y + 1)};
            }
        return area;
    }
    bool isBlank() const { return inked().right == 0; }

    struct Written {
        Outcome outcome;
        LONG x, y;
    };
    Written write(const wchar_t* output, LONG x, LONG y, float degrees, Variant lineHeight = missing(),
                  Variant smooth = missing()) {
        auto outcome = call(L"TextRotate",
                            {long32(number()), text(output), byReference(VT_I4, &x), byReference(VT_I4, &y),
                             single(degrees), std::move(lineHeight), std::move(smooth)});
        return {std::move(outcome), x, y};
    }

    static constexpr LONG side = 200;
    MemoryContext context{CreateCompatibleDC(nullptr)};
    Bitmap bitmap;
    Font font;
    const DWORD* pixels;
};

TEST_F(GraphiqueText, positionsFollowTheTable) {
    struct Row {
        float degrees;
        LONG x, y;
    };
    // Two lines of 12 from (100, 100).
    const Row rows[] = {{0, 100, 124},   {30, 124, 124},  {90, 124, 100}, {120, 112, 76},
                        {180, 100, 76},  {200, 76, 76},   {270, 76, 100}, {300, 76, 124},
                        {360, 100, 100}, {-30, 100, 100}, {400, 100, 100}};
    for (const auto& [degrees, x, y] : rows) {
        ownFont();
        const auto written = write(L"un\r\ndeux", 100, 100, degrees, single(12));
        expectResult(written.outcome, true);
        EXPECT_EQ(x, written.x) << degrees;
        EXPECT_EQ(y, written.y) << degrees;
    }
}

TEST_F(GraphiqueText, textIsRotated) {
    expectResult(write(L"WWWWW", 100, 100, 0).outcome, true);
    const auto flat = inked();
    EXPECT_GT(flat.right - flat.left, flat.bottom - flat.top);
    EXPECT_GE(flat.left, 99);
    EXPECT_GE(flat.top, 100);
    clear();
    ownFont();
    // A quarter to the left: from the starting point upwards.
    expectResult(write(L"WWWWW", 100, 100, 90).outcome, true);
    const auto up = inked();
    EXPECT_GT(up.bottom - up.top, up.right - up.left);
    EXPECT_GE(up.left, 100);
    EXPECT_LE(up.bottom, 101);
    // The same letters: as long as before, but for the rounding of the outlines.
    EXPECT_NEAR(flat.right - flat.left, up.bottom - up.top, 3);
    clear();
    ownFont();
    expectResult(write(L"WWWWW", 100, 100, 180).outcome, true);
    const auto back = inked();
    EXPECT_LE(back.right, 101);
    EXPECT_LE(back.bottom, 101);
    clear();
    ownFont();
    expectResult(write(L"WWWWW", 100, 100, 270).outcome, true);
    const auto down = inked();
    EXPECT_LE(down.right, 101);
    EXPECT_GE(down.top, 99);
}

TEST_F(GraphiqueText, theFontIsTheContextsOwn) {
    LOGFONTA asked{};
    Intercept<decltype(CreateFontIndirectA)> create(module, "gdi32.dll", "CreateFontIndirectA");
    create.answer([&](const LOGFONTA* look) {
        asked = *look;
        return create.callOriginal(look);
    });
    expectResult(write(L"a", 10, 10, 33.33f, single(40), true).outcome, true);
    EXPECT_EQ(333, asked.lfEscapement);
    EXPECT_EQ(333, asked.lfOrientation);
    EXPECT_EQ(OUT_TT_ONLY_PRECIS, asked.lfOutPrecision);
    EXPECT_EQ(5, asked.lfQuality);
    // FontHeight is only the distance between lines.
    EXPECT_EQ(-20, asked.lfHeight);
    EXPECT_STREQ("Arial", asked.lfFaceName);
    ownFont();
    expectResult(write(L"a", 10, 10, -90).outcome, true);
    EXPECT_EQ(-900, asked.lfEscapement);
    EXPECT_EQ(NONANTIALIASED_QUALITY, asked.lfQuality);
}

TEST_F(GraphiqueText, theContextIsLeftWithTheSystemsFont) {
    expectResult(write(L"a", 10, 10, 90).outcome, true);
    EXPECT_EQ(GetStockObject(SYSTEM_FONT), GetCurrentObject(context.get(), OBJ_FONT));
}

TEST_F(GraphiqueText, linesEndAtTheFirstEmptyOne) {
    std::vector<std::string> lines;
    Intercept<decltype(TextOutA)> textOut(module, "gdi32.dll", "TextOutA");
    textOut.answer([&](HDC, int x, int y, LPCSTR line, int length) -> WINBOOL {
        lines.push_back(std::to_string(x) + "," + std::to_string(y) + " " +
                        std::string(line, static_cast<std::size_t>(length)));
        return TRUE;
    });
    using Lines = std::vector<std::string>;
    expectResult(write(L"a\r\n\r\nb", 1, 2, 0, single(10)).outcome, true);
    EXPECT_EQ(Lines{"1,2 a"}, lines);
    lines.clear();
    const auto two = write(L"été\r\n25 €\r\n", 1, 2, 0, single(10));
    expectResult(two.outcome, true);
    EXPECT_EQ((Lines{"1,2 \xE9t\xE9", "1,12 25 \x80"}), lines);
    EXPECT_EQ(22, two.y);
    lines.clear();
    for (const wchar_t* none : {L"", L"\r\n", L"\r\na"}) {
        const auto nothing = write(none, 1, 2, 0, single(10));
        expectResult(nothing.outcome, true);
        EXPECT_EQ(2, nothing.y);
    }
    EXPECT_EQ(Lines(), lines);
    expectResult(write(L"a\nb\rc", 1, 2, 0).outcome, true);
    EXPECT_EQ(Lines{"1,2 a\nb\rc"}, lines);
    // Variables by value are moved by nobody.
    lines.clear();
    expectResult(
        call(L"TextRotate", {long32(number()), text(L"a\r\nb"), long32(1), long32(2), single(0), single(5)}),
        true);
    EXPECT_EQ((Lines{"1,2 a", "1,7 b"}), lines);
}

TEST_F(GraphiqueText, aFailureIsFalse) {
    // No context, and a context that is none.
    for (const std::int32_t none : {0, -1, 12345}) {
        LONG x = 1, y = 2;
        expectResult(call(L"TextRotate", {long32(none), text(L"a"), byReference(VT_I4, &x),
                                          byReference(VT_I4, &y), single(0), single(5)}),
                     false);
        EXPECT_EQ(1, x);
        EXPECT_EQ(2, y);
    }
    // An angle past 32 bits.
    expectResult(write(L"a", 1, 2, 1e9f).outcome, false);
    // A position past 32 bits: the first line is drawn, and the font is put back.
    ownFont();
    const auto past = write(L"a\r\nb", 1, INT_MAX - 1, 45, single(5));
    expectResult(past.outcome, false);
    EXPECT_EQ(1, past.x);
    EXPECT_EQ(INT_MAX - 1, past.y);
    EXPECT_EQ(GetStockObject(SYSTEM_FONT), GetCurrentObject(context.get(), OBJ_FONT));
}

TEST_F(GraphiqueText, aLineThatFailsDoesNotStopTheOthers) {
    Intercept<decltype(TextOutA)> textOut(module, "gdi32.dll", "TextOutA");
    textOut.failCall(1, FALSE);
    const auto written = write(L"a\r\nb\r\nc", 1, 2, 0, single(10));
    expectResult(written.outcome, false);
    EXPECT_EQ(3, textOut.calls());
    EXPECT_EQ(32, written.y);
}

TEST_F(GraphiqueText, systemCallsFailInTurn) {
    const auto use = [this] {
        ownFont();
        const auto written = write(L"une ligne assez longue pour un bloc\r\nb", 1, 2, 0, single(10));
        const auto& result = written.outcome.result.raw();
        const char* const answer = result.vt != VT_BOOL ? "none " : result.boolVal ? "True " : "False ";
        return answer + std::to_string(written.y);
    };
    const std::set<std::string> early{"False 2"}, late{"False 22"}, any{"False 2", "False 12", "False 22"};
    // The third selection puts the font back, so it fails last.
    EXPECT_EQ(3, failEachCall(module, fault<decltype(SelectObject)>("gdi32.dll", "SelectObject", nullptr),
                              "TextRotate", use, "True 22", any));
    EXPECT_EQ(1, failEachCall(module, fault<decltype(GetObjectA)>("gdi32.dll", "GetObjectA", 0), "TextRotate",
                              use, "True 22", early));
    EXPECT_EQ(1,
              failEachCall(module,
                           fault<decltype(CreateFontIndirectA)>("gdi32.dll", "CreateFontIndirectA", nullptr),
                           "TextRotate", use, "True 22", early));
    EXPECT_EQ(2, failEachCall(module, fault<decltype(TextOutA)>("gdi32.dll", "TextOutA", FALSE), "TextRotate",
                              use, "True 22", late));
    failEachCall(module, noMemory(), "TextRotate", use, "True 22",
                 {"False 2", "False 12", "False 22", "none 2"});
}

TEST_F(GraphiqueText, nothingIsLeftBehind) {
    const auto before = Resources::held();
    for (int i = 0; i < 1000; ++i) {
        ownFont();
        write(L"a\r\nb", 100, 100, 45, single(10));
    }
    EXPECT_EQ(before, Resources::held());
}

// A form with a menu bar of two menus, the first with a submenu.
class GraphiqueMenus : public Graphique {
protected:
    GraphiqueMenus() {
        AppendMenuW(inner, MF_STRING, 1, L"Ouvrir");
        AppendMenuW(file, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), L"Récents");
        AppendMenuW(edit, MF_STRING, 2, L"Copier");
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"Fichier");
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(edit), L"Édition");
        AppendMenuW(bar, MF_STRING, 3, L"Aide");
        SetMenu(form.handle(), bar);
    }

    // The colour of a menu's brush; -1 without one.
    static int colourOf(HMENU menu) {
        MENUINFO info{};
        info.cbSize = sizeof info;
        info.fMask = MIM_BACKGROUND;
        LOGBRUSH brush{};
        if (!GetMenuInfo(menu, &info) || !info.hbrBack || !GetObjectW(info.hbrBack, sizeof brush, &brush))
            return -1;
        return static_cast<int>(brush.lbColor);
    }
    using Colours = std::vector<int>;
    Colours colours() const { return {colourOf(bar), colourOf(file), colourOf(inner), colourOf(edit)}; }
    std::int32_t window() const { return numberOf(form.handle()); }

    forms::Host host;
    forms::Form& form = host.load(L"frmMenu");
    const HMENU bar = CreateMenu(), file = CreatePopupMenu(), inner = CreatePopupMenu(),
                edit = CreatePopupMenu();
};

TEST_F(GraphiqueMenus, theWholeBar) {
    EXPECT_EQ((Colours{-1, -1, -1, -1}), colours());
    expectResult(call(L"MenuBackColor", {long32(window()), long32(0x00FF8000)}), true);
    EXPECT_EQ((Colours{0xFF8000, 0xFF8000, 0xFF8000, 0xFF8000}), colours());
}

TEST_F(GraphiqueMenus, onlyTheBar) {
    expectResult(call(L"MenuBackColor", {long32(window()), long32(0x123456), false}), true);
    EXPECT_EQ((Colours{0x123456, -1, -1, -1}), colours());
}

TEST_F(GraphiqueMenus, oneMenuOfTheBar) {
    expectResult(call(L"MenuBackColor", {long32(window()), long32(0x123456), true, long32(0)}), true);
    EXPECT_EQ((Colours{-1, 0x123456, 0x123456, -1}), colours());
    LONG place = 1;
    expectResult(
        call(L"MenuBackColor", {long32(window()), long32(0x654321), false, byReference(VT_I4, &place)}),
        true);
    EXPECT_EQ((Colours{-1, 0x123456, 0x123456, 0x654321}), colours());
    EXPECT_EQ(1, place);
}

TEST_F(GraphiqueMenus, aSystemColourIsTranslated) {
    expectResult(call(L"MenuBackColor", {long32(window()), long32(forms::systemColour(COLOR_HIGHLIGHT))}),
                 true);
    EXPECT_EQ(static_cast<int>(GetSysColor(COLOR_HIGHLIGHT)), colourOf(bar));
}

TEST_F(GraphiqueMenus, whatIsNoMenuIsFalse) {
    // "Aide" opens no menu.
    for (const int place : {2, 3, -2, INT_MAX})
        expectResult(call(L"MenuBackColor", {long32(window()), long32(0), true, long32(place)}), false);
    // No colour: the highest byte names neither a palette nor a system colour.
    expectResult(call(L"MenuBackColor", {long32(window()), long32(0x12000000)}), false);
    auto& bare = host.load(L"frmNu");
    auto& label = form.add<forms::Label>({.name = L"lbl"});
    for (const auto none : {numberOf(bare.handle()), numberOf(label.handle()), 0, -1, 12345})
        expectResult(call(L"MenuBackColor", {long32(none), long32(0)}), false);
    EXPECT_EQ((Colours{-1, -1, -1, -1}), colours());
}

TEST_F(GraphiqueMenus, systemCallsFailInTurn) {
    // The brush of an earlier call is the menu's on purpose: only what a failure leaves is counted.
    Intercept<decltype(CreateSolidBrush)> brushes(module, "gdi32.dll", "CreateSolidBrush");
    brushes.failCall(1, nullptr);
    expectResult(call(L"MenuBackColor", {long32(window()), long32(0)}), false);
    EXPECT_EQ(-1, colourOf(bar));
    Intercept<decltype(SetMenuInfo)> set(module, "user32.dll", "SetMenuInfo");
    set.answer([](HMENU, LPCMENUINFO) -> WINBOOL { return FALSE; });
    const auto before = Resources::held();
    for (int i = 0; i < 100; ++i) {
        expectResult(call(L"MenuBackColor", {long32(window()), long32(0)}), true);
        expectResult(call(L"MenuBackColor", {long32(window()), long32(0), true, long32(9)}), false);
    }
    EXPECT_EQ(before, Resources::held());
    set.answer({});
    // One brush for each call that a menu has taken, which is never deleted.
    for (int i = 0; i < 100; ++i) run(L"MenuBackColor", {long32(window()), long32(i)});
    EXPECT_EQ(before.drawing + 100, Resources::held().drawing);
}

}  // namespace
}  // namespace vorla::test
