// VorlaDivers' helpers on controls: forms with real windows, and scripted objects for what such forms lack.
#include <cmath>

#include "contract/divers_fixture.h"
#include "contract/signatures.h"
#include "support/asked_object.h"
#include "support/dialog_watcher.h"
#include "support/import_patch.h"

namespace vorla::test {
namespace {

using forms::CheckBox;
using forms::ComboBox;
using forms::CommandButton;
using forms::Control;
using forms::Frame;
using forms::Label;
using forms::ListBox;
using forms::OptionButton;
using forms::PictureBox;
using forms::TextBox;

using Texts = std::vector<std::wstring>;

// Without the identifiers, which published_order_test.cpp checks.
TEST_F(Divers, membersAreDescribed) {
    const Texts expected{
        L"I2 KeyMajusc(I2 KeyAscii)",
        L"I2 KeyNum(I2 KeyAscii, [BOOL WithDecimal=0])",
        L"I2 KeyFile(I2 KeyAscii, [&eKeyFileType TypeName=0])",
        L"BOOL Ctl_Argument(&object Premier, &object Second, [&BOOL obligatoire=0], [&BSTR Mes], "
        L"[&object Label1Associé], [&object Label2Associé])",
        L"void eSetFocus(&object Ctl)",
        L"BOOL ToucheEnfoncée(ToucheCtl Touche)",
        L"BOOL IsControlExist(&VARIANT Ctl)",
        L"I2 ContainerScaleMode(&BSTR ScaleMd)",
        L"I2 FindContainerScaleMode(&object Ctl)",
        L"void FrameChangeEnabled(object Frm, object ObjetContainer, BOOL blEnabled)",
        L"void FormEffaceCtl(object Frm)",
        L"void MousePlace(object Controle, [BOOL AuCentre=-1])",
        L"Rect CtlPosition(object Controle)",
        L"CursorPosition CursorPos([R4 x=-99], [R4 y=-99])",
        L"BOOL PropertyExist(object Ctl, BSTR Property, [I4 TypeProperty=2])",
        L"BOOL IsPropertyExist(object Ctl, BSTR Property, [I4 TypeProperty=2])",
        L"BOOL IsFormLoad(&VARIANT FrmNameOrHwnd, &VARIANT FormsCol)",
        L"I2 OptionButtonValue(object Opt, [&VARIANT TrueValue])",
        L"object FindObjectContainerScaleMode(object Ctl)",
        L"void CopyFont(&&Font Src, &&Font dest)"};
    const auto all = signatures(divers.get());
    auto line = all.begin();
    for (; line != all.end() && line->substr(9) != expected[0]; ++line) continue;
    for (const auto& signature : expected) {
        ASSERT_NE(all.end(), line) << narrow(signature);
        EXPECT_EQ(signature, line->substr(9));
        ++line;
    }
}

// --- Range criteria ---

const std::wstring notAscending =
    L"Les critères de sélection ne sont pas dans l'ordre croissant, je les inverse pour vous.";
const std::wstring required = L"Les critères de sélection sont obligatoires.";

class DiversCriteria : public DiversForm {
protected:
    bool check(std::initializer_list<Variant> more = {}) {
        const auto outcome = call(L"Ctl_Argument", Arguments(all(more)));
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(VT_BOOL, outcome.result.raw().vt);
        return outcome.result.raw().boolVal == VARIANT_TRUE;
    }
    void type(const wchar_t* one, const wchar_t* other) {
        first.put(L"Text", one);
        second.put(L"Text", other);
    }
    Texts typed() { return {first.getAs<Text>(L"Text"), second.getAs<Text>(L"Text")}; }
    Texts captions() { return {label1.getAs<Text>(L"Caption"), label2.getAs<Text>(L"Caption")}; }

