// VorlaDivers' helpers on containers: frames and forms with all they hold, and arrays of option buttons.
// Scripted objects stand for containers that real forms do not have.
#include <memory>

#include "contract/divers_fixture.h"
#include "support/asked_object.h"

namespace vorla::test {
namespace {

using forms::CheckBox;
using forms::ComboBox;
using forms::CommandButton;
using forms::Frame;
using forms::Label;
using forms::ListBox;
using forms::OptionButton;
using forms::PictureBox;
using forms::TextBox;

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
    // A container that is not a control of the form.
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
    // A text is not a number.
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

}  // namespace
}  // namespace vorla::test
