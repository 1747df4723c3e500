// VorlaGraphique: rounded corners, transparency, gradients and the desktop as background, on windows of the
// forms host and on hosts of which the test sees every call.
#include <climits>
#include <set>

#include "contract/graphique_fixture.h"
#include "frame/values/unique_handle.h"
#include "support/failing_calls.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

using forms::Border;

// At 96 dots per inch, which the null display has.
constexpr int pixel = 15;

// An object's calls without the lookups of names.
std::vector<std::wstring> callsOf(const ScriptedObject& object) {
    std::vector<std::wstring> calls;
    for (const auto& line : object.log())
        if (!line.starts_with(L"lookup")) calls.push_back(line);
    return calls;
}

Variant scaled(const HostCall& call) {
    EXPECT_EQ(3u, call.count());
    EXPECT_EQ("vt 2 1", describe(call.argument(1).raw()));
    EXPECT_EQ("vt 2 3", describe(call.argument(2).raw()));
    return convertedTo<float>(call.argument(0)) / pixel;
}

class GraphiqueLook : public Graphique {
protected:
    forms::Form& borderless(const wchar_t* name = L"frmNue") {
        return host.load(name,
                         {.border = Border::none, .insideWidth = 200 * pixel, .insideHeight = 100 * pixel});
    }

    // A region's area; thin regions may have different rectangles for the same area.
    static void expectRegion(HWND window, HRGN expected) {
        const Region now(CreateRectRgn(0, 0, 0, 0)), difference(CreateRectRgn(0, 0, 0, 0));
        ASSERT_NE(ERROR, GetWindowRgn(window, now.get()));
        EXPECT_EQ(NULLREGION, CombineRgn(difference.get(), now.get(), expected, RGN_XOR));
    }
    static bool hasRegion(HWND window) {
        const Region now(CreateRectRgn(0, 0, 0, 0));
        return GetWindowRgn(window, now.get()) != ERROR;
    }
    static COLORREF pixelAt(HWND window, int x, int y) {
        const HDC context = GetDC(window);
        const auto colour = GetPixel(context, x, y);
        ReleaseDC(window, context);
        return colour;
    }

    forms::Host host;
};

TEST_F(GraphiqueLook, aFormGetsRoundCorners) {
    auto& form = borderless();
    run(L"FormArrondie", {object(&form)});
    const Region usual(CreateRoundRectRgn(0, 0, 200, 100, 34, 34));
    expectRegion(form.handle(), usual.get());
    run(L"FormArrondie", {object(&form), short16(60)});
    const Region wide(CreateRoundRectRgn(0, 0, 200, 100, 60, 60));
    expectRegion(form.handle(), wide.get());
    run(L"FormArrondie", {object(&form), short16(0)});
    const Region plain(CreateRectRgn(0, 0, 200, 100)), now(CreateRectRgn(0, 0, 0, 0));
    const Region rounded(CreateRoundRectRgn(0, 0, 200, 100, 0, 0));
    expectRegion(form.handle(), rounded.get());
    GetWindowRgn(form.handle(), now.get());
    for (const POINT corner : {POINT{0, 0}, {198, 0}, {0, 98}, {198, 98}})
        EXPECT_TRUE(PtInRegion(now.get(), corner.x, corner.y)) << corner.x << " " << corner.y;
    for (const POINT outside : {POINT{200, 0}, {0, 100}, {-1, 0}})
        EXPECT_FALSE(PtInRegion(now.get(), outside.x, outside.y)) << outside.x << " " << outside.y;
}

TEST_F(GraphiqueLook, aFormWithAFrameIsShapedWithIt) {
    auto& form = host.load(L"frmMain");
    const auto place = placeOf(form.handle());
    run(L"FormArrondie", {object(&form), short16(20)});
    const Region expected(
        CreateRoundRectRgn(0, 0, place.right - place.left, place.bottom - place.top, 20, 20));
    expectRegion(form.handle(), expected.get());
}