    TextBox& first = form.add<TextBox>({.name = L"txtFrom", .at = {100, 100, 1500, 300}});
    TextBox& second = form.add<TextBox>({.name = L"txtTo", .at = {100, 500, 1500, 300}});
    Label& label1 = form.add<Label>({.name = L"lblFrom", .text = L"Dupont", .at = {1700, 100, 900, 300}});
    Label& label2 = form.add<Label>({.name = L"lblTo", .text = L"Martin", .at = {1700, 500, 900, 300}});

private:
    Arguments all(std::initializer_list<Variant> more) {
        const auto given = std::data(more);
        const Variant one = object(&first), other = object(&second);
        switch (more.size()) {
            case 0: return {one, other};
            case 1: return {one, other, given[0]};
            case 2: return {one, other, given[0], given[1]};
            case 3: return {one, other, given[0], given[1], given[2]};
            default: return {one, other, given[0], given[1], given[2], given[3]};
        }
    }
};

TEST_F(DiversCriteria, inOrderAreLeftAlone) {
    const DialogWatcher watcher;
    type(L"10", L"9");
    EXPECT_TRUE(check());
    EXPECT_EQ((Texts{L"10", L"9"}), typed());
    type(L"a", L"a");
    EXPECT_TRUE(check({true}));
    // By character codes: "20" comes before "3".
    type(L"20", L"3");
    EXPECT_TRUE(check({true, text(L"jamais vu"), object(&label1), object(&label2)}));
    EXPECT_EQ((Texts{L"20", L"3"}), typed());
    EXPECT_EQ((Texts{L"Dupont", L"Martin"}), captions());
    EXPECT_TRUE(watcher.seen().empty());
}

TEST_F(DiversCriteria, outOfOrderAreSwappedAfterAMessage) {
    {
        const DialogWatcher watcher;
        type(L"3", L"20");
        EXPECT_TRUE(check());
        EXPECT_EQ((Texts{L"20", L"3"}), typed());
        EXPECT_EQ((Texts{L"Dupont", L"Martin"}), captions());
        ASSERT_EQ(1u, watcher.seen().size());
        EXPECT_EQ(Texts{notAscending}, watcher.seen()[0].texts);
        EXPECT_EQ(1u, watcher.seen()[0].buttons.size());
        EXPECT_EQ(L"contract_tests", watcher.seen()[0].title);
    }
    const DialogWatcher watcher;
    type(L"b", L"B");
    EXPECT_TRUE(check({true, text(L"À l'envers : €"), object(&label1), object(&label2)}));
    EXPECT_EQ((Texts{L"B", L"b"}), typed());
    EXPECT_EQ((Texts{L"Martin", L"Dupont"}), captions());
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_EQ(Texts{L"À l'envers : €"}, watcher.seen()[0].texts);
}

TEST_F(DiversCriteria, oneLabelAloneIsNoPair) {
    const DialogWatcher watcher;
    for (const auto& [one, other] : {std::pair{object(&label1), nothing()},
                                     {nothing(), object(&label2)},
                                     {object(&label1), missing()}}) {
        type(L"b", L"a");
        EXPECT_TRUE(check({false, text(L""), one, other}));
        EXPECT_EQ((Texts{L"a", L"b"}), typed());
        EXPECT_EQ((Texts{L"Dupont", L"Martin"}), captions());
    }
    ASSERT_EQ(3u, watcher.seen().size());
    EXPECT_EQ(Texts{notAscending}, watcher.seen()[0].texts);
}

TEST_F(DiversCriteria, missingOnesAreAskedForWhenRequired) {
    const DialogWatcher watcher;
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {{L"a", L""}, {L"", L"a"}, {L"", L""}};
    for (const auto& [one, other] : rows) {
        type(one, other);
        EXPECT_TRUE(check());
        EXPECT_TRUE(check({false}));
    }
    EXPECT_TRUE(watcher.seen().empty());
    for (const auto& [one, other] : rows) {
        type(one, other);
        EXPECT_FALSE(check({true, text(L"jamais vu"), object(&label1), object(&label2)}));
        EXPECT_EQ((Texts{one, other}), typed());
    }
    ASSERT_EQ(3u, watcher.seen().size());
    for (const auto& seen : watcher.seen()) EXPECT_EQ(Texts{required}, seen.texts);
}

TEST_F(DiversCriteria, theBoxHasACriticalIconAndOneButton) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    std::vector<DWORD> styles;
    box.answer([&](const MSGBOXPARAMSW* shown) {
        styles.push_back(shown->dwStyle);
        return IDOK;
    });
    type(L"b", L"a");
    EXPECT_TRUE(check());
    type(L"", L"a");
    EXPECT_FALSE(check({true}));
    EXPECT_EQ((std::vector<DWORD>{16, 16}), styles);
    // A system that shows no box changes nothing else.
    box.answer([](const MSGBOXPARAMSW*) { return 0; });
    type(L"b", L"a");
    EXPECT_TRUE(check());
    EXPECT_EQ((Texts{L"a", L"b"}), typed());
    type(L"", L"a");
    EXPECT_FALSE(check({true}));
}

TEST_F(DiversCriteria, dateFieldsHaveAValueOfTheirOwn) {
    struct Field {
        const wchar_t *text, *value;
        int kind;
    };
    // Each control tells its own kind; the first control's class decides for both.
    const struct {
        const wchar_t* className;
        Field first, second;
        bool swapped;
    } rows[] = {{L"QZText", {L"b", L"20240101", 5}, {L"a", L"20240201", 5}, false},
                {L"QZTextStd", {L"a", L"20240201", 5}, {L"b", L"20240101", 5}, true},
                {L"QZText", {L"b", L"1", 4}, {L"a", L"2", 4}, true},
                {L"QZText", {L"5", L"1", 5}, {L"3", L"0", 0}, false},
                {L"qztext", {L"b", L"1", 5}, {L"a", L"2", 5}, true},
                {L"TextBox", {L"b", L"1", 5}, {L"a", L"2", 5}, true},
                // A kind that is no number is none.
                {L"QZText", {L"b", L"1", -1}, {L"a", L"2", -1}, true}};
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([](const MSGBOXPARAMSW*) { return IDOK; });
    for (const auto& row : rows) {
        ScriptedObject one, other;
        const auto fill = [](ScriptedObject& control, const Field& field) {
            control.property(L"Text", text(field.text))
                .property(L"eValeur", text(field.value))
                .property(L"eTypeChamp", field.kind < 0 ? text(L"date") : long32(field.kind));
        };
        fill(one.className(row.className), row.first);
        fill(other.className(L"TextBox"), row.second);
        expectResult(call(L"Ctl_Argument", {object(&one), object(&other)}), true);
        const auto where = &row - rows;
        EXPECT_EQ(row.swapped ? row.second.text : row.first.text,
                  std::wstring(viewOf(one.value(L"Text").raw().bstrVal)))
            << where;
        EXPECT_EQ(row.swapped ? row.first.text : row.second.text,
                  std::wstring(viewOf(other.value(L"Text").raw().bstrVal)))
            << where;
        EXPECT_EQ(0, one.references());
        EXPECT_EQ(0, other.references());
    }
}

TEST_F(DiversCriteria, nothingAndOtherObjectsAreEmptyCriteria) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([](const MSGBOXPARAMSW*) { return IDOK; });
    ScriptedObject plain, null;
    null.property(L"Text", nullValue());
    for (const Variant& none : {nothing(), object(&plain), object(&null), object(&label1)}) {
        expectResult(call(L"Ctl_Argument", {object(&first), none}), true);
        expectResult(call(L"Ctl_Argument", {none, object(&first)}), true);
        expectResult(call(L"Ctl_Argument", {none, none, true}), false);
    }
    EXPECT_EQ(4, box.calls());
}

