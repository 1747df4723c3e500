// VorlaGraphique: centring, the order of windows, the sizes of frames, the height of combo boxes.
#include <climits>

#include "contract/graphique_fixture.h"
#include "support/failing_calls.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

using forms::Border;

// At 96 dots per inch, which the null display has.
constexpr int pixel = 15;

std::vector<std::wstring> callsOf(const ScriptedObject& object) {
    std::vector<std::wstring> calls;
    for (const auto& line : object.log())
        if (!line.starts_with(L"lookup")) calls.push_back(line);
    return calls;
}

std::string describeAll(const HostCall& call) {
    std::string all;
    for (std::size_t i = 0; i < call.count(); ++i) all += describe(call.argument(i).raw()) + "; ";
    return all;
}

class GraphiquePlaces : public Graphique {
protected:
    // A borderless form at a place of the screen, in pixels.
    forms::Form& at(const wchar_t* name, LONG left, LONG top, LONG right, LONG bottom) {
        auto& made = host.load(name, {.border = Border::none});
        MoveWindow(made.handle(), left, top, right - left, bottom - top, FALSE);
        return made;
    }
    void expectCorner(forms::Form& moved, LONG left, LONG top, const std::string& what) {
        const auto place = placeOf(moved.handle());
        EXPECT_EQ(left, place.left) << what;
        EXPECT_EQ(top, place.top) << what;
    }
    static Variant handleOf(const forms::Window& window) { return numberOf(window.handle()); }

    forms::Host host;
    // A screen of 1024 x 768 with another one of 1280 x 1024 to its left.
    const OtherScreens screens{module,
                               {{SM_CXSCREEN, 1024},
                                {SM_CYSCREEN, 768},
                                {SM_XVIRTUALSCREEN, -1280},
                                {SM_YVIRTUALSCREEN, -100},
                                {SM_CXVIRTUALSCREEN, 2304},
                                {SM_CYVIRTUALSCREEN, 1024}}};
    forms::Form& form = at(L"frmFille", 3, 5, 203, 105);
};

// (1024 - 200) / 2 and (768 - 100) / 2.
constexpr LONG screenLeft = 412, screenTop = 334;

TEST_F(GraphiquePlaces, withoutAParentOnTheMainScreen) {
    run(L"Centre", {object(&form)});
    expectCorner(form, screenLeft, screenTop, "no parent");
}

TEST_F(GraphiquePlaces, onAParentInEitherShape) {
    auto& parent = at(L"frmMère", 100, 200, 500, 500);
    run(L"Centre", {object(&form), handleOf(parent)});
    expectCorner(form, 200, 300, "handle");
    MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
    run(L"Centre", {object(&form), object(&parent)});
    expectCorner(form, 200, 300, "object with Hwnd");
    LONG handle = numberOf(parent.handle());
    MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
    run(L"Centre", {object(&form), byReference(VT_I4, &handle)});
    expectCorner(form, 200, 300, "variable");
    ScriptedObject own, both;
    own.property(L"Handle", handleOf(parent));
    MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
    run(L"Centre", {object(&form), object(&own)});
    expectCorner(form, 200, 300, "object with Handle");
    both.property(L"Handle", long32(0)).property(L"Hwnd", handleOf(parent));
    MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
    run(L"Centre", {object(&form), object(&both)});
    expectCorner(form, 200, 300, "object with both");
    // A control counts with its own place, not its form's: (115, 215) to (315, 315).
    auto& picture = parent.add<forms::PictureBox>({.name = L"pic", .at = {225, 225, 3000, 1500}});
    run(L"Centre", {object(&form), object(&picture)});
    expectCorner(form, 115, 215, "control");
    EXPECT_EQ(0, own.references());
    EXPECT_EQ(0, both.references());
}