TEST_F(GraphiqueLook, aControlIsShapedAndTheVariableBecomesItsForm) {
    auto& form = borderless();
    auto& picture = form.add<forms::PictureBox>({.name = L"pic", .at = {150, 150, 1500, 750}});
    IDispatch* variable = &picture;
    variable->AddRef();
    run(L"FormArrondie", {byReference(VT_DISPATCH, &variable), short16(16)});
    EXPECT_EQ(static_cast<IDispatch*>(&form), variable);
    variable->Release();
    const Region expected(CreateRoundRectRgn(0, 0, 100, 50, 16, 16));
    expectRegion(picture.handle(), expected.get());
    EXPECT_FALSE(hasRegion(form.handle()));
    // A form stays what it is.
    variable = &form;
    variable->AddRef();
    run(L"FormArrondie", {byReference(VT_DISPATCH, &variable)});
    EXPECT_EQ(static_cast<IDispatch*>(&form), variable);
    variable->Release();
}

TEST_F(GraphiqueLook, theBorderIsDrawnOnceInItsColour) {
    auto& form = borderless();
    form.put(L"BackColor", std::int32_t{0xFFFFFF});
    form.put(L"ForeColor", std::int32_t{0x00FF00});
    form.show();
    run(L"FormArrondie", {object(&form), short16(20), true, long32(0x0000FF)});
    EXPECT_EQ(0x00FF00, form.foreColor());
    // From (0, 0) to one before (199, 99).
    for (const POINT line : {POINT{100, 0}, {0, 50}, {198, 50}, {100, 98}})
        EXPECT_EQ(0x0000FFu, pixelAt(form.handle(), line.x, line.y)) << line.x << " " << line.y;
    for (const POINT inside : {POINT{100, 1}, {1, 50}, {197, 50}, {100, 97}, {100, 50}})
        EXPECT_EQ(0xFFFFFFu, pixelAt(form.handle(), inside.x, inside.y)) << inside.x << " " << inside.y;
    // It is not drawn again.
    form.refresh();
    EXPECT_EQ(0xFFFFFFu, pixelAt(form.handle(), 100, 0));
}

// A form of which the test sees every call, with a real window.
class SeenForm {
public:
    explicit SeenForm(HWND window, std::function<void()> whileMeasured = {}) {
        form.property(L"hWnd", static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window)))
            .property(L"Controls")
            .property(L"WindowState", short16(0))
            .property(L"Left", single(1500))
            .property(L"Top", single(750))
            .property(L"Width", single(3000))
            .property(L"Height", single(1500))
            .property(L"ForeColor", long32(7))
            .property(L"hDC", long32(0))
            .method(L"ScaleX", scaled)
            .method(L"ScaleY", [=](const HostCall& call) {
                if (whileMeasured) whileMeasured();
                return scaled(call);
            });
    }
    ScriptedObject form;
};

TEST_F(GraphiqueLook, theHostIsAskedForWhatIsNeeded) {
    SeenForm seen(borderless().handle());
    run(L"FormArrondie", {object(&seen.form), short16(20), true, long32(0x0000FF)});
    EXPECT_EQ(
        (std::vector<std::wstring>{L"get Width", L"call ScaleX", L"get Height", L"call ScaleY", L"get hWnd",
                                   L"get ForeColor", L"put ForeColor", L"get Width", L"call ScaleX",
                                   L"get Height", L"call ScaleY", L"get hDC", L"put ForeColor"}),
        callsOf(seen.form));
    EXPECT_EQ("vt 3 7", describe(seen.form.value(L"ForeColor").raw()));
    EXPECT_EQ(0, seen.form.references());
}

TEST_F(GraphiqueLook, roundingGoesOnAfterEachFailingCall) {
    for (int number = 1; number <= 14; ++number) {
        auto& real = borderless(L"frmEssai");
        SeenForm seen(real.handle());
        seen.form.failCall(number, static_cast<HRESULT>(0x800A0005));
        run(L"FormArrondie", {object(&seen.form), short16(20), true, long32(0xFF)});
        // Without its size or window, the form keeps its shape: it is never cut to nothing.
        EXPECT_EQ(number > 5, hasRegion(real.handle())) << number;
        // The colour comes back, unless the host refuses just that.
        EXPECT_EQ(number == 13 ? "vt 3 255" : "vt 3 7", describe(seen.form.value(L"ForeColor").raw()))
            << number;
        EXPECT_EQ(0, seen.form.references());
        real.unload();
    }
}

