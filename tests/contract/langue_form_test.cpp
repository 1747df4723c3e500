// VorlaLangue and the host's forms: texts, colours and widths put on them.
#include "contract/langue_form_fixture.h"

namespace vorla::test {
namespace {

TEST_F(LangueForms, themeFieldsBelongToTheInstance) {
    expectResult(call(L"ThemedBackColorApply"), false);
    expectResult(call(L"ThemedBackColor"), long32(0));
    expectResult(call(L"ThemedTabBackColor"), long32(0));
    expectResult(call(L"ThemedBackColorDef"), colour(buttonFace));
    expectResult(call(L"ThemedOldColor"), long32(0));
    put(L"ThemedBackColorApply", short16(7));
    put(L"ThemedBackColorDef", long32(INT32_MIN));
    theme(true);
    expectResult(call(L"ThemedBackColorApply"), true);
    expectResult(call(L"ThemedBackColor"), colour(themed));
    expectResult(call(L"ThemedTabBackColor"), colour(tabs));
    expectResult(call(L"ThemedBackColorDef"), long32(INT32_MIN));
    expectResult(call(L"ThemedOldColor"), colour(marked));
    const auto second = component.create(numberOfLangue);
    expectResult(invoke(second.get(), L"ThemedBackColor"), long32(0));
}

TEST_F(LangueForms, textsArePutOnAFormAndItsControls) {
    languageFile(
        L"ENG",
        L"[frmMain]\r\nfrmMain#Caption=Customer "
        L"file\r\ncmdOK#Caption=&OK\r\ncmdOK#ToolTipText=Go\u00FF{l}on\r\n"
        L"txtName#Text=Nobody\r\noptMode#1#Caption=Advanced\r\nempty#Caption=\r\nlbl#Text=never read\r\n");
    languageFile(L"FRA", L"[frmMain]\r\ntxtName#ToolTipText=Votre nom\r\noptMode#0#Caption=Simple\r\n");
    Form form;
    auto& ok = form.add(L"CommandButton", L"cmdOK", L"ok").property(L"ToolTipText", text(L"tip"));
    auto& name =
        form.add(L"TextBox", L"txtName").property(L"Text", text(L"")).property(L"ToolTipText", text(L""));
    auto& first = form.add(L"OptionButton", L"optMode", L"0").property(L"Index", short16(0));
    auto& second = form.add(L"OptionButton", L"optMode", L"1").property(L"Index", short16(1));
    auto& empty = form.add(L"Label", L"empty", L"design").property(L"Index", Variant());
    auto& label = form.add(L"Label", L"lbl", L"design");
    auto& frame = form.add(L"Line", L"lin");
    form.complete();
    select(L"ENG");
    load(form);
    EXPECT_EQ(L"Customer file", textIn(form.form, L"Caption"));
    EXPECT_EQ(L"&OK", textIn(ok, L"Caption"));
    EXPECT_EQ(L"Go\r\non", textIn(ok, L"ToolTipText"));
    EXPECT_EQ(L"Nobody", textIn(name, L"Text"));
    EXPECT_EQ(L"Votre nom", textIn(name, L"ToolTipText"));
    EXPECT_EQ(L"Simple", textIn(first, L"Caption"));
    EXPECT_EQ(L"Advanced", textIn(second, L"Caption"));
    // No translation, or an empty one: the design-time text stays.
    EXPECT_EQ(L"design", textIn(empty, L"Caption"));
    EXPECT_EQ(L"design", textIn(label, L"Caption"));
    EXPECT_EQ(0u, label.logged(L"put Caption") + label.logged(L"put Text") + frame.logged(L"put Caption"));
    form.expectNothingHeld();
}

TEST_F(LangueForms, withoutALanguageNothingHappens) {
    languageFile(L"FRA", L"[frmMain]\r\nfrmMain#Caption=Fiche client\r\n");
    theme(true);
    Form form;
    auto& check = form.add(L"CheckBox", L"chk", L"design");
    form.complete();
    for (const bool onlyColours : {false, true}) load(form, {onlyColours});
    EXPECT_TRUE(form.form.log().empty());
    EXPECT_TRUE(check.log().empty());
    EXPECT_TRUE(form.label.log().empty());
}

TEST_F(LangueForms, whatIsChangedIsTheCallersChoice) {
    languageFile(L"ENG", L"[frmMain]\r\nfrmMain#Caption=Customer\r\nchk#Caption=Check\r\n");
    select(L"ENG");
    theme(true);
    {
        Form form;
        auto& check = form.add(L"CheckBox", L"chk", L"design");
        form.complete();
        load(form, {true});
        EXPECT_EQ(L"Fiche", textIn(form.form, L"Caption"));
        EXPECT_EQ(L"design", textIn(check, L"Caption"));
        EXPECT_EQ(
            0u, check.logged(L"get Caption") + check.logged(L"get Text") + check.logged(L"get ToolTipText"));
        EXPECT_EQ(0u, check.logged(L"put Width") + form.label.log().size());
        EXPECT_EQ(themed, numberIn(form.form, L"BackColor"));
        EXPECT_EQ(themed, numberIn(check, L"BackColor"));
    }
    {
        Form form;
        auto& check = form.add(L"CheckBox", L"chk", L"design");
        auto& tab = form.add(L"SSTab", L"tab");
        tab.value(L"Tag") = text(L"**SmartTab**");
        form.complete();
        load(form, {false, true});
        EXPECT_EQ(L"Customer", textIn(form.form, L"Caption"));
        EXPECT_EQ(L"Check", textIn(check, L"Caption"));
        EXPECT_EQ(marked, numberIn(form.form, L"BackColor"));
        EXPECT_EQ(marked, numberIn(check, L"BackColor"));
        EXPECT_EQ(marked, numberIn(tab, L"BackColor"));
        EXPECT_EQ(1u, check.logged(L"put Width"));
    }
    {
        Form form;
        auto& check = form.add(L"CheckBox", L"chk", L"design");
        form.complete();
        load(form, {true, true});
        EXPECT_EQ(0u, form.form.logged(L"put") + check.logged(L"put"));
    }
}

TEST_F(LangueForms, onlyATitleBarGetsATitle) {
    languageFile(L"ENG", L"[frmMain]\r\nfrmMain#Caption=Customer\r\n");
    select(L"ENG");
    // Both bits of a title bar are needed: a border alone, or the frame of a dialog, has one of them.
    for (const LONG style : {0L, WS_BORDER, WS_DLGFRAME, WS_CAPTION, WS_CAPTION | WS_SYSMENU}) {
        Form form(WS_POPUP | static_cast<DWORD>(style));
        form.complete();
        load(form);
        const bool titled = (style & WS_CAPTION) == WS_CAPTION;
        EXPECT_EQ(titled ? L"Customer" : L"Fiche", textIn(form.form, L"Caption")) << style;
    }
    Form form;
    form.complete();
    form.form.value(L"hwnd") = long32(0);
    load(form);
    EXPECT_EQ(L"Fiche", textIn(form.form, L"Caption"));
    // A title without a translation stays.
    Form unknown;
    unknown.complete();
    unknown.form.value(L"Name") = text(L"frmElse");
    load(unknown);
    EXPECT_EQ(L"Fiche", textIn(unknown.form, L"Caption"));
    EXPECT_EQ(0u, unknown.form.logged(L"put Caption"));
}

TEST_F(LangueForms, aSubstituteSharesTheTextsOfItsControls) {
    languageFile(L"ENG",
                 L"[frmMain]\r\nfrmMain#Caption=Own\r\ncmd#Caption=own\r\n"
                 L"[frmShared]\r\nfrmMain#Caption=Shared\r\ncmd#Caption=shared\r\n");
    select(L"ENG");
    Form form;
    auto& command = form.add(L"CommandButton", L"cmd", L"design");
    form.complete();
    load(form, {false, false, text(L"frmShared")});
    EXPECT_EQ(L"Own", textIn(form.form, L"Caption"));
    EXPECT_EQ(L"shared", textIn(command, L"Caption"));
    load(form, {false, false, text(L"")});
    EXPECT_EQ(L"own", textIn(command, L"Caption"));
    load(form, {false, false, text(L"frmElse")});
    EXPECT_EQ(L"own", textIn(command, L"Caption"));
}

TEST_F(LangueForms, coloursOfForms) {
    select(L"ENG");
    struct Row {
        bool applies;
        std::int32_t before;
        const wchar_t* tag;
        std::int32_t after;
    };
    constexpr Row rows[] = {
        {true, marked, L"", themed},      {true, marked, L"x**C**y", buttonFace},
        {true, marked, L"**c**", themed}, {true, marked, L"**SmartTab**", themed},
        {true, other, L"", other},        {true, other, L"**C**", other},
        {false, marked, L"", buttonFace}, {false, marked, L"**C**", buttonFace},
        {false, other, L"", other},
    };
    for (const Row& row : rows) {
        theme(row.applies);
        Form form;
        form.complete();
        form.form.value(L"BackColor") = colour(row.before);
        form.form.value(L"Tag") = text(row.tag);
        load(form);
        EXPECT_EQ(row.after, numberIn(form.form, L"BackColor")) << row.applies << narrow(row.tag);
    }
    // The tag only matters where a theme applies.
    theme(false);
    ScriptedObject untagged;
    untagged.property(L"BackColor", colour(marked));
    run(L"LngFormLoad", {object(&untagged), nothing()});
    EXPECT_EQ(buttonFace, numberIn(untagged, L"BackColor"));
}

TEST_F(LangueForms, coloursOfControls) {
    select(L"ENG");
    struct Row {
        bool applies;
        const wchar_t* className;
        std::int32_t before;
        const wchar_t* tag;
        std::int32_t after;
    };
    constexpr Row rows[] = {
        {true, L"Label", marked, L"", themed},
        {true, L"Label", other, L"", other},
        {true, L"Label", marked, L"a **C**", marked},
        {true, L"Label", marked, L"**c**", themed},
        {true, L"SSTab", other, L"**SmartTab**", tabs},
        {true, L"SSTab", marked, L"**SmartTab**", tabs},
        {true, L"SSTab", other, L" **SmartTab**", other},
        {true, L"SSTab", marked, L"x**SmartTab**", themed},
        {true, L"SSTab", other, L"**smarttab**", other},
        {true, L"SSTab", other, L"**SmartTab****C**", other},
        {true, L"TextBox", marked, L"", marked},
        {true, L"ComboBox", marked, L"", marked},
        {true, L"ListBox", marked, L"", marked},
        {true, L"MaskEdBox", marked, L"", marked},
        {true, L"TextBox", marked, L"**SmartTab**", marked},
        {true, L"textbox", marked, L"", themed},
        {false, L"Label", marked, L"", buttonFace},
        {false, L"Label", other, L"", other},
        {false, L"Label", marked, L"**C**", marked},
        {false, L"SSTab", other, L"**SmartTab**", tabs},
        {false, L"ListBox", marked, L"", marked},
    };
    for (const bool onlyColours : {false, true}) {
        for (const Row& row : rows) {
            theme(row.applies);
            Form form;
            auto& control = form.add(row.className, L"ctl");
            control.value(L"BackColor") = colour(row.before);
            control.value(L"Tag") = text(row.tag);
            form.complete();
            load(form, {onlyColours});
            EXPECT_EQ(row.after, numberIn(control, L"BackColor")) << narrow(row.className) << narrow(row.tag);
        }
    }
    // An unsigned colour is the same colour.
    Variant unsignedFace;
    unsignedFace.put()->vt = VT_UI4;
    unsignedFace.put()->ulVal = 0x8000000F;
    put(L"ThemedOldColor", colour(buttonFace));
    put(L"ThemedBackColorApply", true);
    Form form;
    auto& control = form.add(L"Label", L"ctl");
    control.value(L"BackColor") = unsignedFace;
    form.complete();
    load(form);
    EXPECT_EQ(themed, numberIn(control, L"BackColor"));
}

TEST_F(LangueForms, aTabGetsItsColourWhateverItsOwnIs) {
    select(L"ENG");
    theme(true);
    ScriptedObject standsForColour{colour(other)};
    Variant values[] = {text(L"red"),  nullValue(), Variant(),
                        Variant(1e20), nothing(),   object(&standsForColour)};
    for (const Variant& before : values) {
        Form form;
        auto& tab = form.add(L"SSTab", L"tab");
        tab.value(L"BackColor") = before;
        tab.value(L"Tag") = text(L"**SmartTab**");
        form.complete();
        load(form);
        EXPECT_EQ(VT_I4, tab.value(L"BackColor").raw().vt) << describe(before.raw());
        EXPECT_EQ(tabs, numberIn(tab, L"BackColor")) << describe(before.raw());
    }
    EXPECT_TRUE(standsForColour.log().empty());
    // A colour that cannot be read is none.
    Form form;
    auto& tab = form.add(L"SSTab", L"tab");
    tab.value(L"Tag") = text(L"**SmartTab**");
    ScriptedObject bare;
    bare.className(L"SSTab").property(L"Name", text(L"bare")).property(L"Tag", text(L"**SmartTab**"));
    form.complete();
    form.list.items({object(&bare), object(&tab)}, ScriptedObject::Walk::byEnumerator);
    load(form);
    EXPECT_EQ(0u, bare.logged(L"put"));
    EXPECT_EQ(tabs, numberIn(tab, L"BackColor"));
    form.list.items({}, ScriptedObject::Walk::byEnumerator);
    // Without the tag, what is not a colour is left alone.
    Form untagged;
    auto& red = untagged.add(L"Label", L"lbl");
    red.value(L"BackColor") = text(L"red");
    untagged.complete();
    load(untagged);
    EXPECT_EQ(L"red", textIn(red, L"BackColor"));
}

TEST_F(LangueForms, anIndexThatIsTextIsUsedAsItIs) {
    languageFile(L"ENG",
                 L"[frmMain]\r\nopt# 1 #Caption=blanks\r\nopt#1#Caption=none\r\nopt# #Caption=blank\r\n"
                 L"opt##Caption=empty\r\n");
    select(L"ENG");
    Form form;
    auto& blanks = form.add(L"Label", L"opt", L"design").property(L"Index", text(L" 1 "));
    auto& plain = form.add(L"Label", L"opt", L"design").property(L"Index", text(L"1"));
    auto& blank = form.add(L"Label", L"opt", L"design").property(L"Index", text(L" "));
    form.complete();
    load(form);
    EXPECT_EQ(L"blanks", textIn(blanks, L"Caption"));
    EXPECT_EQ(L"none", textIn(plain, L"Caption"));
    EXPECT_EQ(L"blank", textIn(blank, L"Caption"));
}

TEST_F(LangueForms, optionButtonsAndCheckBoxesAreAsWideAsTheirTexts) {
    languageFile(L"ENG", L"[frmMain]\r\nctl#Caption=A longer text\r\n");
    select(L"ENG");
    struct Row {
        const wchar_t *className, *tag;
        bool resized;
    };
    constexpr Row rows[] = {
        {L"CheckBox", L"", true},      {L"CheckBox", L"a**L**b", false},  {L"CheckBox", L"**l**", true},
        {L"OptionButton", L"", true},  {L"OptionButton", L"**L**", true}, {L"SSCheck", L"**L**", true},
        {L"SSOption", L"**L**", true}, {L"CommandButton", L"", false},    {L"Label", L"", false},
    };
    for (const Row& row : rows) {
        Form form;
        auto& control = form.add(row.className, L"ctl", L"short");
        control.value(L"Tag") = text(row.tag);
        form.complete();
        load(form);
        EXPECT_EQ(L"A longer text", textIn(control, L"Caption")) << narrow(row.className);
        // 40 pixels of text at 15 twips, and 330 twips for the box.
        EXPECT_EQ(row.resized ? 930 : 1000, widthOf(control)) << narrow(row.className) << narrow(row.tag);
        EXPECT_EQ(row.resized ? L"A longer text" : L"Essai", textIn(form.label, L"Caption"));
        EXPECT_EQ(row.resized, form.label.value(L"Font").raw().pdispVal == &form.font);
        EXPECT_EQ(row.resized ? 1u : 0u, form.label.logged(L"putref Font"));
    }
}

TEST_F(LangueForms, resizingFollowsTheContainersScale) {
    const auto resize = [this](Form& form, ScriptedObject& control) {
        return call(L"LngRedimCtl", {object(&control), object(&form.label), text(L"été")});
    };
    {
        Form form;
        auto& option = form.add(L"OptionButton", L"opt", L"x");
        form.container.value(L"ScaleMode") = short16(3);
        EXPECT_EQ(S_OK, resize(form, option).code);
        EXPECT_EQ(40 + 330 / 15.0, widthOf(option));
        EXPECT_EQ(L"été", textIn(option, L"Caption"));
        EXPECT_EQ(L"été", textIn(form.label, L"Caption"));
        // Twice the same call leaves it as it is.
        EXPECT_EQ(S_OK, resize(form, option).code);
        EXPECT_EQ(40 + 330 / 15.0, widthOf(option));
    }
    {
        // A container that has no scale is in twips.
        Form form;
        ScriptedObject frame;
        auto& check = form.add(L"SSCheck", L"chk", L"x");
        check.value(L"Container") = object(&frame);
        EXPECT_EQ(S_OK, resize(form, check).code);
        EXPECT_EQ(930, widthOf(check));
        check.value(L"Container") = Variant();
    }
    {
        // The same holds for a control without a container, or with one that cannot be read.
        Form form;
        ScriptedObject option;
        option.className(L"OptionButton").property(L"Font", object(&form.font));
        option.property(L"Width", 1000.0).property(L"Caption", text(L"x"));
        EXPECT_EQ(S_OK, resize(form, option).code);
        EXPECT_EQ(930, widthOf(option));
        for (const Variant& none : {nothing(), Variant(), text(L"frame")}) {
            option.property(L"Container", none);
            EXPECT_EQ(S_OK, resize(form, option).code);
            EXPECT_EQ(930, widthOf(option));
        }
        // Loading a form goes by the same rule.
        select(L"ENG");
        Form loaded;
        auto& alone = loaded.add(L"OptionButton", L"opt", L"x");
        alone.value(L"Container") = nothing();
        loaded.complete();
        load(loaded);
        EXPECT_EQ(930, widthOf(alone));
    }
    {
        // The text is set through the label's default property, whatever its name.
        Form form;
        auto& option = form.add(L"OptionButton", L"opt", L"x");
        ScriptedObject otherLabel;
        otherLabel.property(L"Font", nothing())
            .property(L"Inhalt", text(L""))
            .property(L"Width", short16(40))
            .property(L"Container", object(&form.measuring))
            .defaultMember(L"Inhalt");
        EXPECT_EQ(S_OK, call(L"LngRedimCtl", {object(&option), object(&otherLabel), text(L"été")}).code);
        EXPECT_EQ(930, widthOf(option));
        EXPECT_EQ(L"été", textIn(otherLabel, L"Inhalt"));
    }
    for (const wchar_t* className : {L"Label", L"CommandButton", L"TextBox", L"checkbox"}) {
        Form form;
        auto& control = form.add(className, L"ctl", L"x");
        EXPECT_EQ(S_OK, resize(form, control).code);
        EXPECT_TRUE(control.log().empty());
        EXPECT_EQ(L"x", textIn(control, L"Caption"));
    }
    EXPECT_EQ(S_OK, call(L"LngRedimCtl", {nothing(), nothing(), text(L"x")}).code);
}

}  // namespace
}  // namespace vorla::test