TEST_F(GraphiquePlaces, withoutAUsableParentOnTheMainScreen) {
    auto& parent = at(L"frmMère", 100, 200, 500, 500);
    ScriptedObject dumb, broken;
    broken.property(L"Hwnd", text(L"fenêtre"));
    struct Row {
        const char* what;
        Variant parent;
    };
    const auto number = numberOf(parent.handle());
    const Row rows[] = {{"zero", long32(0)},
                        {"no window", long32(12345)},
                        {"16 bits", short16(7)},
                        {"double", static_cast<double>(number)},
                        {"text", text(L"frmMère")},
                        {"Empty", Variant()},
                        {"Null", nullValue()},
                        {"Nothing", nothing()},
                        {"without a handle", object(&dumb)},
                        {"with a broken handle", object(&broken)}};
    for (const auto& [what, value] : rows) {
        MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
        run(L"Centre", {object(&form), value});
        expectCorner(form, screenLeft, screenTop, what);
    }
    // The row's own.
    EXPECT_EQ(1, dumb.references());
    EXPECT_EQ(1, broken.references());
}

TEST_F(GraphiquePlaces, notOnAMinimisedParent) {
    auto& parent = host.load(L"frmMère");
    auto& picture = parent.add<forms::PictureBox>({.name = L"pic", .at = {0, 0, 3000, 1500}});
    for (const int command : {SW_SHOWMINIMIZED, SW_MINIMIZE}) {
        ShowWindow(parent.handle(), SW_SHOWNORMAL);
        ShowWindow(parent.handle(), command);
        ASSERT_TRUE(IsIconic(parent.handle()));
        for (const auto& value : {handleOf(parent), handleOf(picture)}) {
            MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
            run(L"Centre", {object(&form), value});
            expectCorner(form, screenLeft, screenTop, "minimised");
        }
    }
    // Each of the two show states that mean it.
    Intercept<decltype(GetWindowPlacement)> placement(module, "user32.dll", "GetWindowPlacement");
    ShowWindow(parent.handle(), SW_SHOWNORMAL);
    MoveWindow(parent.handle(), 100, 200, 400, 300, FALSE);
    for (UINT state = 0; state < 12; ++state) {
        placement.answer([state](HWND, WINDOWPLACEMENT* place) -> WINBOOL {
            EXPECT_EQ(sizeof *place, place->length);
            place->showCmd = state;
            return TRUE;
        });
        MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
        run(L"Centre", {object(&form), handleOf(parent)});
        const bool isMinimised = state == 2 || state == 6;
        expectCorner(form, isMinimised ? screenLeft : 200, isMinimised ? screenTop : 300,
                     std::to_string(state));
    }
}

TEST_F(GraphiquePlaces, withinTheVirtualScreen) {
    struct Row {
        RECT parent;
        LONG left, top;
    };
    const Row rows[] = {
        {{-600, 100, 0, 400}, -400, 200},     // the screen on the left
        {{-900, 100, -379, 400}, -740, 200},  // -1279: visible; -900 + 321 / 2 = -739.5 goes to -740
        {{-901, 100, -380, 400}, screenLeft, screenTop},  // -1281 is left of the screen
        {{-640, 100, -640, 400}, -740, 200},              // -1280
        {{0, 0, 50, 50}, -75, -25},                       // smaller than the form
        {{2300, 0, 2400, 50}, 2104, -25},                 // no further than 2304 - 200
        {{2305, 0, 2400, 50}, screenLeft, screenTop},
        {{100, 1024, 500, 1034}, 200, 924},  // no further than 1024 - 100
        {{100, 1025, 500, 1035}, screenLeft, screenTop},
        {{100, -60, 500, -40}, 200, -100},  // sum -100; no further up than -100
        {{100, -60, 500, -41}, screenLeft, screenTop},
    };
    auto& parent = at(L"frmMère", 0, 0, 1, 1);
    for (const auto& [place, left, top] : rows) {
        MoveWindow(parent.handle(), place.left, place.top, place.right - place.left, place.bottom - place.top,
                   FALSE);
        MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
        run(L"Centre", {object(&form), handleOf(parent)});
        expectCorner(form, left, top, std::to_string(place.left) + " " + std::to_string(place.top));
    }
}