TEST_F(GraphiqueLook, aFormUnloadedWhileItIsMeasured) {
    auto& real = borderless(L"frmEssai");
    const ComPointer<forms::Form> kept(&real);
    SeenForm seen(real.handle(), [&real] { real.unload(); });
    HRGN made = nullptr;
    Intercept<decltype(CreateRoundRectRgn)> create(module, "gdi32.dll", "CreateRoundRectRgn");
    create.answer([&](int left, int top, int right, int bottom, int width, int height) {
        return made = create.callOriginal(left, top, right, bottom, width, height);
    });
    run(L"FormArrondie", {object(&seen.form), short16(20), true, long32(0xFF)});
    EXPECT_EQ(nullptr, real.handle());
    EXPECT_NE(nullptr, made);
    // No window took the region over, so it is deleted.
    EXPECT_EQ(0u, GetObjectType(made));
    EXPECT_EQ(0, seen.form.references());
}

TEST_F(GraphiqueLook, aRefusedRegionIsDeleted) {
    auto& form = borderless();
    run(L"FormArrondie", {object(&form), short16(34), true});
    const auto before = Resources::held();
    Intercept<decltype(SetWindowRgn)> set(module, "user32.dll", "SetWindowRgn");
    set.answer([](HWND, HRGN, WINBOOL) { return 0; });
    for (int i = 0; i < 100; ++i) run(L"FormArrondie", {object(&form)});
    EXPECT_EQ(before, Resources::held());
    set.answer({});
    // A region that could not be made leaves the old shape.
    Intercept<decltype(CreateRoundRectRgn)> create(module, "gdi32.dll", "CreateRoundRectRgn");
    create.failCall(1, nullptr);
    run(L"FormArrondie", {object(&form), short16(2)});
    expectRegion(form.handle(), Region(CreateRoundRectRgn(0, 0, 200, 100, 34, 34)).get());
    // The window owns the last region only.
    for (int i = 0; i < 1000; ++i) run(L"FormArrondie", {object(&form), short16(20), true});
    EXPECT_EQ(before, Resources::held());
}

TEST_F(GraphiqueLook, whatIsNoFormIsLeftAlone) {
    ScriptedObject dumb;
    for (const wchar_t* member : {L"FormArrondie", L"FormSansCadre", L"Centre", L"InitBarreTitre"}) {
        run(member, {nothing()});
        run(member, {object(&dumb)});
        EXPECT_EQ(DISP_E_TYPEMISMATCH, call(member, {text(L"frm")}).code) << narrow(member);
    }
    run(L"FormDegrade", {nothing(), octet(1), octet(2), octet(3)});
    run(L"FormDegrade", {object(&dumb), octet(1), octet(2), octet(3)});
    EXPECT_EQ(0, dumb.references());
}

class GraphiqueLayers : public GraphiqueLook {
protected:
    struct Layers {
        bool are;
        COLORREF key;
        int opacity;
        DWORD flags;
        bool operator==(const Layers&) const = default;
    };
    Layers layers() const {
        if (!(GetWindowLongW(form.handle(), GWL_EXSTYLE) & WS_EX_LAYERED)) return {};
        Layers now{true, 0, 0, 0};
        BYTE opacity = 0;
        GetLayeredWindowAttributes(form.handle(), &now.key, &opacity, &now.flags);
        // Without the flag the system keeps whatever opacity it had and does not use it.
        now.opacity = now.flags & LWA_ALPHA ? opacity : 255;
        return now;
    }
    void setLayers(bool layered) {
        const auto style = GetWindowLongW(form.handle(), GWL_EXSTYLE);
        SetWindowLongW(form.handle(), GWL_EXSTYLE, layered ? style | WS_EX_LAYERED : style & ~WS_EX_LAYERED);
        if (layered) SetLayeredWindowAttributes(form.handle(), 0, 77, LWA_ALPHA);
    }
    Outcome apply(Variant opacity = missing(), Variant key = missing()) {
        return call(L"FormTransparente",
                    {long32(numberOf(form.handle())), std::move(opacity), std::move(key)});
    }

    forms::Form& form = borderless();
    RunningWindows windows{module};
};

