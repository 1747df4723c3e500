// The forms host itself: what its objects answer, how they measure, and what their windows show.
#include <gtest/gtest.h>

#include <cmath>

#include "frame/host/host_items.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/host_queries.h"
#include "support/automation.h"
#include "support/forms/host.h"
#include "support/memory_count.h"
#include "support/resource_count.h"

namespace vorla::forms {
namespace {

using test::describe;
using test::errorOf;
using Log = std::vector<std::wstring>;

HostObject asHost(Object& object) { return HostObject(&object); }

// The colour of the window at this place of its inside.
COLORREF pixel(const Window& window, int x, int y) {
    const HDC on = GetDC(window.handle());
    const auto colour = GetPixel(on, x, y);
    ReleaseDC(window.handle(), on);
    return colour;
}

// Whether the window shows this colour anywhere.
bool shows(const Window& window, COLORREF colour) {
    RECT inside;
    GetClientRect(window.handle(), &inside);
    for (int y = 0; y < inside.bottom; ++y)
        for (int x = 0; x < inside.right; ++x)
            if (pixel(window, x, y) == colour) return true;
    return false;
}

// The size of a text in a control's font, measured by the system's simplest function.
SIZE extentOf(const Window& window, const std::wstring& text) {
    const HDC on = GetDC(window.handle());
    const auto before = SelectObject(on, handleOf(window.font()));
    SIZE size{};
    GetTextExtentPoint32W(on, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(on, before);
    ReleaseDC(window.handle(), on);
    return size;
}

class FormsHost : public testing::Test {
protected:
    ~FormsHost() override {
        // Every test must leave nothing behind.
        host_.reset();
        EXPECT_EQ(before_, Object::livingObjects());
    }

    Host& host() { return *host_; }
    Form& form() { return *form_; }

private:
    const long before_ = Object::livingObjects();
    std::unique_ptr<Host> host_ = std::make_unique<Host>();
    Form* form_ = &host_->load(L"frmClients", {.caption = L"Clients"});
};

TEST_F(FormsHost, kindsAreThoseThatMembersRecognise) {
    struct Case {
        Control& control;
        const wchar_t* type;
        bool check, option, text, combo, list;
    };
    const Case cases[] = {
        {form().add<Label>({.name = L"a"}), L"Label", false, false, false, false, false},
        {form().add<TextBox>({.name = L"b"}), L"TextBox", false, false, true, false, false},
        {form().add<CommandButton>({.name = L"c"}), L"CommandButton", false, false, false, false, false},
        {form().add<CheckBox>({.name = L"d"}), L"CheckBox", true, false, false, false, false},
        {form().add<OptionButton>({.name = L"e"}), L"OptionButton", false, true, false, false, false},
        {form().add<ListBox>({.name = L"f"}), L"ListBox", false, false, false, false, true},
        {form().add<ComboBox>({.name = L"g"}), L"ComboBox", false, false, false, true, false},
        {form().add<DropDownList>({.name = L"h"}), L"ComboBox", false, false, false, true, false},
        {form().add<Frame>({.name = L"i"}), L"Frame", false, false, false, false, false},
        {form().add<PictureBox>({.name = L"j"}), L"PictureBox", false, false, false, false, false},
        {form().add<CheckBox>({.name = L"k", .typeName = L"SSCheck"}), L"SSCheck", false, false, false, false,
         false},
        {form().add<TextBox>({.name = L"l", .typeName = L"MaskEdBox"}), L"MaskEdBox", false, false, false,
         false, false},
    };
    for (const auto& row : cases) {
        const auto object = asHost(row.control);
        EXPECT_EQ(row.type, typeName(object));
        EXPECT_EQ(row.check, isCheckBox(object)) << test::narrow(row.type);
        EXPECT_EQ(row.option, isOptionButton(object)) << test::narrow(row.type);
        EXPECT_EQ(row.text, isTextBox(object)) << test::narrow(row.type);
        EXPECT_EQ(row.combo, isComboBox(object)) << test::narrow(row.type);
        EXPECT_EQ(row.list, isListBox(object)) << test::narrow(row.type);
        EXPECT_FALSE(isHostForm(object)) << test::narrow(row.type);
    }
    EXPECT_TRUE(isHostForm(asHost(form())));
    EXPECT_EQ(L"frmClients", typeName(asHost(form())));
    EXPECT_FALSE(isHostForm(host().forms()));
}

TEST_F(FormsHost, aTypeIsToldByItsInterfaceToo) {
    ComPointer<ITypeInfo> type;
    Bstr name;
    ASSERT_EQ(S_OK, form().GetTypeInfo(0, LOCALE_USER_DEFAULT, type.put()));
    ASSERT_EQ(S_OK, type->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
    EXPECT_EQ(L"_frmClients", name.view());
    ComPointer<ITypeInfo> none;
    EXPECT_EQ(DISP_E_BADINDEX, form().GetTypeInfo(1, LOCALE_USER_DEFAULT, none.put()));
}

TEST_F(FormsHost, propertiesKeepTheirTypes) {
    auto& box = form().add<CheckBox>({.name = L"chkTri", .text = L"Trié", .at = {120, 240, 1500, 255}});
    BoundObject bound(asHost(box));
    EXPECT_EQ("vt 8 \"Tri\\u00E9\"", describe(bound.get(L"Caption").raw()));
    EXPECT_EQ("vt 4 120", describe(bound.get(L"Left").raw()));
    EXPECT_EQ("vt 4 1500", describe(bound.get(L"Width").raw()));
    EXPECT_EQ("vt 3 -2147483633", describe(bound.get(L"BackColor").raw()));
    EXPECT_EQ("vt 11 -1", describe(bound.get(L"Enabled").raw()));
    EXPECT_EQ("vt 2 0", describe(bound.get(L"Value").raw()));
    EXPECT_EQ("vt 8 \"\"", describe(bound.get(L"Tag").raw()));
    EXPECT_EQ(static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(box.handle())),
              bound.getAs<std::int32_t>(L"hWnd"));
    bound.put(L"Tag", L"**C**");
    bound.put(L"ToolTipText", L"Trie la liste");
    EXPECT_EQ(L"**C**", bound.getAs<Text>(L"tag"));
    EXPECT_EQ(L"Trie la liste", bound.getAs<Text>(L"TOOLTIPTEXT"));
    EXPECT_EQ(438, errorOf([&] { bound.get(L"Text"); }));
    EXPECT_EQ(438, errorOf([&] { bound.put(L"Name", L"autre"); }));
    EXPECT_EQ(380, errorOf([&] { bound.put(L"Value", std::int16_t{3}); }));
    EXPECT_EQ(13, errorOf([&] { bound.put(L"Value", L"abc"); }));
    EXPECT_EQ(94, errorOf([&] { bound.put(L"BackColor", test::nullValue()); }));
    EXPECT_EQ(450, errorOf([&] { bound.get(L"Tag", std::int32_t{1}); }));
}

TEST_F(FormsHost, theIndexIsReadableOnlyInAControlArray) {
    auto& alone = form().add<OptionButton>({.name = L"optSeul"});
    auto& element = form().add<OptionButton>({.name = L"optMode", .index = 1});
    EXPECT_EQ(343, errorOf([&] { BoundObject(asHost(alone)).get(L"Index"); }));
    EXPECT_FALSE(ProprieteExiste(asHost(alone), L"Index", callPropertyGet));
    EXPECT_EQ("vt 2 1", describe(BoundObject(asHost(element)).get(L"Index").raw()));
    EXPECT_TRUE(ProprieteExiste(asHost(element), L"index", callPropertyGet));
}

TEST_F(FormsHost, aControlArrayIsFoundByItsName) {
    auto& second = form().add<OptionButton>({.name = L"optMode", .index = 2});
    auto& first = form().add<OptionButton>({.name = L"optMode", .index = 0});
    form().add<TextBox>({.name = L"txtNom", .text = L"Lefèvre"});
    BoundObject controls(BoundObject(asHost(form())).getObject(L"Controls"));
    EXPECT_EQ(3, controls.getAs<std::int32_t>(L"Count"));
    BoundObject array(controls.getObject(L"Item", L"optMode"));
    EXPECT_EQ(2, array.getAs<std::int32_t>(L"Count"));
    EXPECT_EQ(&first, array.getObject(L"Item", std::int16_t{0}).get());
    EXPECT_EQ(&second, objectIn(array.getDefault(std::int16_t{2}).view()).get());
    EXPECT_EQ(340, errorOf([&] { array.getDefault(std::int16_t{1}); }));
    BoundObject name(controls.getObject(L"Item", L"txtNom"));
    EXPECT_EQ(L"Lefèvre", name.getAs<Text>(L"Text"));
    EXPECT_EQ(730, errorOf([&] { controls.getDefault(L"txtPrenom"); }));
}

TEST_F(FormsHost, collectionsCountFromZeroAndAreWalkedInOrder) {
    std::vector<Object*> made;
    for (const wchar_t* name : {L"lblUn", L"lblDeux", L"lblTrois"})
        made.push_back(&form().add<Label>({.name = name}));
    const auto controls = BoundObject(asHost(form())).getObject(L"Controls");
    for (const auto& walked : {controls, asHost(form())}) {
        HostItems items(walked);
        std::vector<Object*> seen;
        for (Variant item; items.next(item);)
            seen.push_back(static_cast<Object*>(objectIn(item.view()).get()));
        EXPECT_EQ(made, seen);
    }
    BoundObject bound(controls);
    EXPECT_EQ(made[0], bound.getObject(L"Item", std::int32_t{0}).get());
    EXPECT_EQ(made[2], bound.getObject(L"Item", std::int32_t{2}).get());
    EXPECT_EQ(9, errorOf([&] { bound.get(L"Item", std::int32_t{3}); }));
    EXPECT_EQ(9, errorOf([&] { bound.get(L"Item", std::int32_t{-1}); }));

    auto& other = host().load(L"frmAutre");
    BoundObject forms(host().forms());
    EXPECT_EQ(2, forms.getAs<std::int32_t>(L"Count"));
    EXPECT_EQ(&form(), forms.getObject(L"Item", std::int32_t{0}).get());
    EXPECT_EQ(&other, objectIn(forms.getDefault(std::int32_t{1}).view()).get());
    EXPECT_TRUE(FormChargee(Variant(TextView(L"frmAutre")).view(), host().forms()));
    EXPECT_TRUE(FormChargee(Variant(other.hWnd()).view(), host().forms()));
    other.unload();
    EXPECT_EQ(1, forms.getAs<std::int32_t>(L"Count"));
    EXPECT_FALSE(FormChargee(Variant(TextView(L"frmAutre")).view(), host().forms()));
}

// At 96 dots per inch, as everywhere here: a pixel is 15 twips.
TEST_F(FormsHost, lengthsAreConvertedBetweenAllModes) {
    ASSERT_EQ(15, twipsPerPixel(Axis::x));
    ASSERT_EQ(15, twipsPerPixel(Axis::y));
    struct Case {
        double length;
        std::int16_t from, to;
        double x, y;
    };
    // One inch is 1440 twips, 72 points, 96 pixels, 25.4 mm, 2.54 cm; 12 characters across, 6 lines down.
    const Case cases[] = {
        {330, 1, 1, 330, 330}, {330, 1, 3, 22, 22},      {330, 1, 2, 16.5, 16.5},  {330, 1, 4, 2.75, 1.375},
        {1440, 1, 5, 1, 1},    {1440, 1, 6, 25.4, 25.4}, {1440, 1, 7, 2.54, 2.54}, {1, 5, 1, 1440, 1440},
        {72, 2, 5, 1, 1},      {96, 3, 5, 1, 1},         {12, 4, 1, 1440, 2880},   {254, 6, 3, 960, 960},
        {2.54, 7, 2, 72, 72},  {2540, 8, 3, 96, 96},     {-10, 3, 1, -150, -150},  {0, 3, 7, 0, 0},
    };
    BoundObject bound(asHost(form()));
    for (const auto& row : cases) {
        EXPECT_NEAR(row.x, bound.call(L"ScaleX", row.length, row.from, row.to).raw().fltVal, 1e-4)
            << row.from << " to " << row.to;
        EXPECT_NEAR(row.y, bound.call(L"ScaleY", row.length, row.from, row.to).raw().fltVal, 1e-4)
            << row.from << " to " << row.to;
    }
    EXPECT_EQ("vt 4 22", describe(bound.call(L"ScaleX", 330.0, std::int16_t{1}, std::int16_t{3}).raw()));
    EXPECT_EQ(5, errorOf([&] { bound.call(L"ScaleX", 1.0, std::int16_t{9}, std::int16_t{1}); }));
    EXPECT_EQ(380, errorOf([&] { bound.put(L"ScaleMode", std::int16_t{8}); }));
    EXPECT_EQ(380, errorOf([&] { bound.put(L"ScaleMode", std::int16_t{-1}); }));
    EXPECT_EQ("vt 2 1", describe(bound.get(L"ScaleMode").raw()));
}

TEST_F(FormsHost, aControlIsMeasuredInItsContainersUnits) {
    auto& label = form().add<Label>({.name = L"lbl", .at = {1440, 720, 2880, 360}});
    // Twips, points, pixels, characters, inches, millimetres, centimetres.
    const double left[] = {1440, 72, 96, 12, 1, 25.4, 2.54}, top[] = {720, 36, 48, 3, .5, 12.7, 1.27},
                 width[] = {2880, 144, 192, 24, 2, 50.8, 5.08},
                 height[] = {360, 18, 24, 1.5, .25, 6.35, .635};
    for (std::int16_t mode = 1; mode <= 7; ++mode) {
        form().put(L"ScaleMode", mode);
        EXPECT_NEAR(left[mode - 1], label.getAs<float>(L"Left"), 1e-4) << mode;
        EXPECT_NEAR(top[mode - 1], label.getAs<float>(L"Top"), 1e-4) << mode;
        EXPECT_NEAR(width[mode - 1], label.getAs<float>(L"Width"), 1e-4) << mode;
        EXPECT_NEAR(height[mode - 1], label.getAs<float>(L"Height"), 1e-4) << mode;
    }
    form().put(L"ScaleMode", std::int16_t{5});
    label.put(L"Width", 1.5);
    label.put(L"Left", 0.25);
    form().put(L"ScaleMode", std::int16_t{1});
    EXPECT_FLOAT_EQ(2160, label.getAs<float>(L"Width"));
    EXPECT_FLOAT_EQ(360, label.getAs<float>(L"Left"));
    // 360 twips are 24 pixels, 2160 are 144.
    RECT frame;
    GetWindowRect(label.handle(), &frame);
    MapWindowPoints(nullptr, form().handle(), reinterpret_cast<POINT*>(&frame), 2);
    EXPECT_EQ(24, frame.left);
    EXPECT_EQ(144, frame.right - frame.left);
    EXPECT_EQ(380, errorOf([&] { label.put(L"Width", -1.0); }));
}

// Controls in a frame are measured in twips, whatever the form says, since a frame has no scale.
TEST_F(FormsHost, aFrameHasNoScaleAndAPictureBoxHasItsOwn) {
    auto& frame = form().add<Frame>({.name = L"fra", .at = {0, 0, 3000, 1500}});
    auto& box = form().add<PictureBox>({.name = L"pic", .at = {0, 1500, 3000, 1500}});
    auto& inFrame = form().add<OptionButton>({.name = L"optA", .at = {150, 0, 1500, 255}, .in = &frame});
    auto& inBox = form().add<OptionButton>({.name = L"optB", .at = {150, 0, 1500, 255}, .in = &box});
    form().put(L"ScaleMode", std::int16_t{3});
    box.put(L"ScaleMode", std::int16_t{2});
    EXPECT_FLOAT_EQ(200, frame.getAs<float>(L"Width"));
    EXPECT_FLOAT_EQ(1500, inFrame.getAs<float>(L"Width"));
    EXPECT_FLOAT_EQ(75, inBox.getAs<float>(L"Width"));
    EXPECT_EQ(1, ScaleModeConteneur(asHost(inFrame)));
    EXPECT_EQ(2, ScaleModeConteneur(asHost(inBox)));
    EXPECT_EQ(3, ScaleModeConteneur(asHost(frame)));
    EXPECT_EQ(&frame, BoundObject(asHost(inFrame)).getObject(L"Container").get());
    EXPECT_EQ(&form(), BoundObject(asHost(inFrame)).getObject(L"Parent").get());
    EXPECT_EQ(frame.handle(), GetParent(inFrame.handle()));
    EXPECT_EQ(438, errorOf([&] { BoundObject(asHost(frame)).get(L"ScaleMode"); }));
}

TEST_F(FormsHost, theUsersOwnScale) {
    // The inside is 4800 twips by 3600: 320 by 240 pixels.
    BoundObject bound(asHost(form()));
    EXPECT_FLOAT_EQ(4800, form().getAs<float>(L"ScaleWidth"));
    bound.put(L"ScaleMode", std::int16_t{3});
    EXPECT_FLOAT_EQ(320, form().getAs<float>(L"ScaleWidth"));
    EXPECT_FLOAT_EQ(240, form().getAs<float>(L"ScaleHeight"));
    bound.put(L"ScaleHeight", 480.0);
    EXPECT_EQ(0, form().getAs<std::int16_t>(L"ScaleMode"));
    EXPECT_FLOAT_EQ(480, form().getAs<float>(L"ScaleHeight"));
    EXPECT_FLOAT_EQ(320, form().getAs<float>(L"ScaleWidth"));
    // A unit down is half a pixel, a unit across still one.
    EXPECT_FLOAT_EQ(50, bound.call(L"ScaleY", 100.0, std::int16_t{0}, std::int16_t{3}).raw().fltVal);
    EXPECT_FLOAT_EQ(100, bound.call(L"ScaleX", 100.0, std::int16_t{0}, std::int16_t{3}).raw().fltVal);
    bound.put(L"ScaleTop", -10.0);
    auto& label = form().add<Label>({.name = L"lbl", .at = {10, 10, 100, 40}});
    RECT frame;
    GetWindowRect(label.handle(), &frame);
    MapWindowPoints(nullptr, form().handle(), reinterpret_cast<POINT*>(&frame), 2);
    EXPECT_EQ((std::vector<LONG>{10, 10, 110, 30}),
              (std::vector<LONG>{frame.left, frame.top, frame.right, frame.bottom}));
    EXPECT_FLOAT_EQ(10, label.getAs<float>(L"Top"));
    EXPECT_EQ(380, errorOf([&] { bound.put(L"ScaleWidth", 0.0); }));
}

TEST_F(FormsHost, aSelfSizingLabelIsAsLargeAsItsText) {
    auto& label = form().add<Label>({.name = L"lblTest", .text = L"avant", .at = {0, 0, 600, 600}});
    BoundObject bound(asHost(label));
    bound.put(L"Caption", L"un texte bien plus long");
    EXPECT_FLOAT_EQ(600, label.getAs<float>(L"Width"));  // not yet told to follow
    bound.put(L"Visible", false);
    bound.put(L"AutoSize", true);
    for (const auto* text : {L"", L"i", L"Élève à Noël", L"un texte bien plus long"}) {
        bound.putDefault(text);
        const auto size = extentOf(label, text);
        EXPECT_FLOAT_EQ(static_cast<float>(15 * size.cx), label.getAs<float>(L"Width")) << test::narrow(text);
        if (*text) {
            EXPECT_FLOAT_EQ(static_cast<float>(15 * size.cy), label.getAs<float>(L"Height"));
        }
        RECT inside;
        GetClientRect(label.handle(), &inside);
        EXPECT_EQ(size.cx, inside.right) << test::narrow(text);
    }
    // The mark of an access key takes no room; a doubled one is a character.
    bound.putDefault(L"&Trier");
    EXPECT_FLOAT_EQ(static_cast<float>(15 * extentOf(label, L"Trier").cx), label.getAs<float>(L"Width"));
    bound.putDefault(L"Noir && blanc");
    EXPECT_FLOAT_EQ(static_cast<float>(15 * extentOf(label, L"Noir & blanc").cx),
                    label.getAs<float>(L"Width"));
    bound.putDefault(L"court\r\nbien plus long");
    EXPECT_FLOAT_EQ(static_cast<float>(15 * extentOf(label, L"bien plus long").cx),
                    label.getAs<float>(L"Width"));
    EXPECT_FLOAT_EQ(static_cast<float>(15 * 2 * extentOf(label, L"c").cy), label.getAs<float>(L"Height"));
}

TEST_F(FormsHost, fontsAreTheSystemsAndChangesOfThemAreSeen) {
    auto& label = form().add<Label>({.name = L"lblTest", .text = L"Exemple"});
    auto& button = form().add<OptionButton>({.name = L"opt"});
    label.put(L"AutoSize", true);
    const auto before = label.getAs<float>(L"Width");
    BoundObject bound(asHost(label));
    // The label shares the button's font object, so a change of one is a change of both.
    bound.putRef(L"Font", BoundObject(asHost(button)).getObject(L"Font"));
    EXPECT_EQ(BoundObject(asHost(button)).getObject(L"Font").get(), bound.getObject(L"Font").get());
    EXPECT_FLOAT_EQ(before, label.getAs<float>(L"Width"));
    BoundObject font(bound.getObject(L"Font"));
    EXPECT_EQ(L"Font", typeName(font.object()));
    font.put(L"Size", Currency{240'000});
    EXPECT_GT(label.getAs<float>(L"Width"), 2 * before);
    EXPECT_FLOAT_EQ(static_cast<float>(15 * extentOf(label, L"Exemple").cx), label.getAs<float>(L"Width"));
    EXPECT_EQ(reinterpret_cast<LRESULT>(handleOf(label.font())),
              SendMessageW(button.handle(), WM_GETFONT, 0, 0));
    EXPECT_EQ(91, errorOf([&] { bound.putRef(L"Font", HostFont()); }));
    EXPECT_EQ(424, errorOf([&] { bound.put(L"Font", L"Arial"); }));
    EXPECT_EQ(13, errorOf([&] { bound.putRef(L"Font", asHost(form())); }));
}

TEST_F(FormsHost, coloursArePainted) {
    constexpr COLORREF red = RGB(200, 10, 20), green = RGB(10, 200, 20), blue = RGB(10, 20, 200);
    auto& frame = form().add<Frame>({.name = L"fra", .text = L"Mode", .at = {300, 300, 1500, 900}});
    auto& label = form().add<Label>({.name = L"lbl", .text = L"Nom", .at = {2100, 300, 900, 300}});
    auto& text = form().add<TextBox>({.name = L"txt", .text = L"Nom", .at = {2100, 900, 900, 300}});
    auto& check = form().add<CheckBox>({.name = L"chk", .text = L"Tri", .at = {300, 1500, 1500, 300}});
    auto& option =
        form().add<OptionButton>({.name = L"opt", .text = L"Tri", .at = {150, 300, 900, 300}, .in = &frame});
    auto& list = form().add<ListBox>({.name = L"lst", .at = {2100, 1500, 900, 900}});
    auto& combo = form().add<ComboBox>({.name = L"cbo", .at = {300, 2400, 900, 300}});
    auto& box = form().add<PictureBox>({.name = L"pic", .at = {3600, 300, 600, 600}});
    form().show();
    const auto face = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(face, pixel(form(), 2, 2));
    EXPECT_EQ(face, pixel(check, 60, 2));
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), pixel(text, 40, 2));

    const std::vector<Window*> windows{&form(), &frame, &label, &text, &check, &option, &list, &box};
    for (auto* window : windows) {
        window->put(L"BackColor", static_cast<std::int32_t>(red));
        RECT inside;
        GetClientRect(window->handle(), &inside);
        EXPECT_EQ(red, pixel(*window, inside.right - 3, inside.bottom - 4)) << test::narrow(window->path());
        EXPECT_FALSE(shows(*window, blue)) << test::narrow(window->path());
    }
    // Text of a colour that nothing else has, unless it is smoothed away.
    const std::vector<Window*> written{&frame, &label, &text, &check, &option};
    for (auto* window : written) {
        BoundObject(window->font().get() ? HostObject(window->font().get()) : HostObject())
            .put(L"Size", Currency{140'000});
        window->put(L"ForeColor", static_cast<std::int32_t>(blue));
        EXPECT_TRUE(shows(*window, blue)) << test::narrow(window->path());
    }
    form().put(L"BackColor", systemColour(COLOR_HIGHLIGHT));
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), pixel(form(), 2, 2));
    EXPECT_EQ(red, pixel(label, 55, 15));
    combo.put(L"BackColor", static_cast<std::int32_t>(green));
    EXPECT_TRUE(shows(combo, green));
    EXPECT_EQ(380, errorOf([&] { form().put(L"BackColor", static_cast<std::int32_t>(0x800000FF)); }));
}

TEST_F(FormsHost, picturesArePainted) {
    auto& box = form().add<PictureBox>({.name = L"pic", .at = {0, 0, 1200, 1200}});
    form().show();
    const HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 20, 10);
    const auto before = SelectObject(memory, bitmap);
    PatBlt(memory, 0, 0, 20, 10, BLACKNESS);
    SetPixel(memory, 3, 1, RGB(255, 0, 0));
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    BoundObject bound(asHost(box));
    EXPECT_EQ(0, BoundObject(bound.getObject(L"Picture")).getAs<std::int16_t>(L"Type"));
    bound.putRef(L"Picture", newPicture(bitmap));
    EXPECT_EQ(1, BoundObject(bound.getObject(L"Picture")).getAs<std::int16_t>(L"Type"));
    EXPECT_EQ(RGB(0, 0, 0), pixel(box, 0, 0));
    EXPECT_EQ(RGB(255, 0, 0), pixel(box, 3, 1));
    EXPECT_EQ(RGB(0, 0, 0), pixel(box, 19, 9));
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), pixel(box, 20, 10));
}