TEST_F(GraphiquePlaces, whatTheHostIsTold) {
    ScriptedObject seen;
    std::string moved;
    seen.property(L"Width", single(3015))
        .property(L"Height", single(1500))
        .method(L"Move", [&](const HostCall& call) {
            moved = describeAll(call);
            return Variant();
        });
    auto& parent = at(L"frmMère", 100, 200, 500, 500);
    run(L"Centre", {object(&seen), handleOf(parent)});
    // 201 pixels wide: 100 + 199 / 2 = 199.5, which is 2992.5 twips.
    EXPECT_EQ(describe(single(2992.5f).raw()) + "; " + describe(single(4500).raw()) + "; ", moved);
    EXPECT_EQ((std::vector<std::wstring>{L"get Width", L"get Height", L"call Move"}), callsOf(seen));
    run(L"Centre", {object(&seen)});
    // (15360 - 3015) / 2 and (11520 - 1500) / 2.
    EXPECT_EQ(describe(single(6172.5f).raw()) + "; " + describe(single(5010).raw()) + "; ", moved);
    // The screen's height follows the horizontal factor, the parent's the vertical one.
    const OtherResolution resolution(module, 96, 144);
    run(L"Centre", {object(&seen)});
    EXPECT_EQ(describe(single(6172.5f).raw()) + "; " + describe(single(5010).raw()) + "; ", moved);
    run(L"Centre", {object(&seen), handleOf(parent)});
    // Height 150 pixels: 200 + 150 / 2 = 275, which is 2750 twips.
    EXPECT_EQ(describe(single(2992.5f).raw()) + "; " + describe(single(2750).raw()) + "; ", moved);
    EXPECT_EQ(0, seen.references());
}

TEST_F(GraphiquePlaces, centringGoesOnAfterEachFailingCall) {
    auto& parent = at(L"frmMère", 100, 200, 500, 500);
    const auto twips = [](float x, float y) {
        return describe(single(x * pixel).raw()) + "; " + describe(single(y * pixel).raw()) + "; ";
    };
    // A size that cannot be read counts as 0.
    const std::string onParent[] = {twips(300, 300), twips(200, 350), "", twips(200, 300)},
                      onScreen[] = {twips(512, 334), twips(412, 384), "", twips(412, 334)};
    for (int number = 1; number <= 4; ++number) {
        for (const bool hasParent : {true, false}) {
            ScriptedObject seen;
            std::string moved;
            seen.property(L"Width", single(3000))
                .property(L"Height", single(1500))
                .method(L"Move", [&](const HostCall& call) { return moved = describeAll(call), Variant(); });
            seen.failCall(number, static_cast<HRESULT>(0x800A0005));
            run(L"Centre", {object(&seen), hasParent ? handleOf(parent) : missing()});
            EXPECT_EQ((hasParent ? onParent : onScreen)[number - 1], moved) << number;
            EXPECT_EQ(0, seen.references());
        }
    }
    // The parent's own handle.
    for (int number = 1; number <= 2; ++number) {
        ScriptedObject asked;
        asked.property(L"Hwnd", handleOf(parent));
        asked.failCall(number, static_cast<HRESULT>(0x800A0005));
        MoveWindow(form.handle(), 0, 0, 200, 100, FALSE);
        run(L"Centre", {object(&form), object(&asked)});
        expectCorner(form, screenLeft, screenTop, std::to_string(number));
        EXPECT_EQ(0, asked.references());
    }
}

TEST_F(GraphiquePlaces, aParentThatGoesWhileItIsAsked) {
    auto& parent = at(L"frmMère", 100, 200, 500, 500);
    const ComPointer<forms::Form> kept(&parent);
    const auto handle = numberOf(parent.handle());
    ScriptedObject asked;
    asked.method(L"Hwnd", [&](const HostCall&) {
        parent.unload();
        return Variant(handle);
    });
    run(L"Centre", {object(&form), object(&asked)});
    expectCorner(form, screenLeft, screenTop, "gone");
    form.unload();
    EXPECT_EQ(0, asked.references());
}