TEST_F(GraphiqueLayers, aWindowThatIsNotLayered) {
    struct Row {
        Variant opacity, key;
        bool answer;
        Layers after;
    };
    const Row rows[] = {
        {missing(), missing(), false, {}},
        {short16(255), missing(), false, {}},
        {short16(300), missing(), false, {}},
        {short16(128), missing(), true, {true, 0, 128, LWA_ALPHA}},
        {short16(0), missing(), true, {true, 0, 0, LWA_ALPHA}},
        {short16(-5), missing(), true, {true, 0, 0, LWA_ALPHA}},
        {missing(), long32(0xFF00FF), true, {true, 0xFF00FF, 255, LWA_COLORKEY}},
        {short16(255), long32(0xFF00FF), true, {true, 0xFF00FF, 255, LWA_COLORKEY | LWA_ALPHA}},
        {long32(100), long32(0xFF00FF), true, {true, 0xFF00FF, 100, LWA_COLORKEY | LWA_ALPHA}},
        // Numbers of other types; halves to even.
        {127.5, missing(), true, {true, 0, 128, LWA_ALPHA}},
        {Variant(), missing(), true, {true, 0, 0, LWA_ALPHA}},
        // A text compares greater than any number, and Null gives way to 255.
        {text(L"10"), missing(), false, {}},
        {nullValue(), missing(), false, {}},
    };
    int number = 0;
    for (const auto& [opacity, key, answer, after] : rows) {
        const auto where = "row " + std::to_string(number++);
        setLayers(false);
        expectResult(apply(opacity, key), answer, where);
        EXPECT_EQ(after, layers()) << where;
    }
}

TEST_F(GraphiqueLayers, aLayeredWindow) {
    struct Row {
        Variant opacity, key;
        Layers after;
    };
    const Row rows[] = {
        {missing(), missing(), {}},
        {short16(255), missing(), {}},
        {short16(300), missing(), {}},
        {short16(254), missing(), {true, 0, 254, LWA_ALPHA}},
        {missing(), long32(0x00FF00), {true, 0x00FF00, 255, LWA_COLORKEY}},
        {short16(255), long32(0x00FF00), {true, 0x00FF00, 255, LWA_COLORKEY | LWA_ALPHA}},
        {short16(1), long32(0), {true, 0, 1, LWA_COLORKEY | LWA_ALPHA}},
    };
    int number = 0;
    for (const auto& [opacity, key, after] : rows) {
        const auto where = "row " + std::to_string(number++);
        setLayers(true);
        expectResult(apply(opacity, key), true, where);
        EXPECT_EQ(after, layers()) << where;
    }
}

TEST_F(GraphiqueLayers, whatWindowsIsTold) {
    std::vector<std::string> told;
    Intercept<decltype(SetLayeredWindowAttributes)> set(module, "user32.dll", "SetLayeredWindowAttributes");
    set.answer([&](HWND window, COLORREF key, BYTE opacity, DWORD flags) -> WINBOOL {
        EXPECT_EQ(form.handle(), window);
        told.push_back(std::to_string(key) + " " + std::to_string(opacity) + " " + std::to_string(flags));
        return TRUE;
    });
    apply(short16(100));
    apply(missing(), long32(255));
    apply();
    apply();
    EXPECT_EQ((std::vector<std::string>{"0 100 2", "255 255 1", "0 255 0"}), told);
}

TEST_F(GraphiqueLayers, needWindows2000) {
    struct Row {
        DWORD major, minor, platform;
        bool canLayer;
    };
    constexpr Row rows[] = {{3, 51, 2, false}, {4, 0, 1, false}, {4, 10, 1, false}, {4, 90, 1, false},
                            {4, 0, 2, false},  {5, 0, 2, true},  {5, 1, 2, true},   {5, 2, 2, true},
                            {6, 0, 2, true},   {6, 1, 2, false}, {6, 2, 2, false},  {10, 0, 2, false}};
    for (const auto& [major, minor, platform, canLayer] : rows) {
        setLayers(false);
        windows.become(major, minor, platform);
        expectResult(apply(short16(100)), canLayer);
        EXPECT_EQ(canLayer, layers().are) << major << "." << minor;
    }
}

TEST_F(GraphiqueLayers, anErrorIsFalse) {
    ScriptedObject dumb, opacity(short16(50));
    for (const Variant& key : {text(L"rouge"), nullValue(), nothing(), object(&dumb)})
        expectResult(apply(short16(100), key), false, describe(key.raw()));
    for (const Variant& value : {nothing(), object(&dumb)})
        expectResult(apply(value), false, describe(value.raw()));
    EXPECT_FALSE(layers().are);
    expectResult(apply(object(&opacity)), true);
    EXPECT_EQ((Layers{true, 0, 50, LWA_ALPHA}), layers());
    EXPECT_EQ(0, dumb.references());
    EXPECT_EQ(0, opacity.references());
}