TEST_F(DiversCriteria, theFormMayCloseDuringTheMessage) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([this](const MSGBOXPARAMSW*) {
        form.unload();
        return IDOK;
    });
    const HostObject kept[] = {&first, &second, &label1, &label2};
    type(L"b", L"a");
    EXPECT_TRUE(check({true, text(L""), object(&label1), object(&label2)}));
    EXPECT_EQ(1, box.calls());
}

TEST_F(DiversCriteria, theHostMayClearItsVariablesDuringARead) {
    Intercept<decltype(MessageBoxIndirectW)> box(module, "user32.dll", "MessageBoxIndirectW");
    box.answer([](const MSGBOXPARAMSW*) { return IDOK; });
    IDispatch* variables[4] = {&first, &second, &label1, &label2};
    for (IDispatch* const variable : variables) variable->AddRef();
    ScriptedObject clearing;
    BSTR message = SysAllocString(L"le message");
    Text shown = L"b";
    const auto clear = [&](const ScriptedObject::Call& given) {
        if (given.isPut()) return Variant();
        for (IDispatch*& variable : variables)
            if (variable && variable != &clearing) std::exchange(variable, nullptr)->Release();
        if (message) SysFreeString(std::exchange(message, nullptr));
        return text(shown);
    };
    clearing.method(L"Text", clear);
    variables[0]->Release();
    variables[0] = &clearing;
    clearing.AddRef();
    type(L"b", L"a");
    VARIANT_BOOL isRequired = VARIANT_TRUE, answer = 0x55;
    const auto member =
        slot<IDispatch**, IDispatch**, VARIANT_BOOL*, BSTR*, IDispatch**, IDispatch**, VARIANT_BOOL*>(
            L"Ctl_Argument");
    EXPECT_EQ(S_OK, member(divers.get(), &variables[0], &variables[1], &isRequired, &message, &variables[2],
                           &variables[3], &answer));
    EXPECT_EQ(VARIANT_TRUE, answer);
    EXPECT_EQ((Texts{L"Martin", L"Dupont"}), captions());
    EXPECT_EQ(nullptr, variables[1]);
    clearing.Release();
    EXPECT_EQ(0, clearing.references());
}

// --- Focus and existence ---

TEST_F(DiversForm, focusGoesToAControlThatCanTakeIt) {
    form.show();
    SetForegroundWindow(form.handle());
    auto& one = form.add<TextBox>({.name = L"txtOne", .at = {100, 100, 900, 300}});
    auto& other = form.add<TextBox>({.name = L"txtOther", .at = {100, 500, 900, 300}});
    run(L"eSetFocus", {object(&one)});
    EXPECT_EQ(one.handle(), GetFocus());
    run(L"eSetFocus", {object(&other)});
    EXPECT_EQ(other.handle(), GetFocus());
    one.put(L"Enabled", false);
    run(L"eSetFocus", {object(&one)});
    one.put(L"Enabled", true);
    one.put(L"Visible", false);
    run(L"eSetFocus", {object(&one)});
    EXPECT_EQ(other.handle(), GetFocus());
    EXPECT_EQ(0u, host.record().logged(L"call txtOne.SetFocus") - 1);
    run(L"eSetFocus", {nothing()});
    ScriptedObject plain, always;
    run(L"eSetFocus", {object(&plain)});
    always.property(L"Visible", short16(1)).property(L"Enabled", text(L"-1"));
    int focused = 0;
    always.method(L"SetFocus", [&](const ScriptedObject::Call&) {
        ++focused;
        return Variant();
    });
    run(L"eSetFocus", {object(&always)});
    EXPECT_EQ(1, focused);
}

TEST_F(DiversForm, controlsExistWhenTheirLeftCanBeRead) {
    auto& box = form.add<TextBox>({.name = L"txt"});
    ScriptedObject plain;
    Variant variable = object(&box);
    expectResult(call(L"IsControlExist", {object(&box)}), true);
    expectResult(call(L"IsControlExist", {byReference(variable)}), true);
    expectResult(call(L"IsControlExist", {object(&form)}), true);
    expectResult(call(L"IsControlExist", {object(&plain)}), false);
    for (const Variant& none : {nothing(), Variant(), nullValue(), text(L"txt"), short16(1), missing()})
        expectResult(call(L"IsControlExist", {none}), false, describe(none.raw()));
    const HostObject kept(&box);
    form.unload();
    expectResult(call(L"IsControlExist", {object(&box)}), false);
}