TEST_F(GraphiquePlaces, theOrderOfWindows) {
    struct Told {
        HWND window;
        INT_PTR after;
        UINT flags;
        bool operator==(const Told&) const = default;
    };
    std::vector<Told> told;
    Intercept<decltype(SetWindowPos)> set(module, "user32.dll", "SetWindowPos");
    set.answer([&](HWND window, HWND after, int x, int y, int width, int height, UINT flags) -> WINBOOL {
        EXPECT_EQ(0, x | y | width | height);
        told.push_back({window, reinterpret_cast<INT_PTR>(after), flags});
        return TRUE;
    });
    Intercept<decltype(SetForegroundWindow)> foreground(module, "user32.dll", "SetForegroundWindow");
    const auto window = form.handle();
    struct Row {
        int position;
        std::vector<Told> told;
        const char* order;
        int foreground;
    };
    const Row rows[] = {{3, {{window, -1, 3}}, "", 1},
                        {-1, {{window, -1, 19}}, "", 0},
                        {-2, {{window, -2, 19}}, "vt 2 1; ", 0},
                        {0, {{window, -2, 19}, {window, 0, 19}}, "vt 2 0; ", 0},
                        {1, {{window, 1, 19}}, "", 0},
                        // Any other number is passed on as a window.
                        {7, {{window, 7, 19}}, "", 0}};
    for (const auto& [position, expected, order, brought] : rows) {
        told.clear();
        ScriptedObject seen;
        std::string ordered;
        seen.property(L"hwnd", numberOf(window)).method(L"ZOrder", [&](const HostCall& call) {
            ordered = describeAll(call);
            return Variant();
        });
        const int before = foreground.calls();
        run(L"WinOnTop", {object(&seen), long32(position)});
        EXPECT_TRUE(expected == told) << position;
        EXPECT_EQ(order, ordered) << position;
        EXPECT_EQ(brought, foreground.calls() - before) << position;
        EXPECT_EQ(1u, seen.logged(L"get hwnd")) << position;
        EXPECT_EQ(0, seen.references());
    }
    told.clear();
    run(L"WinOnTop", {object(&form)});
    EXPECT_TRUE((std::vector<Told>{{window, -1, 19}}) == told);
}