TEST_F(FormsHost, oneOptionOfAContainerIsChosen) {
    auto& frame = form().add<Frame>({.name = L"fra", .at = {0, 0, 3000, 1500}});
    auto& a = form().add<OptionButton>({.name = L"opt", .index = 0, .in = &frame});
    auto& b = form().add<OptionButton>({.name = L"opt", .index = 1, .in = &frame});
    auto& elsewhere = form().add<OptionButton>({.name = L"optAutre"});
    elsewhere.put(L"Value", true);
    a.put(L"Value", true);
    b.put(L"Value", true);
    EXPECT_FALSE(a.getAs<bool>(L"Value"));
    EXPECT_TRUE(b.getAs<bool>(L"Value"));
    EXPECT_TRUE(elsewhere.getAs<bool>(L"Value"));
}

TEST_F(FormsHost, listsAndWhatIsChosenInThem) {
    auto& list = form().add<ListBox>({.name = L"lst", .at = {0, 0, 1500, 900}});
    auto& combo = form().add<ComboBox>({.name = L"cbo", .at = {0, 900, 1500, 300}});
    auto& fixed = form().add<DropDownList>({.name = L"cboFixe", .at = {0, 1200, 1500, 300}});
    for (auto* control : std::initializer_list<Control*>{&list, &combo, &fixed}) {
        BoundObject bound(asHost(*control));
        const auto kind = test::narrow(control->name());
        bound.call(L"AddItem", L"février");
        bound.call(L"AddItem", L"mars");
        bound.call(L"AddItem", L"janvier", std::int16_t{0});
        EXPECT_EQ(3, bound.getAs<std::int16_t>(L"ListCount")) << kind;
        EXPECT_EQ(L"janvier", bound.getAs<Text>(L"List", std::int32_t{0})) << kind;
        EXPECT_EQ(L"février", bound.getAs<Text>(L"List", std::int32_t{1})) << kind;
        EXPECT_EQ(-1, bound.getAs<std::int16_t>(L"ListIndex")) << kind;
        EXPECT_EQ(L"", bound.getAs<Text>(L"Text")) << kind;
        bound.put(L"ListIndex", std::int16_t{2});
        EXPECT_EQ(L"mars", bound.getAs<Text>(L"Text")) << kind;
        bound.put(L"Text", L"février");
        EXPECT_EQ(L"février", bound.getAs<Text>(L"Text")) << kind;
        bound.put(L"List", std::int32_t{1}, L"Feber");
        EXPECT_EQ(L"Feber", bound.getAs<Text>(L"List", std::int32_t{1})) << kind;
        EXPECT_EQ(381, errorOf([&] { bound.get(L"List", std::int32_t{3}); })) << kind;
        EXPECT_EQ(380, errorOf([&] { bound.put(L"ListIndex", std::int16_t{3}); })) << kind;
        bound.call(L"Clear");
        EXPECT_EQ(0, bound.getAs<std::int16_t>(L"ListCount")) << kind;
    }
    BoundObject(asHost(combo)).put(L"Text", L"tapé");
    EXPECT_EQ(L"tapé", combo.getAs<Text>(L"Text"));
    EXPECT_EQ(383, errorOf([&] { BoundObject(asHost(fixed)).put(L"Text", L"tapé"); }));
}