TEST_F(DiversForm, propertiesAreProbed) {
    auto& box = form.add<TextBox>({.name = L"txt"});
    ScriptedObject object_;
    int called = 0;
    object_.method(L"Refresh", [&](const ScriptedObject::Call& given) {
        if (given.kind() == DISPATCH_METHOD) ++called;
        return Variant();
    });
    for (const wchar_t* name : {L"PropertyExist", L"IsPropertyExist"}) {
        expectResult(call(name, {object(&box), text(L"Text")}), true);
        expectResult(call(name, {object(&box), text(L"TEXT"), short16(2)}), true);
        expectResult(call(name, {object(&box), text(L"Index")}), false);
        expectResult(call(name, {object(&box), text(L"ScaleMode")}), false);
        expectResult(call(name, {object(&form), text(L"ScaleMode")}), true);
        expectResult(call(name, {object(&box), text(L"")}), false);
        expectResult(call(name, {nothing(), text(L"Text")}), false);
        // The member is really called.
        called = 0;
        expectResult(call(name, {object(&object_), text(L"Refresh"), long32(1)}), true);
        EXPECT_EQ(1, called);
        // No kind of call has more than 16 bits.
        expectResult(call(name, {object(&box), text(L"Text"), long32(65538)}), false);
    }
}

TEST_F(DiversForm, formsAreLoadedUntilTheyAreUnloaded) {
    auto& other = host.load(L"frmAutre");
    const ComPointer<forms::Form> kept(&other);
    const auto forms = host.forms();
    const auto loaded = [&](const Variant& which) {
        return call(L"IsFormLoad", {which, object(forms.get())});
    };
    expectResult(loaded(text(L"frmMain")), true);
    expectResult(loaded(text(L"frmAutre")), true);
    expectResult(loaded(text(L"frmautre")), false);
    expectResult(loaded(text(L"")), false);
    const auto handle = other.getAs<std::int32_t>(L"hWnd");
    expectResult(loaded(long32(handle)), true);
    Variant variable = long32(handle);
    expectResult(loaded(byReference(variable)), true);
    // No other type is a handle or a name.
    for (const Variant& value : {Variant(static_cast<double>(handle)), short16(0), Variant(), nullValue()})
        expectResult(loaded(value), false, describe(value.raw()));
    other.unload();
    expectResult(loaded(text(L"frmAutre")), false);
    expectResult(loaded(long32(handle)), false);
    // Unguarded.
    expectError(call(L"IsFormLoad", {text(L"frmMain"), nothing()}), 91);
    expectError(call(L"IsFormLoad", {text(L"frmMain"), Variant()}), 424);
    expectError(call(L"IsFormLoad", {text(L"frmMain"), text(L"Forms")}), 424);
    host.record().fail(3, {DISP_E_EXCEPTION, 70});  // the name of the first form
    expectError(loaded(text(L"frmMain")), 70);
}

// --- Scale modes ---

TEST_F(Divers, scaleModesHaveNames) {
    const wchar_t* const names[] = {L"user",      L"twip", L"point",      L"pixel",
                                    L"character", L"inch", L"millimeter", L"centimeter"};
    for (int mode = 0; mode < 8; ++mode)
        expectResult(call(L"ContainerScaleMode", {text(names[mode])}), short16(mode), narrow(names[mode]));
    const struct {
        const wchar_t *given, *left;
        int mode;
    } rows[] = {{L"PIXEL", L"pixel", 3},
                {L"Centimeter", L"centimeter", 7},
                {L"ÉTÉ", L"été", 1},
                {L"", L"", 1},
                {L" Pixel", L" pixel", 1}};
    for (const auto& row : rows) {
        Variant variable = text(row.given);
        expectResult(call(L"ContainerScaleMode", {byReference(variable)}), short16(row.mode));
        EXPECT_EQ(describe(text(row.left).raw()), describe(variable.raw()));
    }
    // What cannot be made lower-case stays.
    Intercept<decltype(LCMapStringW)> mapping(module, "kernel32.dll", "LCMapStringW");
    mapping.failCall(1, 0);
    Variant variable = text(L"PIXEL");
    expectResult(call(L"ContainerScaleMode", {byReference(variable)}), short16(1));
    EXPECT_EQ(describe(text(L"PIXEL").raw()), describe(variable.raw()));
}

TEST_F(DiversForm, containersHaveScaleModes) {
    form.put(L"ScaleMode", std::int16_t{3});
    auto& frame = form.add<Frame>({.name = L"fra"});
    auto& picture = form.add<PictureBox>({.name = L"pic"});
    picture.put(L"ScaleMode", std::int16_t{6});
    auto& onForm = form.add<TextBox>({.name = L"txt1"});
    auto& inFrame = form.add<TextBox>({.name = L"txt2", .in = &frame});
    auto& inPicture = form.add<TextBox>({.name = L"txt3", .in = &picture});
    expectResult(call(L"FindContainerScaleMode", {object(&onForm)}), short16(3));
    expectResult(call(L"FindContainerScaleMode", {object(&inFrame)}), short16(1));
    expectResult(call(L"FindContainerScaleMode", {object(&inPicture)}), short16(6));
    expectResult(call(L"FindContainerScaleMode", {object(&form)}), short16(0));
    expectResult(call(L"FindContainerScaleMode", {nothing()}), short16(0));
    expectResult(call(L"FindObjectContainerScaleMode", {object(&onForm)}), object(&form));
    expectResult(call(L"FindObjectContainerScaleMode", {object(&inFrame)}), nothing());
    expectResult(call(L"FindObjectContainerScaleMode", {object(&inPicture)}), object(&picture));
    expectResult(call(L"FindObjectContainerScaleMode", {object(&form)}), nothing());
    expectResult(call(L"FindObjectContainerScaleMode", {nothing()}), nothing());
}

