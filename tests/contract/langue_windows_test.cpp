// VorlaLangue on forms with real windows: what users see after LngFormLoad, files that LngFormSave wrote, and
// a host that fails at any one of its calls.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

#include "contract/langue_fixture.h"
#include "support/forms/host.h"

namespace vorla::test {
namespace {

using forms::CheckBox;
using forms::ComboBox;
using forms::CommandButton;
using forms::Control;
using forms::DropDownList;
using forms::Frame;
using forms::Label;
using forms::ListBox;
using forms::OptionButton;
using forms::PictureBox;
using forms::TextBox;

constexpr std::int32_t buttonFace = forms::systemColour(COLOR_BTNFACE);
constexpr std::int32_t marked = 0x123456, themed = 0x00C0FFC0, tabs = 0x00FFC0C0, other = 0x00777777;

// The box or circle and the gap before the text, in twips, and twips of a pixel at 96 dots per inch.
constexpr int box = 330, pixel = 15;

class LangueWindows : public Langue {
protected:
    LangueWindows() { label.put(L"AutoSize", true), label.put(L"Visible", false); }
    ~LangueWindows() override {
        // No member may keep a reference to an object that it was given.
        const ComPointer<forms::Form> kept(&form);
        form.unload();
        kept.get()->AddRef();
        EXPECT_EQ(1u, kept.get()->Release());
    }

    void load(std::initializer_list<Variant> more = {}) { run(L"LngFormLoad", withForm(form, more)); }
    void load(forms::Form& loaded, std::initializer_list<Variant> more = {}) {
        run(L"LngFormLoad", withForm(loaded, more));
    }
    Outcome resize(Control& control, const wchar_t* caption) {
        return call(L"LngRedimCtl",
                    {vorla::test::object(&control), vorla::test::object(&label), text(caption)});
    }

    void theme(bool applies) {
        put(L"ThemedBackColorApply", applies);
        put(L"ThemedBackColor", std::int32_t{themed});
        put(L"ThemedTabBackColor", std::int32_t{tabs});
        put(L"ThemedOldColor", std::int32_t{marked});
    }