TEST_F(GraphiquePlaces, windowsStandInThatOrder) {
    auto& other = at(L"frmAutre", 0, 0, 50, 50);
    form.show();
    other.show();
    const auto isTopmost = [&] { return (GetWindowLongW(form.handle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; };
    const auto isAbove = [&] {
        for (HWND below = GetWindow(form.handle(), GW_HWNDNEXT); below; below = GetWindow(below, GW_HWNDNEXT))
            if (below == other.handle()) return true;
        return false;
    };
    EXPECT_FALSE(isAbove());
    run(L"WinOnTop", {object(&form)});
    EXPECT_TRUE(isTopmost());
    EXPECT_TRUE(isAbove());
    run(L"WinOnTop", {object(&form), long32(-2)});
    EXPECT_FALSE(isTopmost());
    EXPECT_FALSE(isAbove());
    run(L"WinOnTop", {object(&form), long32(3)});
    EXPECT_TRUE(isTopmost());
    EXPECT_TRUE(isAbove());
    run(L"WinOnTop", {object(&form), long32(0)});
    EXPECT_FALSE(isTopmost());
    EXPECT_TRUE(isAbove());
    run(L"WinOnTop", {object(&form), long32(1)});
    EXPECT_FALSE(isAbove());
}

TEST_F(GraphiquePlaces, WinOnTopReportsTheHostsErrors) {
    ScriptedObject dumb, noOrder, refusing;
    noOrder.property(L"hwnd", numberOf(form.handle()));
    refusing.property(L"hwnd", numberOf(form.handle())).method(L"ZOrder", [](const HostCall&) {
        return Variant();
    });
    refusing.failCallWithNumber(2, 5);
    expectError(call(L"WinOnTop", {nothing()}), 91);
    expectError(call(L"WinOnTop", {object(&dumb)}), 438);
    expectError(call(L"WinOnTop", {object(&noOrder), long32(-2)}), 438);
    expectError(call(L"WinOnTop", {object(&refusing), long32(0)}), 5);
    // Windows' own refusals are not reported.
    run(L"WinOnTop", {object(&noOrder), long32(12345)});
    noOrder.value(L"hwnd") = long32(0);
    for (const int position : {-1, 1, 3}) run(L"WinOnTop", {object(&noOrder), long32(position)});
}

TEST_F(GraphiquePlaces, frameSizesAreSystemMetrics) {
    ScriptedObject seen;
    seen.property(L"BorderStyle");
    const auto size = [&](int style, int part) {
        seen.value(L"BorderStyle") = short16(style);
        return call(L"FormSize", {object(&seen), long32(part)});
    };
    const int borders[] = {-1, SM_CYDLGFRAME, SM_CXFRAME, SM_CYDLGFRAME, SM_CYBORDER, SM_CYFRAME, -1};
    for (int style = 0; style < 7; ++style) {
        expectResult(size(style, 4), long32(style == 0 ? 0 : GetSystemMetrics(SM_CYCAPTION)));
        expectResult(size(style, 33), long32(borders[style] < 0 ? 0 : GetSystemMetrics(borders[style])));
        for (const int other : {0, 5, -1}) expectResult(size(style, other), long32(0));
    }
    for (const auto border : {Border::none, Border::fixed, Border::sizable, Border::dialog, Border::fixedTool,
                              Border::sizableTool}) {
        auto& real = host.load(L"frmCadre", {.border = border});
        expectResult(call(L"FormSize", {object(&real), long32(4)}),
                     long32(border == Border::none ? 0 : GetSystemMetrics(SM_CYCAPTION)));
        real.unload();
    }
    ScriptedObject dumb;
    expectError(call(L"FormSize", {object(&dumb), long32(4)}), 438);
    expectError(call(L"FormSize", {object(&dumb), long32(0)}), 438);
    expectError(call(L"FormSize", {nothing(), long32(4)}), 91);
    seen.value(L"BorderStyle") = text(L"aucun");
    expectError(call(L"FormSize", {object(&seen), long32(4)}), 13);
    EXPECT_EQ(0, seen.references());
}

TEST_F(GraphiquePlaces, InitBarreTitreDoesNothing) {
    ScriptedObject seen;
    run(L"InitBarreTitre", {object(&seen)});
    EXPECT_EQ(std::vector<std::wstring>(), seen.log());
}

class GraphiqueCombos : public GraphiquePlaces {
protected:
    struct Moved {
        HWND window;
        int x, y, width, height;
        bool operator==(const Moved&) const = default;
    };
    GraphiqueCombos() {
        move.answer([this](HWND window, int x, int y, int width, int height, WINBOOL redraws) {
            EXPECT_TRUE(redraws);
            moved = {window, x, y, width, height};
            return move.callOriginal(window, x, y, width, height, redraws);
        });
    }
    static int item(HWND combo, int which) {
        return static_cast<int>(SendMessageW(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(which), 0));
    }

    Intercept<decltype(MoveWindow)> move{module, "user32.dll", "MoveWindow"};
    Moved moved{};
};

TEST_F(GraphiqueCombos, theListHasOneLineMore) {
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo", .at = {300, 150, 1500, 300}});
    for (int i = 0; i < 40; ++i) BoundObject(HostObject(&combo)).call(L"AddItem", L"ligne");
    const auto window = combo.handle();
    for (const int lines : {0, 3, 12}) {
        run(L"ComboHeight", {object(&combo), short16(lines)});
        EXPECT_TRUE((Moved{window, 20, 10, 100, (lines + 1) * item(window, 0) + item(window, -1)}) == moved)
            << lines;
        EXPECT_EQ(300.0f, combo.getAs<float>(L"Left"));
        EXPECT_EQ(150.0f, combo.getAs<float>(L"Top"));
    }
    const auto before = SendMessageW(window, CB_GETDROPPEDWIDTH, 0, 0);
    for (const int width : {0, -1}) {
        run(L"ComboHeight", {object(&combo), short16(3), long32(width)});
        EXPECT_EQ(before, SendMessageW(window, CB_GETDROPPEDWIDTH, 0, 0));
    }
    run(L"ComboHeight", {object(&combo), short16(3), long32(321)});
    EXPECT_EQ(321, SendMessageW(window, CB_GETDROPPEDWIDTH, 0, 0));
}

TEST_F(GraphiqueCombos, theContainersPlaceCounts) {
    auto& picture = form.add<forms::PictureBox>({.name = L"pic", .at = {600, 300, 3000, 1200}});
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo", .at = {300, 150, 1500, 300}, .in = &picture});
    const auto inForm = placeOf(combo.handle()), parent = placeOf(picture.handle());
    run(L"ComboHeight", {object(&combo), short16(2)});
    POINT corner{inForm.left, inForm.top};
    ScreenToClient(picture.handle(), &corner);
    EXPECT_EQ(corner.x, moved.x);
    EXPECT_EQ(corner.y, moved.y);
    EXPECT_LT(parent.left, inForm.left);
}

// A combo box of which the test sees every call: its window is real, its objects are not.
class SeenCombo {
public:
    SeenCombo(HWND window, HWND container, HWND parent) {
        combo.property(L"Left", single(300.4f))
            .property(L"Top", single(150))
            .property(L"hwnd", static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window)))
            .method(L"Move", [this](const HostCall& call) { return moved = describeAll(call), Variant(); });
        outer.property(L"hwnd", static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(container)));
        form.property(L"hwnd", static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(parent)));
    }
    ScriptedObject outer, form, combo;
    std::string moved;
};