// --- Containers and what is in them ---

bool isEnabled(const forms::Window& window) { return IsWindowEnabled(window.handle()) != FALSE; }

TEST_F(DiversForm, framesAreDisabledWithAllTheyHold) {
    auto& outer = form.add<Frame>({.name = L"fraOuter"});
    auto& inner = form.add<Frame>({.name = L"fraInner", .in = &outer});
    auto& innermost = form.add<Frame>({.name = L"fraInnermost", .in = &inner, .typeName = L"FramePlus"});
    auto& one = form.add<TextBox>({.name = L"txt", .in = &outer});
    auto& two = form.add<CheckBox>({.name = L"chk", .in = &inner});
    auto& three = form.add<CommandButton>({.name = L"cmd", .in = &innermost});
    auto& picture = form.add<PictureBox>({.name = L"pic", .in = &outer});
    auto& onPicture = form.add<TextBox>({.name = L"txtPic", .in = &picture});
    auto& outside = form.add<TextBox>({.name = L"txtOutside"});
    forms::Window* const inside[] = {&outer, &inner, &innermost, &one, &two, &three, &picture};
    for (const bool enabled : {false, true}) {
        run(L"FrameChangeEnabled", {object(&form), object(&outer), enabled});
        for (const auto* window : inside) EXPECT_EQ(enabled, isEnabled(*window)) << narrow(window->path());
        // Only frames are entered.
        EXPECT_TRUE(isEnabled(onPicture));
        EXPECT_TRUE(isEnabled(outside));
    }
    run(L"FrameChangeEnabled", {object(&form), object(&inner), false});
    for (const auto* window : {static_cast<forms::Window*>(&inner), static_cast<forms::Window*>(&innermost),
                               static_cast<forms::Window*>(&two), static_cast<forms::Window*>(&three)})
        EXPECT_FALSE(isEnabled(*window));
    EXPECT_TRUE(isEnabled(outer));
    EXPECT_TRUE(isEnabled(one));
    // A picture box is a container like any other, and so is the form.
    run(L"FrameChangeEnabled", {object(&form), object(&picture), false});
    EXPECT_FALSE(isEnabled(onPicture));
    run(L"FrameChangeEnabled", {object(&form), object(&form), false});
    EXPECT_FALSE(isEnabled(form));
    EXPECT_FALSE(isEnabled(outside));
}

TEST_F(DiversForm, elementsOfAnArrayOfFramesAreToldApart) {
    auto& first = form.add<Frame>({.name = L"fra", .index = 0});
    auto& second = form.add<Frame>({.name = L"fra", .index = 1});
    auto& inFirst = form.add<TextBox>({.name = L"txt", .index = 0, .in = &first});
    auto& inSecond = form.add<TextBox>({.name = L"txt", .index = 1, .in = &second});
    // A frame of the same array inside another one.
    auto& nested = form.add<Frame>({.name = L"fra", .index = 2, .in = &second});
    auto& inNested = form.add<TextBox>({.name = L"txt", .index = 2, .in = &nested});
    run(L"FrameChangeEnabled", {object(&form), object(&first), false});
    EXPECT_FALSE(isEnabled(first) || isEnabled(inFirst));
    EXPECT_TRUE(isEnabled(second) && isEnabled(inSecond) && isEnabled(nested) && isEnabled(inNested));
    run(L"FrameChangeEnabled", {object(&form), object(&second), false});
    EXPECT_FALSE(isEnabled(second) || isEnabled(inSecond) || isEnabled(nested) || isEnabled(inNested));
}

// A form of scripted objects, for containers that real forms do not have.
class DiversScripted : public Divers {
protected:
    ~DiversScripted() override {
        // Controls may refer to each other in a circle.
        for (auto& control : controls) control->value(L"Container") = Variant();
    }

    ScriptedObject& add(const wchar_t* className, const wchar_t* name, ScriptedObject* container) {
        auto& control = *controls.emplace_back(std::make_unique<ScriptedObject>());
        control.className(className).property(L"Name", text(name)).property(L"Enabled", true);
        control.property(L"Container", container ? object(container) : Variant());
        return control;
    }
    // A container that is no control of the form.
    ScriptedObject& addContainer(const wchar_t* name, Variant index = {}) {
        auto& container = *containers.emplace_back(std::make_unique<ScriptedObject>());
        container.property(L"Name", text(name)).property(L"Enabled", true);
        if (!index.view().isEmpty()) container.property(L"Index", std::move(index));
        return container;
    }
    void complete(ScriptedObject::Walk walk = ScriptedObject::Walk::byEnumerator) {
        std::vector<Variant> items;
        for (auto& control : controls) items.push_back(object(control.get()));
        list.items(std::move(items), walk);
        form.property(L"Controls", object(&list));
    }
    bool enabled(ScriptedObject& control) { return control.value(L"Enabled").raw().boolVal != VARIANT_FALSE; }
    void disable(ScriptedObject& container) {
        run(L"FrameChangeEnabled", {object(&form), object(&container), false});
    }