    // How wide a text is in the control's font, by the system's simplest function.
    static int widthOf(Control& control, const std::wstring& text) {
        const HDC on = GetDC(control.handle());
        const auto before = SelectObject(on, forms::handleOf(control.font()));
        SIZE size{};
        GetTextExtentPoint32W(on, text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(on, before);
        ReleaseDC(control.handle(), on);
        return size.cx;
    }
    static COLORREF painted(forms::Window& window) {
        RECT inside;
        GetClientRect(window.handle(), &inside);
        const HDC on = GetDC(window.handle());
        const auto colour = GetPixel(on, inside.right - 3, inside.bottom - 3);
        ReleaseDC(window.handle(), on);
        return colour;
    }
    static std::wstring caption(forms::Object& object) { return object.getAs<Text>(L"Caption"); }
    static float width(Control& control) { return control.getAs<float>(L"Width"); }
    static std::int32_t colour(forms::Window& window) { return window.backColor(); }

    forms::Host host;
    forms::Form& form = host.load(L"frmMain", {.caption = L"Fiche"});
    Label& label = form.add<Label>({.name = L"lblTest"});

private:
    Arguments withForm(forms::Form& loaded, std::initializer_list<Variant> more) {
        Arguments arguments({vorla::test::object(&loaded), vorla::test::object(&label)});
        arguments.owned.insert(arguments.owned.end(), more);
        return arguments;
    }
};

TEST_F(LangueWindows, textsAreSeenInTheWindows) {
    languageFile(L"ENG",
                 L"[frmMain]\r\nfrmMain#Caption=Customer file\r\ncmdOK#Caption=&Close\r\n"
                 L"cmdOK#ToolTipText=Ends\u00FF{l}the work\r\ntxtNom#Text=Nobody\r\ncboVille#Text=London\r\n"
                 L"optMode#0#Caption=Slow\r\noptMode#1#Caption=Fast\r\nfraMode#Caption=Mode of work\r\n"
                 L"optMode#Caption=never read\r\nlblVide#Caption=\r\n");
    auto& ok = form.add<CommandButton>({.name = L"cmdOK", .text = L"&Fermer"});
    auto& name = form.add<TextBox>({.name = L"txtNom"});
    auto& town = form.add<ComboBox>({.name = L"cboVille", .text = L"Paris"});
    auto& frame = form.add<Frame>({.name = L"fraMode", .text = L"Mode"});
    auto& slow = form.add<OptionButton>({.name = L"optMode", .text = L"Lent", .index = 0, .in = &frame});
    auto& fast = form.add<OptionButton>({.name = L"optMode", .text = L"Rapide", .index = 1, .in = &frame});
    auto& empty = form.add<Label>({.name = L"lblVide", .text = L"du dessin"});
    select(L"ENG");
    load();
    const auto shown = [](forms::Window& window) {
        wchar_t text[100];
        GetWindowTextW(window.handle(), text, 100);
        return std::wstring(text);
    };
    EXPECT_EQ(L"Customer file", shown(form));
    EXPECT_EQ(L"&Close", shown(ok));
    EXPECT_EQ(L"Nobody", shown(name));
    EXPECT_EQ(L"London", shown(town));
    EXPECT_EQ(L"Mode of work", shown(frame));
    EXPECT_EQ(L"Slow", shown(slow));
    EXPECT_EQ(L"Fast", shown(fast));
    EXPECT_EQ(L"du dessin", shown(empty));
    EXPECT_EQ(L"Ends\r\nthe work", ok.getAs<Text>(L"ToolTipText"));
}

TEST_F(LangueWindows, aTextThatAControlRefusesIsPassedBy) {
    languageFile(L"ENG",
                 L"[frmMain]\r\ncboFixe#Text=London\r\ncboFixe#ToolTipText=Town\r\nchk#Caption=Sort\r\n");
    auto& fixed = form.add<DropDownList>({.name = L"cboFixe"});
    auto& check = form.add<CheckBox>({.name = L"chk", .text = L"Trier"});
    BoundObject(HostObject(&fixed)).call(L"AddItem", L"Paris");
    select(L"ENG");
    load();
    EXPECT_EQ(L"", fixed.getAs<Text>(L"Text"));
    EXPECT_EQ(L"Town", fixed.getAs<Text>(L"ToolTipText"));
    EXPECT_EQ(L"Sort", caption(check));
}

TEST_F(LangueWindows, withoutALanguageTheHostIsNotEvenAsked) {
    theme(true);
    form.put(L"BackColor", std::int32_t{marked});
    form.add<CheckBox>({.name = L"chk", .text = L"Trier"});
    host.record().clearLog();
    load();
    load({true});
    EXPECT_EQ(std::vector<std::wstring>(), host.record().log());
    EXPECT_EQ(marked, colour(form));
}

TEST_F(LangueWindows, aTitleNeedsATitleBar) {
    languageFile(L"ENG",
                 L"[frmMain]\r\nfrmMain#Caption=Own\r\n[frmAutre]\r\nfrmAutre#Caption=Other\r\n"
                 L"frmMain#Caption=Shared\r\nchk#Caption=Shared check\r\n");
    select(L"ENG");
    for (const auto border : {forms::Border::none, forms::Border::fixed, forms::Border::sizable,
                              forms::Border::dialog, forms::Border::fixedTool, forms::Border::sizableTool}) {
        auto& one = host.load(L"frmAutre", {.caption = L"Dessin", .border = border});
        load(one);
        EXPECT_EQ(border == forms::Border::none ? L"Dessin" : L"Other", caption(one))
            << static_cast<int>(border);
        one.unload();
    }
    // The title comes from the form's own section, even if another form's texts are used for the controls.
    auto& check = form.add<CheckBox>({.name = L"chk", .text = L"Trier"});
    load({false, false, text(L"frmAutre")});
    EXPECT_EQ(L"Own", caption(form));
    EXPECT_EQ(L"Shared check", caption(check));
}

TEST_F(LangueWindows, coloursArePaintedByTheirTags) {
    struct Row {
        Control& control;
        std::int32_t before;
        const wchar_t* tag;
        std::int32_t applied, notApplied;
    };
    int place = 0;
    const auto at = [&place]() -> forms::Place {
        const int number = place++;
        return {600.0f * static_cast<float>(number % 7), 600.0f * static_cast<float>(number / 7), 600, 600};
    };
    const Row rows[] = {
        {form.add<Label>({.name = L"a", .at = at()}), marked, L"", themed, buttonFace},
        {form.add<Label>({.name = L"b", .at = at()}), other, L"", other, other},
        {form.add<Label>({.name = L"c", .at = at()}), marked, L"dit **C**.", marked, marked},
        {form.add<Label>({.name = L"d", .at = at()}), marked, L"**c**", themed, buttonFace},
        {form.add<Frame>({.name = L"e", .at = at()}), other, L"**SmartTab**", tabs, tabs},
        {form.add<Frame>({.name = L"f", .at = at()}), other, L"**SmartTab** ", other, other},
        {form.add<Frame>({.name = L"g", .at = at()}), other, L"**SmartTab****C**", other, other},
        {form.add<PictureBox>({.name = L"h", .at = at()}), marked, L"**L**", themed, buttonFace},
        {form.add<CheckBox>({.name = L"i", .at = at()}), marked, L"**L**", themed, buttonFace},
        {form.add<TextBox>({.name = L"j", .at = at()}), marked, L"", marked, marked},
        {form.add<TextBox>({.name = L"k", .at = at()}), marked, L"**SmartTab**", marked, marked},
        {form.add<ListBox>({.name = L"l", .at = at()}), marked, L"", marked, marked},
        {form.add<ComboBox>({.name = L"m", .at = at()}), marked, L"", marked, marked},
        {form.add<TextBox>({.name = L"n", .at = at(), .typeName = L"MaskEdBox"}), marked, L"", marked,
         marked},
    };
    select(L"ENG");
    form.show();
    for (const bool applies : {true, false}) {
        theme(applies);
        for (const auto& row : rows) {
            row.control.put(L"BackColor", std::int32_t{row.before});
            row.control.put(L"Tag", row.tag);
        }
        form.put(L"BackColor", std::int32_t{marked});
        load({true});
        for (const auto& row : rows) {
            const auto expected = applies ? row.applied : row.notApplied;
            const auto name = narrow(row.control.name());
            EXPECT_EQ(expected, colour(row.control)) << name;
            if (name == "m") continue;  // a combo box is all button and field
            EXPECT_EQ(expected == buttonFace ? GetSysColor(COLOR_BTNFACE) : static_cast<COLORREF>(expected),
                      painted(row.control))
                << name;
        }
        EXPECT_EQ(applies ? static_cast<COLORREF>(themed) : GetSysColor(COLOR_BTNFACE), painted(form));
        // A form that is excluded from the theme is reset; its controls are themed all the same.
        form.put(L"Tag", L"hors **C** thème");
        form.put(L"BackColor", std::int32_t{marked});
        load({true});
        EXPECT_EQ(buttonFace, colour(form));
        form.put(L"Tag", L"");
    }
}

TEST_F(LangueWindows, colourOrTextAloneOnTheCallersWord) {
    languageFile(L"ENG", L"[frmMain]\r\nfrmMain#Caption=Customer\r\nchk#Caption=Sort by name\r\n");
    select(L"ENG");
    theme(true);
    form.put(L"BackColor", std::int32_t{marked});
    auto& check = form.add<CheckBox>({.name = L"chk", .text = L"Trier", .at = {0, 0, 5000, 255}});
    auto& tab = form.add<Frame>({.name = L"fra"});
    tab.put(L"Tag", L"**SmartTab**");
    check.put(L"BackColor", std::int32_t{marked});
    host.record().clearLog();
    load({true});
    for (const auto* unwanted : {L"Caption", L"Text", L"ToolTipText", L"Width", L"Font"})
        for (const auto& line : host.record().log())
            EXPECT_EQ(std::wstring::npos, line.find(L"." + std::wstring(unwanted))) << narrow(line);
    EXPECT_EQ(themed, colour(check));
    EXPECT_EQ(5000, width(check));

    check.put(L"BackColor", std::int32_t{marked});
    form.put(L"BackColor", std::int32_t{marked});
    tab.put(L"BackColor", std::int32_t{other});
    load({false, true});
    EXPECT_EQ(marked, colour(check));
    EXPECT_EQ(marked, colour(form));
    EXPECT_EQ(other, colour(tab));
    EXPECT_EQ(L"Sort by name", caption(check));
    EXPECT_EQ(L"Customer", caption(form));
}

TEST_F(LangueWindows, widthsFollowTheTextsInAnyScale) {
    auto& frame = form.add<Frame>({.name = L"fra", .at = {0, 0, 4000, 1000}});
    auto& picture = form.add<PictureBox>({.name = L"pic", .at = {0, 1000, 4000, 1000}});
    auto& onForm = form.add<CheckBox>({.name = L"chkForm", .at = {0, 2000, 300, 255}});
    auto& inFrame = form.add<OptionButton>({.name = L"optFrame", .at = {0, 0, 300, 255}, .in = &frame});
    auto& inPicture = form.add<OptionButton>({.name = L"optPic", .at = {0, 0, 300, 255}, .in = &picture});
    // Twips in a unit: twips, points, pixels, characters across, inches, millimetres, centimetres.
    constexpr double units[] = {1, 20, 15, 120, 1440, 1440 / 25.4, 1440 / 2.54};
    for (std::int16_t formMode = 1; formMode <= 7; ++formMode) {
        for (std::int16_t pictureMode = 1; pictureMode <= 7; ++pictureMode) {
            form.put(L"ScaleMode", formMode);
            picture.put(L"ScaleMode", pictureMode);
            for (const auto* text : {L"Été", L"&Trier les clients par nom && ville"}) {
                const std::wstring seen = text[0] == L'&' ? L"Trier les clients par nom & ville" : text;
                for (auto* control : std::initializer_list<Control*>{&onForm, &inFrame, &inPicture}) {
                    ASSERT_EQ(S_OK, resize(*control, text).code);
                    const double twips = widthOf(*control, seen) * pixel + box;
                    const double unit = control == &onForm    ? units[formMode - 1]
                                        : control == &inFrame ? 1
                                                              : units[pictureMode - 1];
                    EXPECT_NEAR(twips / unit, width(*control), twips / unit * 1e-5)
                        << narrow(control->name()) << ' ' << formMode << ' ' << pictureMode;
                    EXPECT_EQ(text, caption(*control));
                    RECT window;
                    GetWindowRect(control->handle(), &window);
                    EXPECT_EQ(widthOf(*control, seen) + box / pixel, window.right - window.left);
                }
            }
        }
    }
}

TEST_F(LangueWindows, theLabelMeasuresInTheControlsFont) {
    auto& option = form.add<OptionButton>({.name = L"opt"});
    option.put(L"Font", forms::newFont(L"Arial", 18));
    const int inLabelsFont = widthOf(label, L"Rapide");
    ASSERT_EQ(S_OK, resize(option, L"Rapide").code);
    EXPECT_EQ(option.font().get(), label.font().get());
    EXPECT_EQ(L"Rapide", caption(label));
    EXPECT_FLOAT_EQ(static_cast<float>(widthOf(option, L"Rapide") * pixel + box), width(option));
    EXPECT_GT(widthOf(option, L"Rapide"), inLabelsFont);
}

TEST_F(LangueWindows, onlyWhatIsToFollowItsTextDoes) {
    languageFile(L"ENG", L"[frmMain]\r\nx#Caption=A text that is much longer\r\n");
    select(L"ENG");
    const auto resized = [&](Control& control, const wchar_t* tag) {
        control.put(L"Tag", tag);
        control.put(L"Width", 300.0);
        load();
        EXPECT_EQ(L"A text that is much longer", caption(control));
        if (width(control) == 300) return false;
        EXPECT_FLOAT_EQ(static_cast<float>(widthOf(control, caption(control)) * pixel + box), width(control));
        return true;
    };
    EXPECT_TRUE(resized(form.add<CheckBox>({.name = L"x"}), L""));
    EXPECT_FALSE(resized(form.add<CheckBox>({.name = L"x"}), L"a**L**b"));
    EXPECT_TRUE(resized(form.add<CheckBox>({.name = L"x"}), L"**l**"));
    EXPECT_TRUE(resized(form.add<OptionButton>({.name = L"x"}), L"**L**"));
    EXPECT_TRUE(resized(form.add<CheckBox>({.name = L"x", .typeName = L"SSCheck"}), L"**L**"));
    EXPECT_TRUE(resized(form.add<OptionButton>({.name = L"x", .typeName = L"SSOption"}), L"**L**"));
    EXPECT_FALSE(resized(form.add<CommandButton>({.name = L"x"}), L""));
    auto& command = form.add<CommandButton>({.name = L"cmd", .text = L"Fermer", .at = {0, 0, 300, 300}});
    host.record().clearLog();
    EXPECT_EQ(S_OK, resize(command, L"Close").code);
    EXPECT_EQ(std::vector<std::wstring>(), host.record().log());
    EXPECT_EQ(L"Fermer", caption(command));
}

TEST_F(LangueWindows, aSavedFormComesBackAsItWas) {
    const auto file = languageFile(L"ENG",
                                   L"[System]\r\nLngNameIso=English\r\n[Messages]\r\nbye=Good bye\r\n"
                                   L"[frmMain]\r\ncmdOK#ToolTipText=kept\r\ntxtNom#Text=replaced\r\n");
    auto& ok = form.add<CommandButton>({.name = L"cmdOK", .text = L"&Enregistrer && fermer"});
    auto& name = form.add<TextBox>({.name = L"txtNom", .text = L"Lefèvre"});
    auto& slow = form.add<OptionButton>({.name = L"optMode", .text = L"Lent", .index = 0});
    auto& fast = form.add<OptionButton>({.name = L"optMode", .text = L"Rapide", .index = 12});
    auto& alone = form.add<CheckBox>({.name = L"chkTri", .text = L"Trié"});
    auto& list = form.add<ListBox>({.name = L"lstVide"});
    fast.put(L"ToolTipText", L"ligne 1\r\nligne 2");
    select(L"FRA");
    run(L"LngFormSave", {vorla::test::object(&form), text(L"ENG")});
    EXPECT_EQ(toAnsi(L"[System]\r\nLngNameIso=English\r\n[Messages]\r\nbye=Good bye\r\n"
                     L"[frmMain]\r\ncmdOK#ToolTipText=kept\r\ntxtNom#Text=Lefèvre\r\n"
                     L"frmMain#Caption=Fiche\r\ncmdOK#Caption=&Enregistrer && fermer\r\n"
                     L"optMode#0#Caption=Lent\r\noptMode#12#Caption=Rapide\r\n"
                     L"optMode#12#ToolTipText=ligne 1\u00FF{l}ligne 2\r\nchkTri#Caption=Trié\r\n"),
              bytesOf(file));
    // What is put back is what was saved.
    for (auto* window : std::initializer_list<forms::Window*>{&form, &ok, &slow, &fast, &alone})
        window->put(L"Caption", L"?");
    name.put(L"Text", L"?");
    fast.put(L"ToolTipText", L"?");
    select(L"ENG");
    load();
    EXPECT_EQ(L"Fiche", caption(form));
    EXPECT_EQ(L"&Enregistrer && fermer", caption(ok));
    EXPECT_EQ(L"kept", ok.getAs<Text>(L"ToolTipText"));
    EXPECT_EQ(L"Lefèvre", name.getAs<Text>(L"Text"));
    EXPECT_EQ(L"Lent", caption(slow));
    EXPECT_EQ(L"Rapide", caption(fast));
    EXPECT_EQ(L"ligne 1\r\nligne 2", fast.getAs<Text>(L"ToolTipText"));
    EXPECT_EQ(L"Trié", caption(alone));
    EXPECT_EQ(L"", list.getAs<Text>(L"Text"));
}

TEST_F(LangueWindows, savingMakesTheFileAndLeavesTheFormAlone) {
    form.add<CheckBox>({.name = L"chk", .text = L"Trier"});
    select(L"FRA");
    host.record().clearLog();
    run(L"LngFormSave", {vorla::test::object(&form), text(L"")});
    EXPECT_EQ(std::vector<std::wstring>(), host.record().log());
    run(L"LngFormSave", {vorla::test::object(&form), text(L"Modèle")});
    EXPECT_EQ("[frmMain]\r\nfrmMain#Caption=Fiche\r\nchk#Caption=Trier\r\n",
              bytesOf(languages + L"\\Modèle.lng"));
    EXPECT_EQ(0u, host.record().logged(L"put"));
    EXPECT_FALSE(TemporaryFolder::exists(languages + L"\\FRA.lng"));
}

// A form on which every step has something to do.
class LangueFailingHost : public LangueWindows {
protected:
    using State = std::map<std::wstring, std::wstring>;  // "chk.Caption" and what it is