TEST_F(GraphiqueCombos, whoseContainerHasNoWindow) {
    auto& picture = form.add<forms::PictureBox>({.name = L"pic", .at = {600, 300, 3000, 1200}});
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo", .at = {300, 150, 1500, 300}, .in = &picture});
    std::vector<HWND> owners;
    Intercept<decltype(ScreenToClient)> convert(module, "user32.dll", "ScreenToClient");
    convert.answer([&](HWND owner, POINT* point) {
        owners.push_back(owner);
        return convert.callOriginal(owner, point);
    });
    ScriptedObject windowless;
    enum class Container { none, isNothing, isNumber, bare, window };
    for (const auto kind :
         {Container::none, Container::isNothing, Container::isNumber, Container::bare, Container::window}) {
        SeenCombo seen(combo.handle(), picture.handle(), form.handle());
        seen.combo.property(L"Parent", object(&seen.form));
        if (kind == Container::isNothing) seen.combo.property(L"Container", nothing());
        if (kind == Container::isNumber) seen.combo.property(L"Container", short16(3));
        if (kind == Container::bare) seen.combo.property(L"Container", object(&windowless));
        if (kind == Container::window) seen.combo.property(L"Container", object(&seen.outer));
        run(L"ComboHeight", {object(&seen.combo), short16(2)});
        EXPECT_EQ(kind == Container::window ? picture.handle() : form.handle(), owners.back());
        // Kept as 32-bit integers.
        EXPECT_EQ("vt 3 300; vt 3 150; ", seen.moved);
    }
    EXPECT_EQ(0, windowless.references());
}