TEST_F(GraphiqueLayers, whatIsNoWindow) {
    // The answer says what was written, whatever the system did with it.
    for (const std::int32_t none : {0, -1, 12345}) {
        expectResult(call(L"FormTransparente", {long32(none), short16(100)}), true);
        expectResult(call(L"FormTransparente", {long32(none)}), false);
    }
}

class GraphiqueGradient : public GraphiqueLook {
protected:
    static void scale(ScriptedObject& form) {
        form.property(L"AutoRedraw", false)
            .property(L"DrawStyle", short16(0))
            .property(L"DrawMode", short16(1))
            .property(L"DrawWidth", short16(1))
            .property(L"ScaleMode", short16(1))
            .property(L"ScaleHeight", single(1500.4f))
            .property(L"ScaleWidth", single(3000))
            .property(L"Width", single(3105));
    }
};

TEST_F(GraphiqueGradient, theHostIsCalledAsTheRuleSays) {
    for (const bool toWhite : {true, false}) {
        ScriptedObject form;
        scale(form);
        std::vector<std::string> lines;
        form.method(L"Line", [&](const HostCall& call) {
            std::string line;
            for (std::size_t i = 0; i < call.count(); ++i) line += describe(call.argument(i).raw()) + "; ";
            lines.push_back(line);
            EXPECT_EQ("vt 2 3", describe(form.value(L"ScaleMode").raw()));
            EXPECT_EQ("vt 2 512", describe(form.value(L"ScaleHeight").raw()));
            return Variant();
        });
        run(L"FormDegrade", {object(&form), octet(200), octet(0), octet(250), toWhite});
        std::vector<std::string> expected;
        for (int i = 0; i < 256; ++i) {
            const int red = toWhite ? (i < 55 ? 200 + i : 255) : (i < 200 ? 200 - i : 0),
                      green = toWhite ? i : 0,
                      blue = toWhite ? (i < 5 ? 250 + i : 255) : (i < 250 ? 250 - i : 0);
            expected.push_back(describe(short16(38).raw()) + "; " + describe(single(0).raw()) + "; " +
                               describe(single(static_cast<float>(2 * i)).raw()) + "; " +
                               describe(single(3105).raw()) + "; " +
                               describe(single(static_cast<float>(2 * i + 2)).raw()) + "; " +
                               describe(long32(red + 256 * green + 65536 * blue).raw()) + "; ");
        }
        EXPECT_EQ(expected, lines);
        std::vector<std::wstring> calls{
            L"put AutoRedraw",  L"put DrawStyle",  L"put DrawMode",  L"put DrawWidth",   L"get ScaleMode",
            L"get ScaleHeight", L"get ScaleWidth", L"put ScaleMode", L"put ScaleHeight", L"get Width"};
        calls.insert(calls.end(), 256, L"call Line");
        calls.insert(calls.end(), {L"put ScaleMode", L"put ScaleHeight", L"put ScaleWidth"});
        EXPECT_EQ(calls, callsOf(form));
        EXPECT_EQ("vt 2 6", describe(form.value(L"DrawStyle").raw()));
        EXPECT_EQ("vt 2 13", describe(form.value(L"DrawMode").raw()));
        EXPECT_EQ("vt 2 2", describe(form.value(L"DrawWidth").raw()));
        EXPECT_EQ(describe(Variant(true).raw()), describe(form.value(L"AutoRedraw").raw()));
        EXPECT_EQ("vt 2 1", describe(form.value(L"ScaleMode").raw()));
        EXPECT_EQ("vt 2 1500", describe(form.value(L"ScaleHeight").raw()));
        EXPECT_EQ("vt 2 3000", describe(form.value(L"ScaleWidth").raw()));
        EXPECT_EQ(0, form.references());
    }
}