    // What refers to others is destroyed before them.
    std::vector<std::unique_ptr<ScriptedObject>> containers, controls;
    ScriptedObject list, form;
};

TEST_F(DiversScripted, containersWithoutAnIndexMatchByNameAlone) {
    auto& container = addContainer(L"fra", short16(3));
    auto& sameName = addContainer(L"fra");
    auto& otherCase = addContainer(L"FRA", short16(3));
    auto& elsewhere = addContainer(L"fra", short16(4));
    auto& alike = add(L"TextBox", L"txt1", &sameName);
    auto& other = add(L"TextBox", L"txt2", &otherCase);
    auto& contained = add(L"TextBox", L"txt3", &container);
    auto& nowhere = add(L"TextBox", L"txt4", nullptr);
    auto& another = add(L"TextBox", L"txt5", &elsewhere);
    for (const auto walk : {ScriptedObject::Walk::byEnumerator, ScriptedObject::Walk::byCountAndItem}) {
        for (auto& control : controls) control->value(L"Enabled") = true;
        container.value(L"Enabled") = true;
        complete(walk);
        disable(container);
        EXPECT_FALSE(enabled(alike));
        EXPECT_TRUE(enabled(other));
        EXPECT_FALSE(enabled(contained));
        EXPECT_TRUE(enabled(nowhere));
        EXPECT_TRUE(enabled(another));
        EXPECT_FALSE(enabled(container));
    }
    // A negative index does not tell elements apart.
    container.value(L"Index") = short16(-1);
    disable(container);
    EXPECT_FALSE(enabled(another));
    EXPECT_EQ(1, container.references());
    EXPECT_EQ(1, sameName.references());
}

TEST_F(DiversScripted, framesThatContainEachOtherAreEnteredOnce) {
    auto& one = add(L"Frame", L"fraOne", nullptr);
    auto& other = add(L"SSFrame", L"fraOther", &one);
    one.value(L"Container") = object(&other);
    auto& itself = add(L"Frame", L"fraItself", nullptr);
    itself.value(L"Container") = object(&itself);
    auto& box = add(L"TextBox", L"txt", &itself);
    complete();
    disable(one);
    EXPECT_FALSE(enabled(one) || enabled(other));
    EXPECT_TRUE(enabled(itself));
    disable(itself);
    EXPECT_FALSE(enabled(itself) || enabled(box));
}

TEST_F(DiversScripted, framesAreEnteredToADepthOfAHundred) {
    ScriptedObject* around = nullptr;
    for (int level = 0; level < 300; ++level)
        around = &add(L"Frame", (L"fra" + std::to_wstring(level)).c_str(), around);
    complete();
    disable(*controls[0]);
    for (std::size_t level = 0; level < 300; ++level)
        EXPECT_EQ(level > 100, enabled(*controls[level])) << level;
}

TEST_F(DiversScripted, aContainerWithoutANameIsStillChanged) {
    auto& container = addContainer(L"");
    container.value(L"Name") = nullValue();
    auto& box = add(L"TextBox", L"txt", &container);
    complete();
    disable(container);
    EXPECT_FALSE(enabled(container));
    EXPECT_TRUE(enabled(box));
    container.value(L"Enabled") = true;
    run(L"FrameChangeEnabled", {nothing(), object(&container), false});
    EXPECT_FALSE(enabled(container));
    run(L"FrameChangeEnabled", {object(&form), nothing(), false});
    EXPECT_TRUE(enabled(box));
}

TEST_F(DiversForm, clearingAFormEmptiesItsControls) {
    auto& box = form.add<TextBox>({.name = L"txt", .text = L"texte"});
    auto& combo = form.add<ComboBox>({.name = L"cbo", .text = L"Paris"});
    auto& list = form.add<ListBox>({.name = L"lst"});
    auto& check = form.add<CheckBox>({.name = L"chk"});
    auto& option = form.add<OptionButton>({.name = L"opt"});
    auto& label = form.add<Label>({.name = L"lbl", .text = L"Nom"});
    ComPointer<IDispatch> listObject(&list);
    invoke(&list, L"AddItem", {text(L"ligne")});
    list.put(L"ListIndex", std::int16_t{0});
    check.put(L"Value", std::int16_t{1});
    option.put(L"Value", true);
    run(L"FormEffaceCtl", {object(&form)});
    EXPECT_EQ(L"", box.getAs<Text>(L"Text"));
    EXPECT_EQ(L"", combo.getAs<Text>(L"Text"));
    EXPECT_EQ(-1, list.getAs<std::int32_t>(L"ListIndex"));
    EXPECT_EQ(0, check.getAs<std::int32_t>(L"Value"));
    EXPECT_FALSE(option.getAs<bool>(L"Value"));
    EXPECT_EQ(L"Nom", label.getAs<Text>(L"Caption"));
    run(L"FormEffaceCtl", {nothing()});
    run(L"FormEffaceCtl", {object(&box)});
}