TEST_F(GraphiqueCombos, reportTheHostsErrors) {
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo", .at = {300, 150, 1500, 300}});
    // Left, Top, hwnd, the container's existence, the parent, its window, Move.
    for (int number = 1; number <= 7; ++number) {
        SeenCombo seen(combo.handle(), nullptr, form.handle());
        seen.combo.property(L"Parent", object(&seen.form));
        seen.combo.failCallWithNumber(number, 5);
        const auto outcome = call(L"ComboHeight", {object(&seen.combo), short16(2)});
        if (number <= 5)
            expectError(outcome, 5, std::to_string(number));
        else
            EXPECT_EQ(S_OK, outcome.code) << number;
        EXPECT_EQ(0, seen.form.references() - 1);
        EXPECT_EQ(0, seen.combo.references());
    }
    ScriptedObject dumb;
    expectError(call(L"ComboHeight", {object(&dumb), short16(2)}), 438);
    expectError(call(L"ComboHeight", {nothing(), short16(2)}), 91);
    EXPECT_EQ(DISP_E_OVERFLOW, call(L"ComboHeight", {object(&dumb), long32(32768)}).code);
}

TEST_F(GraphiqueCombos, aHeightPast32BitsIsError6) {
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo", .at = {300, 150, 1500, 300}});
    Intercept<decltype(SendMessageA)> send(module, "user32.dll", "SendMessageA");
    send.answer([&](HWND window, UINT message, WPARAM first, LPARAM second) -> LRESULT {
        EXPECT_EQ(combo.handle(), window);
        EXPECT_EQ(0x154u, message);
        EXPECT_EQ(0, second);
        return first == 0 ? 65536 : 20;
    });
    moved = {};
    expectError(call(L"ComboHeight", {object(&combo), short16(32767)}), 6);
    EXPECT_TRUE(Moved{} == moved);
    run(L"ComboHeight", {object(&combo), short16(-1)});
    EXPECT_EQ(20, moved.height);
}

// A combo box that is not a window any more.
TEST_F(GraphiqueCombos, withoutAWindow) {
    SeenCombo seen(nullptr, nullptr, form.handle());
    seen.combo.property(L"Parent", object(&seen.form));
    run(L"ComboHeight", {object(&seen.combo), short16(2), long32(100)});
    EXPECT_EQ("vt 3 300; vt 3 150; ", seen.moved);
}

TEST_F(GraphiquePlaces, withoutMemory) {
    auto& parent = at(L"frmMère", 100, 200, 500, 500);
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo", .at = {300, 150, 1500, 300}});
    const auto use = [&](const wchar_t* member, Arguments arguments) {
        const auto outcome = call(member, std::move(arguments));
        host.record().clearLog();
        return outcome.code == S_OK                     ? std::string("done")
               : outcome.exceptionCode == E_OUTOFMEMORY ? std::string("no memory")
                                                        : std::to_string(outcome.exceptionCode);
    };
    const std::set<std::string> refused{"no memory"};
    failEachCall(module, noMemory(), "Centre",
                 [&] {
                     return use(L"Centre", {object(&form), object(&parent)});
                 },
                 "done", {});
    failEachCall(
        module, noMemory(), "WinOnTop",
        [&] {
            return use(L"WinOnTop", {object(&form), long32(0)});
        },
        "done", refused);
    failEachCall(
        module, noMemory(), "ComboHeight",
        [&] {
            return use(L"ComboHeight", {object(&combo), short16(3)});
        },
        "done", refused);
}

TEST_F(GraphiquePlaces, nothingIsLeftBehind) {
    auto& parent = at(L"frmMère", 100, 200, 500, 500);
    auto& combo = form.add<forms::ComboBox>({.name = L"cbo", .at = {300, 150, 1500, 300}});
    int i = 0;
    expectNothingLeft([&] {
        if (i++ % 50 != 0) return;
        run(L"Centre", {object(&form), object(&parent)});
        run(L"Centre", {object(&form)});
        run(L"WinOnTop", {object(&form), long32(0)});
        run(L"ComboHeight", {object(&combo), short16(3), long32(50)});
        call(L"FormSize", {object(&form), long32(4)});
        call(L"FormTitle", {object(&form)});
        host.record().clearLog();
    });
}

}  // namespace
}  // namespace vorla::test