TEST_F(GraphiqueGradient, everyRowIsAStep) {
    auto& form = host.load(L"frmCiel",
                           {.border = Border::none, .insideWidth = 40 * pixel, .insideHeight = 256 * pixel});
    form.show();
    run(L"FormDegrade", {object(&form), octet(200), octet(100), octet(0), true});
    for (int y = 0; y < 256; ++y) {
        const auto expected = RGB(std::min(200 + y, 255), std::min(100 + y, 255), y);
        for (const int x : {0, 20, 39}) ASSERT_EQ(expected, pixelAt(form.handle(), x, y)) << x << " " << y;
    }
    run(L"FormDegrade", {object(&form), octet(200), octet(100), octet(0)});
    for (int y = 0; y < 256; ++y)
        ASSERT_EQ(RGB(std::max(200 - y, 0), std::max(100 - y, 0), 0), pixelAt(form.handle(), 20, y)) << y;
    // The form keeps a scale of its own, with the numbers of its twips.
    EXPECT_EQ(0, form.getAs<std::int16_t>(L"ScaleMode"));
    EXPECT_EQ(256.0f * pixel, form.getAs<float>(L"ScaleHeight"));
    EXPECT_EQ(40.0f * pixel, form.getAs<float>(L"ScaleWidth"));
}

TEST_F(GraphiqueGradient, goesOnAfterEachFailingCall) {
    for (int number = 1; number <= 270; ++number) {
        ScriptedObject form;
        scale(form);
        int lines = 0;
        form.method(L"Line", [&lines](const HostCall&) { return ++lines, Variant(); });
        form.failCall(number, static_cast<HRESULT>(0x800A0005));
        run(L"FormDegrade", {object(&form), octet(200), octet(0), octet(250)});
        const bool isLine = number > 10 && number <= 266;
        EXPECT_EQ(number == 10 ? 0 : isLine ? 255 : 256, lines) << number;
        // What was read is put back; what was not read is not.
        EXPECT_EQ(number == 5 || number == 267 ? "vt 2 3" : "vt 2 1",
                  describe(form.value(L"ScaleMode").raw()))
            << number;
        EXPECT_EQ(number == 6 || number == 268 ? "vt 2 512" : "vt 2 1500",
                  describe(form.value(L"ScaleHeight").raw()))
            << number;
        EXPECT_EQ(0, form.references());
    }
}

TEST_F(GraphiqueGradient, aScalePast16BitsIsNotPutBack) {
    ScriptedObject form;
    scale(form);
    form.method(L"Line", [](const HostCall&) { return Variant(); });
    form.value(L"ScaleHeight") = single(40000);
    run(L"FormDegrade", {object(&form), octet(1), octet(2), octet(3)});
    EXPECT_EQ("vt 2 512", describe(form.value(L"ScaleHeight").raw()));
}

TEST_F(GraphiqueGradient, aFormThatIsUnloadedMeanwhile) {
    auto& form = host.load(L"frmCiel");
    ScriptedObject seen;
    scale(seen);
    int lines = 0;
    seen.method(L"Line", [&](const HostCall&) {
        if (++lines == 3) {
            form.unload();
            for (int later = 1; later <= 253; ++later)
                seen.failCall(later, static_cast<HRESULT>(0x800A0000 + forms::objectUnloaded));
        }
        return Variant();
    });
    run(L"FormDegrade", {object(&seen), octet(1), octet(2), octet(3)});
    EXPECT_EQ(3, lines);
    EXPECT_EQ(256u, seen.logged(L"call Line"));
    EXPECT_EQ("vt 2 1", describe(seen.value(L"ScaleMode").raw()));
    EXPECT_EQ(0, seen.references());
}