    LangueFailingHost() {
        languageFile(
            L"ENG",
            L"[frmMain]\r\nfrmMain#Caption=Customer\r\ncmd#Caption=Close\r\ncmd#ToolTipText=End\r\n"
            L"txt#Text=Nobody\r\noptMode#1#Caption=Very fast\r\nchk#Caption=Sort\r\nlbl#Caption=Name\r\n");
        form.put(L"BackColor", std::int32_t{marked});
        form.add<CommandButton>({.name = L"cmd", .text = L"Fermer"});
        form.add<TextBox>({.name = L"txt", .text = L"Personne"});
        form.add<OptionButton>({.name = L"optMode", .text = L"Rapide", .index = 1, .in = &picture});
        form.add<CheckBox>({.name = L"chk", .text = L"Trier"});
        form.add<Label>({.name = L"lbl", .text = L"Nom"}).put(L"Tag", L"**SmartTab**");
        theme(true);
        select(L"ENG");
        design();
    }

    // Everything as it was designed.
    void design() {
        host.record().clear();
        form.put(L"BackColor", std::int32_t{marked});
        form.put(L"Caption", L"Fiche");
        for (const auto& control : form.controls()) {
            if (control.get() == &label) continue;
            control->put(L"BackColor", std::int32_t{marked});
            control->put(L"Width", 300.0);
            control->put(L"ToolTipText", L"aide");
            if (control.get() == &picture) continue;
            control->put(control->name() == L"txt" ? L"Text" : L"Caption", L"dessin");
        }
        label.put(L"Font", forms::newFont());
    }