TEST_F(DiversScripted, clearingGivesEachPropertyItsOwnType) {
    auto& control = add(L"Tout", L"tout", nullptr);
    control.property(L"Text", short16(1)).property(L"ListIndex", short16(1)).property(L"Value", short16(1));
    auto& partly = add(L"Partie", L"partie", nullptr);
    partly.readOnly(L"Text", text(L"stays")).property(L"Value", long32(7));
    complete();
    run(L"FormEffaceCtl", {object(&form)});
    EXPECT_EQ(describe(text(L"").raw()), describe(control.value(L"Text").raw()));
    EXPECT_EQ(describe(short16(-1).raw()), describe(control.value(L"ListIndex").raw()));
    EXPECT_EQ(describe(Variant(false).raw()), describe(control.value(L"Value").raw()));
    EXPECT_EQ(describe(text(L"stays").raw()), describe(partly.value(L"Text").raw()));
    EXPECT_EQ(describe(Variant(false).raw()), describe(partly.value(L"Value").raw()));
}

// A form whose first control lets go of everything as soon as it is used.
class DiversEndingForm : public DiversScripted {
protected:
    void runWithEnd(const wchar_t* name, std::initializer_list<Variant> more) {
        auto& container = addContainer(L"fra");
        int uses = 0;
        AskedObject ending({}, [&] {
            ++uses;
            form.value(L"Controls") = nothing();
            list.items({}, ScriptedObject::Walk::byEnumerator);
        });
        ending.property(L"Text", text(L"a")).property(L"Container", object(&container));
        auto& second = add(L"TextBox", L"txt2", &container);
        second.property(L"Text", text(L"b"));
        list.items({object(&ending), object(&second)}, ScriptedObject::Walk::byEnumerator);
        form.property(L"Controls", object(&list));
        Arguments arguments = more.size() == 0 ? Arguments{object(&form)}
                                               : Arguments{object(&form), object(&container), *more.begin()};
        run(name, std::move(arguments));
        EXPECT_GT(uses, 0);
        arguments = {};
        EXPECT_EQ(0, list.references());
        EXPECT_EQ(0, ending.references());
        EXPECT_EQ(0, second.references());
        ending.value(L"Container") = Variant();
    }
};

TEST_F(DiversEndingForm, mayEndWhileItIsCleared) { runWithEnd(L"FormEffaceCtl", {}); }
TEST_F(DiversEndingForm, mayEndWhileItIsDisabled) { runWithEnd(L"FrameChangeEnabled", {false}); }

// --- Option buttons ---

TEST_F(DiversForm, theChosenOptionOfAnArrayIsFound) {
    auto& alone = form.add<OptionButton>({.name = L"optAlone"});
    OptionButton* buttons[3];
    for (std::int16_t i = 0; i < 3; ++i) buttons[i] = &form.add<OptionButton>({.name = L"opt", .index = i});
    const auto array = invoke(form.get(L"Controls").raw().pdispVal, L"Item", {text(L"opt")}).result;
    ASSERT_EQ(VT_DISPATCH, array.raw().vt);
    expectResult(call(L"OptionButtonValue", {array}), short16(-1));
    for (std::int16_t i = 2; i >= 0; --i) {
        buttons[i]->put(L"Value", true);
        expectResult(call(L"OptionButtonValue", {array}), short16(i));
        expectResult(call(L"OptionButtonValue", {array, missing()}), short16(i));
        expectResult(call(L"OptionButtonValue", {array, true}), short16(i));
    }
    expectResult(call(L"OptionButtonValue", {array, false}), short16(1));
    alone.put(L"Value", true);
    expectResult(call(L"OptionButtonValue", {object(&alone)}), short16(-1));
    expectResult(call(L"OptionButtonValue", {nothing()}), short16(-1));
}

class DiversOptions : public Divers {
protected:
    // An array whose elements have these values.
    Outcome find(std::vector<Variant> values, std::initializer_list<Variant> wanted = {}) {
        std::vector<std::unique_ptr<ScriptedObject>> buttons;
        std::vector<Variant> items;
        for (auto& value : values) {
            buttons.push_back(std::make_unique<ScriptedObject>());
            buttons.back()->property(L"Value", std::move(value));
            items.push_back(object(buttons.back().get()));
        }
        ScriptedObject array;
        array.items(items, ScriptedObject::Walk::byCountAndDefault);
        return wanted.size() == 0 ? call(L"OptionButtonValue", {object(&array)})
                                  : call(L"OptionButtonValue", {object(&array), *wanted.begin()});
    }
};

TEST_F(DiversOptions, valuesAreComparedAsHostsDo) {
    expectResult(find({short16(0), short16(1), short16(-1)}), short16(2));
    expectResult(find({short16(0), short16(1), short16(2)}, {short16(1)}), short16(1));
    expectResult(find({long32(5), 5.0, short16(5)}, {5.0}), short16(0));
    expectResult(find({text(L"a"), text(L"b")}, {text(L"b")}), short16(1));
    // A text is no number.
    expectResult(find({text(L"1"), short16(1)}, {short16(1)}), short16(1));
    expectResult(find({nullValue(), true}), short16(1));
    expectResult(find({nullValue(), true}, {nullValue()}), short16(-1));
    expectResult(find({}), short16(-1));
    ScriptedObject wanted(short16(7));
    expectResult(find({short16(6), short16(7)}, {object(&wanted)}), short16(1));
    expectResult(find({short16(6), object(&wanted)}, {short16(7)}), short16(1));
    EXPECT_EQ(0, wanted.references());
}