TEST_F(GraphiqueLook, theDesktopIsCopied) {
    auto& real = borderless();
    SeenForm seen(real.handle());
    const HDC own = GetDC(real.handle());
    seen.form.value(L"hDC") = static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(own));
    std::vector<std::string> copies;
    HDC source = nullptr;
    Intercept<decltype(BitBlt)> copy(module, "gdi32.dll", "BitBlt");
    copy.answer([&](HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY,
                    DWORD operation) -> WINBOOL {
        EXPECT_EQ(own, to);
        source = from;
        EXPECT_EQ(0xCC0020u, operation);
        std::string line;
        for (const int value : {x, y, width, height, fromX, fromY}) line += std::to_string(value) + " ";
        copies.push_back(line);
        return TRUE;
    });
    Intercept<decltype(GetDC)> contexts(module, "user32.dll", "GetDC");
    std::vector<HWND> owners;
    contexts.answer([&](HWND window) {
        if (window) owners.push_back(window);
        return contexts.callOriginal(window);
    });
    Intercept<decltype(ReleaseDC)> released(module, "user32.dll", "ReleaseDC");
    released.answer([&](HWND window, HDC context) {
        // Only those that the twips per pixel are taken from. The desktop's stays open on purpose.
        EXPECT_EQ(nullptr, window);
        return released.callOriginal(window, context);
    });
    run(L"FormSansCadre", {object(&seen.form)});
    // Width and height stay twips.
    EXPECT_EQ(std::vector<std::string>{"0 0 3000 1500 100 50 "}, copies);
    EXPECT_EQ(std::vector<HWND>{GetDesktopWindow()}, owners);
    EXPECT_EQ((std::vector<std::wstring>{L"get Top", L"get Left", L"get hDC", L"get Width", L"get Height"}),
              callsOf(seen.form));
    ReleaseDC(GetDesktopWindow(), source);
    copies.clear();
    {
        // 1440 / 144 and 1440 / 99 = 14.54…, which is 15 in 16 bits: 1500 / 15.
        const OtherResolution resolution(module, 99, 144);
        run(L"FormSansCadre", {object(&seen.form)});
        EXPECT_EQ(std::vector<std::string>{"0 0 3000 1500 100 75 "}, copies);
    }
    copies.clear();
    // A place that cannot be read or does not fit is 0; a size that does not is no copy.
    seen.form.value(L"Left") = 1e7;
    run(L"FormSansCadre", {object(&seen.form)});
    EXPECT_EQ(std::vector<std::string>{"0 0 3000 1500 0 50 "}, copies);
    seen.form.value(L"Width") = long32(32768);
    run(L"FormSansCadre", {object(&seen.form)});
    EXPECT_EQ(1u, copies.size());
    EXPECT_EQ(0, seen.form.references());
    ReleaseDC(real.handle(), own);
}

TEST_F(GraphiqueLook, copyingGoesOnAfterEachFailingCall) {
    for (int number = 1; number <= 6; ++number) {
        SeenForm seen(borderless().handle());
        seen.form.failCall(number, static_cast<HRESULT>(0x800A0005));
        Intercept<decltype(BitBlt)> copy(module, "gdi32.dll", "BitBlt");
        run(L"FormSansCadre", {object(&seen.form)});
        EXPECT_EQ(number < 3 || number > 5 ? 1 : 0, copy.calls()) << number;
        EXPECT_EQ(0, seen.form.references());
    }
}

TEST_F(GraphiqueLook, aTitleIsSeenInTheWindowsStyle) {
    for (const auto border : {Border::none, Border::fixed, Border::sizable, Border::dialog, Border::fixedTool,
                              Border::sizableTool}) {
        auto& form = host.load(L"frmTitre", {.border = border});
        expectResult(call(L"FormTitle", {object(&form)}), border != Border::none);
        // Half of the two bits is no title.
        SetWindowLongW(form.handle(), GWL_STYLE, static_cast<LONG>(WS_POPUP | WS_BORDER));
        expectResult(call(L"FormTitle", {object(&form)}), false);
        form.unload();
    }
    ScriptedObject dumb, none;
    none.property(L"hwnd", long32(0));
    expectError(call(L"FormTitle", {object(&dumb)}), 438);
    expectError(call(L"FormTitle", {nothing()}), 91);
    expectResult(call(L"FormTitle", {object(&none)}), false);
}

TEST_F(GraphiqueLook, withoutMemory) {
    auto& form = borderless();
    const RunningWindows windows(module);
    const auto window = numberOf(form.handle());
    failEachCall(module, noMemory(), "looks",
                 [&] {
                     std::string answers;
                     for (const auto& outcome :
                          {call(L"FormArrondie", {object(&form), short16(20), true, long32(0xFF)}),
                           call(L"FormDegrade", {object(&form), octet(1), octet(2), octet(3)}),
                           call(L"FormTransparente", {long32(window), short16(100)}),
                           call(L"FormTransparente", {long32(window)})})
                         answers += outcome.code == S_OK ? "done " : std::to_string(outcome.code) + " ";
                     host.record().clearLog();
                     return answers;
                 },
                 "done done done done ", {});
}

}  // namespace
}  // namespace vorla::test