    State state() {
        State result;
        const auto note = [&result](forms::Window& window, std::initializer_list<const wchar_t*> properties) {
            for (const auto* property : properties)
                result[window.path() + L"." + property] = window.getAs<Text>(property);
        };
        note(form, {L"Caption", L"BackColor"});
        for (const auto& control : form.controls()) {
            // The label only measures; its final state does not matter.
            if (control.get() == &label) continue;
            note(*control.get(), {L"BackColor", L"Width", L"ToolTipText"});
            if (control.get() != &picture)
                note(*control.get(), {control->name() == L"txt" ? L"Text" : L"Caption"});
        }
        return result;
    }

    // The object and the member that a line of the record is about: "optMode(1)", "Caption".
    static std::pair<std::wstring, std::wstring> partsOf(const std::wstring& line) {
        const auto object = line.substr(line.find(L' ') + 1);
        const auto point = object.rfind(L'.');
        return point == std::wstring::npos ? std::pair(object, std::wstring())
                                           : std::pair(object.substr(0, point), object.substr(point + 1));
    }

    // The width that fits the caption which a control has now; nothing for any other property.
    std::wstring fitting(const std::wstring& property) {
        for (const auto& control : form.controls())
            if (control->path() + L".Width" == property)
                return std::to_wstring(widthOf(*control.get(), caption(*control.get())) * pixel + box);
        return {};
    }