TEST_F(FormsHost, formsWithAndWithoutTitleBar) {
    constexpr LONG caption = WS_CAPTION;
    struct Case {
        Border border;
        bool title;
    };
    for (const auto& row :
         {Case{Border::none, false}, Case{Border::fixed, true}, Case{Border::sizable, true},
          Case{Border::dialog, true}, Case{Border::fixedTool, true}, Case{Border::sizableTool, true}}) {
        auto& other = host().load(L"frmAutre", {.caption = L"Titre",
                                                .border = row.border,
                                                .left = 150,
                                                .top = 300,
                                                .insideWidth = 3000,
                                                .insideHeight = 1500});
        EXPECT_EQ(row.title, (GetWindowLongA(other.handle(), GWL_STYLE) & caption) == caption);
        EXPECT_EQ(static_cast<int>(row.border), other.getAs<std::int16_t>(L"BorderStyle"));
        EXPECT_FLOAT_EQ(3000, other.getAs<float>(L"ScaleWidth"));
        EXPECT_FLOAT_EQ(1500, other.getAs<float>(L"ScaleHeight"));
        EXPECT_FLOAT_EQ(150, other.getAs<float>(L"Left"));
        EXPECT_FLOAT_EQ(300, other.getAs<float>(L"Top"));
        EXPECT_EQ(L"Titre", other.getAs<Text>(L"Caption"));
        EXPECT_EQ(row.title, other.getAs<float>(L"Width") > 3000);
        EXPECT_EQ(row.title, other.getAs<float>(L"Height") > 1500);
        other.unload();
    }
}