TEST_F(DiversOptions, aFailureEndsTheSearch) {
    ScriptedObject noArray, button, gap;
    noArray.property(L"Count", text(L"trois"));
    expectResult(call(L"OptionButtonValue", {object(&noArray)}), short16(-1));
    // The second element is gone: the third is not reached.
    button.property(L"Value", true);
    ScriptedObject off, array;
    off.property(L"Value", false);
    array.items({object(&off), nothing(), object(&button)}, ScriptedObject::Walk::byCountAndDefault);
    expectResult(call(L"OptionButtonValue", {object(&array)}), short16(-1));
}

TEST_F(DiversOptions, positionsHave16Bits) {
    ScriptedObject off, on, array;
    off.property(L"Value", false);
    on.property(L"Value", true);
    std::vector<Variant> items(32769, object(&off));
    items[32768] = object(&on);
    array.items(items, ScriptedObject::Walk::byCountAndDefault);
    expectResult(call(L"OptionButtonValue", {object(&array)}), short16(-1));
    items[32767] = object(&on);
    ScriptedObject shorter;
    shorter.items(items, ScriptedObject::Walk::byCountAndDefault);
    expectResult(call(L"OptionButtonValue", {object(&shorter)}), short16(32767));
}

// --- Fonts ---

Variant fontValue(const HostFont& font, DISPID property) {
    DISPPARAMS none{};
    Variant value;
    EXPECT_EQ(S_OK, font->Invoke(property, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.put(), nullptr,
                                 nullptr));
    return value;
}

TEST_F(Divers, fontsAreCopied) {
    const auto source = forms::newFont(L"Marlett", 12), target = forms::newFont();
    const auto put = [&](DISPID property, Variant value) {
        DISPID stored = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{value.put(), &stored, 1, 1};
        EXPECT_EQ(S_OK, source->Invoke(property, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                                       nullptr, nullptr));
    };
    for (const DISPID style : {DISPID_FONT_ITALIC, DISPID_FONT_UNDER, DISPID_FONT_STRIKE, DISPID_FONT_BOLD})
        put(style, true);
    put(DISPID_FONT_CHARSET, short16(SYMBOL_CHARSET));
    const auto expectCopied = [&] {
        // The number 1 is no property.
        for (const DISPID property : {0, 2, 3, 4, 5, 6, 7, 8})
            EXPECT_EQ(describe(fontValue(source, property).raw()),
                      describe(fontValue(target, property).raw()))
                << property;
        EXPECT_EQ(describe(text(L"Marlett").raw()), describe(fontValue(target, DISPID_FONT_NAME).raw()));
        EXPECT_EQ(describe(short16(FW_BOLD).raw()), describe(fontValue(target, DISPID_FONT_WEIGHT).raw()));
        EXPECT_EQ(describe(Variant(true).raw()), describe(fontValue(target, DISPID_FONT_UNDER).raw()));
    };
    run(L"CopyFont", {object(source.get()), object(target.get())});
    expectCopied();
    // Nothing on either side, and a font onto itself.
    run(L"CopyFont", {nothing(), object(target.get())});
    run(L"CopyFont", {object(source.get()), nothing()});
    run(L"CopyFont", {object(source.get()), object(source.get())});
    expectCopied();
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"CopyFont", {object(divers.get()), object(target.get())}).code);
}

// A font of the test's own: it notes the identifiers that are used, and fails one of them.
class NotedFont : public IFontDisp {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IDispatch || id == IID_IFontDisp;
        *object = known ? this : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        ++lookups;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) override {
        if (id == failing) return E_FAIL;
        used.push_back(id);
        if (kind == DISPATCH_PROPERTYGET) {
            result->vt = VT_I4;
            result->lVal = 100 + id;
        } else {
            EXPECT_EQ(DISPATCH_PROPERTYPUT, kind);
            EXPECT_EQ(1u, parameters->cNamedArgs);
            EXPECT_EQ(DISPID_PROPERTYPUT, parameters->rgdispidNamedArgs[0]);
            EXPECT_EQ(100 + id, parameters->rgvarg[0].lVal);
        }
        return S_OK;
    }

    std::vector<DISPID> used;
    DISPID failing = -1;
    int lookups = 0;
    ULONG references = 0;
};

TEST_F(Divers, fontsAreCopiedByTheIdentifiersOfTheStandardFont) {
    const std::vector<DISPID> order{3, 8, 4, 0, 2, 6, 5, 7};
    // Each property failing in turn, in the source and in the target: only that one is left out.
    for (DISPID failing = -1; failing <= 8; ++failing)
        for (const bool inSource : {true, false}) {
            NotedFont source, target;
            (inSource ? source : target).failing = failing;
            run(L"CopyFont", {object(&source), object(&target)});
            auto rest = order;
            std::erase(rest, failing);
            EXPECT_EQ(inSource ? rest : order, source.used) << failing;
            EXPECT_EQ(rest, target.used) << failing;
            EXPECT_EQ(0, source.lookups + target.lookups);
            EXPECT_EQ(0u, source.references + target.references);
        }
}

}  // namespace
}  // namespace vorla::test