    // The calls that are made when none fails, lookups left out as they are never failed.
    std::vector<std::wstring> calls() {
        std::vector<std::wstring> result;
        for (const auto& line : host.record().log())
            if (!line.starts_with(L"lookup")) result.push_back(line);
        return result;
    }

    // Of several kinds, one for each call.
    static HostFailure failure(std::size_t number) {
        const HostFailure kinds[] = {
            {static_cast<HRESULT>(0x800A0000u + 5)}, {E_FAIL}, {DISP_E_EXCEPTION, 438, true}};
        return kinds[number % std::size(kinds)];
    }

    PictureBox& picture = form.add<PictureBox>({.name = L"pic", .at = {0, 0, 3000, 900}});
};

TEST_F(LangueFailingHost, loadingGoesOnBehindAnyFailingCall) {
    const auto before = state();
    host.record().clearLog();
    load();
    const auto made = calls();
    const auto after = state();
    EXPECT_EQ(L"Very fast", after.at(L"optMode(1).Caption"));
    EXPECT_NE(before.at(L"optMode(1).Width"), after.at(L"optMode(1).Width"));
    EXPECT_EQ(std::to_wstring(tabs), after.at(L"lbl.BackColor"));
    // Without these there are no controls, or no section with their texts.
    const std::set<std::wstring> essential = {L"get frmMain.Controls", L"get frmMain.Controls.(enumerator)",
                                              L"get frmMain.Name"};
    ASSERT_GT(made.size(), 60u);
    for (std::size_t n = 1; n <= made.size() + 1; ++n) {
        design();
        host.record().fail(static_cast<int>(n), failure(n));
        load();
        const auto line = n <= made.size() ? made[n - 1] : L"none";
        SCOPED_TRACE(std::to_string(n) + " " + narrow(line));
        // A property that was not set keeps its design-time value. All such properties belong to one object:
        // the one that failed, or the one whose text was measured.
        std::set<std::wstring> damaged;
        const auto now = state();
        for (const auto& [property, value] : now) {
            if (value == after.at(property)) continue;
            EXPECT_TRUE(value == before.at(property) || value == fitting(property)) << narrow(property);
            damaged.insert(partsOf(L" " + property).first);
        }
        if (essential.contains(line)) continue;
        EXPECT_LE(damaged.size(), 1u);
        const auto failed = partsOf(line).first;
        if (after.contains(failed + L".BackColor") && failed != L"frmMain" && failed != L"pic" &&
            !damaged.empty()) {
            EXPECT_EQ(failed, *damaged.begin());
        }
        if (line.starts_with(L"next") || line == L"none") {
            EXPECT_TRUE(damaged.empty());
        }
    }
}

TEST_F(LangueFailingHost, savingGoesOnBehindAnyFailingCall) {
    const auto linesOf = [](const std::string& bytes) {
        std::set<std::string> lines;
        std::istringstream stream(bytes);
        for (std::string line; std::getline(stream, line);) lines.insert(line);
        return lines;
    };
    const auto save = [&](const wchar_t* name) {
        run(L"LngFormSave", {vorla::test::object(&form), text(name)});
        const auto file = languages + L"\\" + name + L".lng";
        const auto lines = TemporaryFolder::exists(file) ? linesOf(bytesOf(file)) : std::set<std::string>();
        DeleteFileW(file.c_str());
        return lines;
    };
    host.record().clearLog();
    const auto complete = save(L"TOUT");
    const auto made = calls();
    // The section, the form's title, a caption or text of five controls, the help of six.
    EXPECT_EQ(1u + 1 + 5 + 6, complete.size());
    ASSERT_GT(made.size(), 30u);
    for (std::size_t n = 1; n <= made.size(); ++n) {
        host.record().clear();
        host.record().fail(static_cast<int>(n), failure(n));
        const auto written = save(L"PART");
        const auto& line = made[n - 1];
        SCOPED_TRACE(std::to_string(n) + " " + narrow(line));
        const auto [failed, member] = partsOf(line);
        const auto name = narrow(failed.substr(0, failed.find(L'(')));
        const bool isList = member == L"Controls" || member == L"(enumerator)";
        for (const auto& one : complete) {
            if (written.contains(one)) continue;
            // Only what the failing object has to say is missing; of the form's name, one text of any object.
            if (isList) continue;
            if (failed == L"frmMain") continue;
            EXPECT_EQ(0u, one.find(name + "#")) << one;
        }
        const auto missing = complete.size() - written.size();
        EXPECT_LE(missing, isList ? complete.size() : 1u);
        for (const auto& one : written) {
            if (complete.contains(one)) continue;
            // An index that cannot be read counts as no index.
            EXPECT_EQ(L"Index", member) << one;
            EXPECT_EQ(0u, one.find(name + "#")) << one;
        }
    }
}

TEST_F(LangueFailingHost, resizingTellsItsFailures) {
    Control* option = nullptr;
    for (const auto& control : form.controls())
        if (control->name() == L"optMode") option = control.get();
    host.record().clearLog();
    ASSERT_EQ(S_OK, resize(*option, L"Vite").code);
    const auto made = calls();
    const auto resized = width(*option);
    ASSERT_GT(made.size(), 9u);
    for (std::size_t n = 1; n <= made.size(); ++n) {
        design();
        host.record().fail(static_cast<int>(n), {static_cast<HRESULT>(0x800A0000u + 76)});
        const auto outcome = resize(*option, L"Vite");
        const auto& line = made[n - 1];
        SCOPED_TRACE(std::to_string(n) + " " + narrow(line));
        // The control's scale is found end on error.
        if (line == L"get optMode(1).Container" || line == L"get pic.ScaleMode") {
            EXPECT_EQ(S_OK, outcome.code);
            continue;
        }
        expectError(outcome, 76);
        EXPECT_EQ(L"dessin", caption(*option));
        // The caption is set last; the width before it is set or not.
        EXPECT_EQ(line == L"put optMode(1).Caption" ? resized : 300, width(*option));
    }
    // A label without a font, or an object that is not a label.
    design();
    label.removeMember(L"Font");
    expectError(resize(*option, L"Vite"), 438);
    expectError(call(L"LngRedimCtl", {vorla::test::object(option), nothing(), text(L"Vite")}), 91);
    EXPECT_EQ(300, width(*option));
}

}  // namespace
}  // namespace vorla::test