TEST_F(FormsHost, aTitleBarWithoutButtons) {
    for (const bool buttons : {true, false}) {
        auto& other = host().load(L"frmAutre", {.border = Border::fixed, .controlBox = buttons});
        const auto style = static_cast<DWORD>(GetWindowLongA(other.handle(), GWL_STYLE));
        EXPECT_EQ(WS_CAPTION, style & WS_CAPTION);
        EXPECT_EQ(buttons ? WS_SYSMENU | WS_MINIMIZEBOX : 0u, style & (WS_SYSMENU | WS_MINIMIZEBOX));
        other.unload();
    }
}

TEST_F(FormsHost, formsMoveShowAndChangeTheirState) {
    BoundObject bound(asHost(form()));
    bound.call(L"Move", 300.0, 450.0, 6000.0, 4500.0);
    RECT frame;
    GetWindowRect(form().handle(), &frame);
    EXPECT_EQ((std::vector<LONG>{20, 30, 420, 330}),
              (std::vector<LONG>{frame.left, frame.top, frame.right, frame.bottom}));
    bound.call(L"Move", 150.0);
    EXPECT_FLOAT_EQ(150, form().getAs<float>(L"Left"));
    EXPECT_FLOAT_EQ(450, form().getAs<float>(L"Top"));
    EXPECT_FLOAT_EQ(6000, form().getAs<float>(L"Width"));
    // Moves the window without the object.
    SetWindowPos(form().handle(), nullptr, 40, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_FLOAT_EQ(600, form().getAs<float>(L"Left"));
    EXPECT_FALSE(bound.getAs<bool>(L"Visible"));
    bound.call(L"Show");
    EXPECT_TRUE(bound.getAs<bool>(L"Visible"));
    EXPECT_EQ(0, bound.getAs<std::int16_t>(L"WindowState"));
    bound.put(L"WindowState", std::int16_t{2});
    EXPECT_TRUE(IsZoomed(form().handle()));
    EXPECT_EQ(2, bound.getAs<std::int16_t>(L"WindowState"));
    bound.put(L"WindowState", std::int16_t{0});
    bound.put(L"Enabled", false);
    EXPECT_FALSE(IsWindowEnabled(form().handle()));
    bound.call(L"Hide");
    EXPECT_FALSE(IsWindowVisible(form().handle()));
}

TEST_F(FormsHost, theRecordNamesEveryUse) {
    auto& option = form().add<OptionButton>({.name = L"optMode", .text = L"Rapide", .index = 1});
    BoundObject bound(asHost(option));
    bound.get(L"caption");
    bound.put(L"Caption", L"Vite");
    bound.getDefault();
    HostItems items(host().forms());
    Variant item;
    items.next(item);
    BoundObject formBound(item.view());
    formBound.call(L"Show");
    formBound.putRef(L"Font", newFont());
    EXPECT_FALSE(formBound.knows(L"Container"));
    EXPECT_EQ((Log{L"lookup optMode(1).caption", L"get optMode(1).Caption", L"lookup optMode(1).Caption",
                   L"put optMode(1).Caption", L"get optMode(1).Value", L"get Forms.(enumerator)",
                   L"next Forms", L"lookup frmClients.Show", L"call frmClients.Show",
                   L"lookup frmClients.Font", L"putref frmClients.Font", L"lookup frmClients.Container"}),
              host().record().log());
    // Uses by the form's own program are not recorded.
    host().record().clearLog();
    option.put(L"Caption", L"Lent");
    EXPECT_EQ(L"Lent", option.getAs<Text>(L"Caption"));
    EXPECT_TRUE(host().record().log().empty());
}

TEST_F(FormsHost, theNthCallFailsByOrder) {
    auto& box = form().add<TextBox>({.name = L"txt", .text = L"avant"});
    BoundObject bound(asHost(box));
    host().record().fail(2, {static_cast<HRESULT>(0x800A0000u + 380)});
    bound.get(L"Text");
    EXPECT_EQ(380, errorOf([&] { bound.put(L"Text", L"après"); }));
    EXPECT_EQ(L"avant", bound.getAs<Text>(L"Text"));
    // Whichever object is called.
    host().record().fail(1, {DISP_E_EXCEPTION, 76});
    EXPECT_EQ(76, errorOf([&] { BoundObject(asHost(form())).get(L"Caption"); }));
    host().record().fail(1, {DISP_E_EXCEPTION, 53, true});
    EXPECT_EQ(53, errorOf([&] { bound.get(L"Text"); }));
    host().record().fail(1, {E_FAIL});
    EXPECT_EQ(440, errorOf([&] { bound.get(L"Text"); }));
    host().record().failEvery(L"get txt.Text", {DISP_E_EXCEPTION, 5});
    EXPECT_EQ(5, errorOf([&] { bound.get(L"Text"); }));
    bound.put(L"Text", L"écrit");
    EXPECT_EQ(5, errorOf([&] { bound.get(L"Text"); }));
    host().record().clear();
    EXPECT_EQ(L"écrit", bound.getAs<Text>(L"Text"));
    host().record().failLookup(2, E_FAIL);
    BoundObject fresh(asHost(box));
    EXPECT_EQ(L"écrit", fresh.getAs<Text>(L"Text"));
    EXPECT_EQ(440, errorOf([&] { fresh.get(L"Tag"); }));
    EXPECT_EQ(L"", fresh.getAs<Text>(L"Tag"));
    HostItems items(host().forms());
    host().record().fail(1, {E_OUTOFMEMORY});
    Variant item;
    EXPECT_THROW(items.next(item), std::bad_alloc);
}

TEST_F(FormsHost, anObjectCanHaveMoreAndLessThanItsClass) {
    auto& box = form().add<TextBox>({.name = L"txt", .text = L"x"});
    box.addProperty(L"eValeur", std::int32_t{5});
    box.removeMember(L"Tag");
    BoundObject bound(asHost(box));
    EXPECT_EQ(5, bound.getAs<std::int32_t>(L"evaleur"));
    bound.put(L"eValeur", std::int32_t{6});
    EXPECT_EQ(6, box.getAs<std::int32_t>(L"eValeur"));
    EXPECT_EQ(438, errorOf([&] { bound.get(L"Tag"); }));
    auto& other = form().add<TextBox>({.name = L"txt2"});
    EXPECT_EQ(438, errorOf([&] { other.get(L"eValeur"); }));
    EXPECT_EQ(L"", other.getAs<Text>(L"Tag"));
}

TEST_F(FormsHost, anUnloadedFormLeavesObjectsWithoutWindows) {
    auto& made = form().add<OptionButton>({.name = L"optMode", .text = L"Rapide", .index = 1});
    const auto window = made.handle(), formWindow = form().handle();
    const auto controls = BoundObject(asHost(form())).getObject(L"Controls");
    const auto option = asHost(made), kept = asHost(form());
    // As the user does it.
    SendMessageW(formWindow, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(IsWindow(formWindow));
    BoundObject bound(option);
    constexpr Literal properties[] = {L"Caption", L"Left",  L"hWnd",   L"Container",
                                      L"Parent",  L"Value", L"Enabled"};
    for (const Literal name : properties)
        EXPECT_EQ(364, errorOf([&] { bound.get(name); })) << test::narrow(name);
    EXPECT_EQ(364, errorOf([&] { bound.put(L"Width", 5.0); }));
    EXPECT_EQ(364, errorOf([&] { bound.call(L"SetFocus"); }));
    EXPECT_EQ(L"optMode", bound.getAs<Text>(L"Name"));
    EXPECT_EQ(1, bound.getAs<std::int16_t>(L"Index"));
    EXPECT_EQ(364, errorOf([&] { BoundObject(kept).get(L"Caption"); }));
    EXPECT_EQ(0, BoundObject(controls).getAs<std::int32_t>(L"Count"));
    EXPECT_EQ(0, BoundObject(host().forms()).getAs<std::int32_t>(L"Count"));
}

void loadAndUnload() {
    Host host;
    auto& form = host.load(L"frm", {.caption = L"Titre"});
    auto& frame = form.add<Frame>({.name = L"fra", .text = L"Mode", .at = {0, 0, 2000, 2000}});
    form.add<OptionButton>({.name = L"opt", .text = L"a", .at = {0, 0, 900, 255}, .index = 0, .in = &frame});
    form.add<CheckBox>({.name = L"chk", .at = {0, 600, 900, 255}});
    form.add<ComboBox>({.name = L"cbo", .at = {0, 900, 900, 255}});
    form.add<ListBox>({.name = L"lst", .at = {0, 1200, 900, 900}});
    form.add<PictureBox>({.name = L"pic", .at = {2000, 0, 900, 900}});
    auto& label = form.add<Label>({.name = L"lbl", .text = L"texte"});
    label.put(L"AutoSize", true);
    form.show();
    form.put(L"BackColor", std::int32_t{0x123456});
    BoundObject bound{HostObject(&label)};
    bound.putRef(L"Font", BoundObject(HostObject(&frame)).getObject(L"Font"));
    HostItems items(BoundObject(HostObject(&form)).getObject(L"Controls"));
    for (Variant item; items.next(item);) BoundObject(item.view()).get(L"Name");
    typeName(HostObject(&form));
}

TEST(FormsHostLeaks, unloadedFormsLeaveNothing) {
    for (int i = 0; i < 20; ++i) loadAndUnload();
    const auto objects = Object::livingObjects();
    const auto resources = test::Resources::held();
    const test::MemoryCount count;
    for (int i = 0; i < 100; ++i) loadAndUnload();
    EXPECT_EQ(objects, Object::livingObjects());
    EXPECT_EQ(resources, test::Resources::held());
    EXPECT_EQ(0, count.live());
}

}  // namespace
}  // namespace vorla::forms
