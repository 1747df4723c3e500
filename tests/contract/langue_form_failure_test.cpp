// A host that fails at any of its calls: loading and saving a form continue, and miss only the step that
// failed.
#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "contract/langue_form_fixture.h"
#include "support/failing_calls.h"
#include "support/import_patch.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

using Names = std::set<std::wstring>;

// A call that was refused: the object's name, and the call as in its log.
struct Refused {
    std::wstring object, call;
};

class LangueFailingForms : public LangueForms {
protected:
    LangueFailingForms() {
        languageFile(
            L"ENG",
            L"[frmMain]\r\nfrmMain#Caption=new\r\nlbl#Caption=new\r\nlbl#Text=new\r\nlbl#ToolTipText=new\r\n"
            L"opt#1#Caption=new\r\nopt#1#Text=new\r\nopt#1#ToolTipText=new\r\n"
            L"chk#Caption=new\r\nchk#Text=new\r\nchk#ToolTipText=new\r\n");
        select(L"ENG");
        theme(true);
    }

    // A label, a member of a control array and a check box, with every text that a control can have.
    static void fill(Form& form) {
        for (const auto& [className, name] :
             {std::pair{L"Label", L"lbl"}, {L"OptionButton", L"opt"}, {L"CheckBox", L"chk"}}) {
            auto& control = form.add(className, name, L"old");
            control.property(L"Text", text(L"old")).property(L"ToolTipText", text(L"old"));
            if (name == std::wstring(L"opt")) control.property(L"Index", short16(1));
        }
        form.complete();
    }

    static std::map<std::wstring, ScriptedObject*> objectsOf(Form& form) {
        return {{L"form", &form.form},           {L"list", &form.list},          {L"lbl", &form.controls[0]},
                {L"opt", &form.controls[1]},     {L"chk", &form.controls[2]},    {L"label", &form.label},
                {L"measuring", &form.measuring}, {L"container", &form.container}};
    }

    // The calls of an object without lookups. Failures are counted in these.
    static std::vector<std::wstring> callsOf(ScriptedObject& object) {
        std::vector<std::wstring> calls;
        for (const auto& line : object.log())
            if (!line.starts_with(L"lookup")) calls.push_back(line);
        return calls;
    }

    // Runs the work with each call of each object failing in turn, and passes the refused call to the check.
    void failEachInTurn(const std::function<void(Form&)>& work,
                        const std::function<void(Form&, const Refused&, std::size_t)>& check) {
        std::map<std::wstring, std::vector<std::wstring>> calls;
        {
            Form form;
            fill(form);
            work(form);
            for (const auto& [name, object] : objectsOf(form)) calls[name] = callsOf(*object);
            check(form, {L"", L""}, 0);
        }
        std::size_t failures = 0;
        for (const auto& [name, made] : calls) {
            for (std::size_t i = 0; i < made.size(); ++i) {
                Form form;
                fill(form);
                ScriptedObject& failing = *objectsOf(form)[name];
                // First as hosts report failures, then as a broken connection does.
                if (i % 2 == 0)
                    failing.failCallWithNumber(static_cast<int>(i) + 1, 438);
                else
                    failing.failCall(static_cast<int>(i) + 1, RPC_E_DISCONNECTED);
                work(form);
                // Which of the calls of that name it was.
                std::size_t number = 0;
                for (std::size_t j = 0; j <= i; ++j) number += made[j] == made[i];
                check(form, {name, made[i]}, number);
                form.expectNothingHeld();
                ++failures;
            }
        }
        EXPECT_GT(failures, 20u);
    }
};

// Everything that loading should have changed and did not.
Names unchanged(Form& form) {
    Names names;
    const auto note = [&](bool changed, const std::wstring& name) {
        if (!changed) names.insert(name);
    };
    note(textIn(form.form, L"Caption") == L"new", L"form.Caption");
    note(numberIn(form.form, L"BackColor") == themed, L"form.BackColor");
    for (auto& control : form.controls) {
        const auto name = textIn(control, L"Name") + L'.';
        for (const wchar_t* property : {L"Caption", L"Text", L"ToolTipText"})
            note(textIn(control, property) == L"new", name + property);
        note(numberIn(control, L"BackColor") == themed, name + L"BackColor");
        // 40 pixels and 330 twips.
        if (name != L"lbl.") note(widthOf(control) == 930, name + L"Width");
    }
    return names;
}

std::size_t howMany(const Names& names, const std::wstring& end) {
    std::size_t count = 0;
    for (const auto& name : names) count += name.ends_with(end);
    return count;
}

TEST_F(LangueFailingForms, loadingMissesOnlyTheStepThatFailed) {
    failEachInTurn(
        [this](Form& form) { load(form); },
        [](Form& form, const Refused& refused, std::size_t number) {
            const auto& [object, call] = refused;
            const auto missed = unchanged(form);
            const auto what = narrow(object) + ": " + narrow(call) + " " + std::to_string(number);
            const Names texts{L"lbl.Caption", L"lbl.Text", L"lbl.ToolTipText",
                              L"opt.Caption", L"opt.Text", L"opt.ToolTipText",
                              L"chk.Caption", L"chk.Text", L"chk.ToolTipText"};
            if (object == L"") {
                EXPECT_EQ(Names(), missed);
            } else if (call == L"get Controls" || call == L"get (enumerator)") {
                // The walk itself fails: only the form is done. Three controls keep four properties each, and
                // two keep their widths.
                EXPECT_EQ(14u, missed.size()) << what;
                EXPECT_FALSE(missed.contains(L"form.Caption") || missed.contains(L"form.BackColor")) << what;
            } else if (call == L"next") {
                EXPECT_EQ(Names(), missed) << what;
            } else if (object == L"form" && call == L"get Name" && number == 2) {
                // The section of all controls.
                EXPECT_EQ(texts, missed) << what;
            } else if (object == L"form") {
                const bool isColour = call.ends_with(L"BackColor") || call.ends_with(L"Tag");
                EXPECT_EQ(Names{isColour ? L"form.BackColor" : L"form.Caption"}, missed) << what;
            } else if (object == L"opt" && call == L"get Index") {
                // Its texts are then looked up without an index.
                EXPECT_EQ((Names{L"opt.Caption", L"opt.Text", L"opt.ToolTipText"}), missed) << what;
            } else if (object == L"lbl" || object == L"opt" || object == L"chk") {
                EXPECT_LE(missed.size(), 1u) << what;
                for (const auto& name : missed) EXPECT_TRUE(name.starts_with(object + L'.')) << what;
            } else {
                // A measuring object fails: one control keeps its width, or gets a width in the wrong scale.
                EXPECT_LE(missed.size(), 1u) << what;
                EXPECT_EQ(missed.size(), howMany(missed, L".Width")) << what;
            }
        });
}

// The keys that a form's saving wrote.
TEST_F(LangueFailingForms, savingMissesOnlyTheTextThatFailed) {
    Names written;
    Intercept<decltype(WritePrivateProfileStringA)> write(component.module(), "kernel32.dll",
                                                          "WritePrivateProfileStringA");
    write.answer([&](LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR) {
        // Without a key this call would delete a section, without a value a key.
        EXPECT_STREQ("frmMain", section);
        EXPECT_NE(nullptr, key);
        EXPECT_NE(nullptr, value);
        if (key) written.insert(Text(fromAnsi(key)));
        return TRUE;
    });
    const Names all{L"frmMain#Caption", L"lbl#Caption",    L"lbl#Text",          L"lbl#ToolTipText",
                    L"opt#1#Caption",   L"opt#1#Text",     L"opt#1#ToolTipText", L"chk#Caption",
                    L"chk#Text",        L"chk#ToolTipText"};
    failEachInTurn(
        [&](Form& form) {
            written.clear();
            run(L"LngFormSave", {object(&form.form), text(L"NEW")});
        },
        [&](Form&, const Refused& refused, std::size_t number) {
            const auto& [object, call] = refused;
            const auto what = narrow(object) + ": " + narrow(call) + " " + std::to_string(number);
            if (object == L"") {
                EXPECT_EQ(all, written);
            } else if (call == L"get Controls" || call == L"get (enumerator)") {
                EXPECT_EQ(Names{L"frmMain#Caption"}, written) << what;
            } else if (call == L"next") {
                EXPECT_EQ(all, written) << what;
            } else if (object == L"opt" && call == L"get Index") {
                EXPECT_EQ(all.size(), written.size()) << what;
                EXPECT_TRUE(written.contains(L"opt#Caption")) << what;
            } else {
                EXPECT_EQ(all.size() - 1, written.size()) << what;
                for (const auto& key : written) EXPECT_TRUE(all.contains(key)) << what;
            }
        });
}

TEST_F(LangueFailingForms, aHostThatFailsForGoodEndsThem) {
    for (const wchar_t* broken : {L"form", L"list", L"lbl", L"opt", L"label", L"measuring", L"container"}) {
        for (int from = 1; from <= 6; ++from) {
            Form form;
            fill(form);
            auto& failing = *objectsOf(form)[broken];
            for (int i = 0; i < 1000; ++i) failing.failCall(from + i, RPC_E_DISCONNECTED);
            load(form);
            run(L"LngFormSave", {object(&form.form), text(L"NEW")});
            form.expectNothingHeld();
            // A walk that keeps failing ends.
            EXPECT_LE(failing.log().size(), 400u) << narrow(broken);
        }
    }
}

TEST_F(LangueFailingForms, whatCannotBeReadIsNotWritten) {
    std::vector<std::wstring> calls;
    {
        Form form;
        fill(form);
        load(form);
        calls = callsOf(form.controls[0]);
    }
    for (const wchar_t* property : {L"Caption", L"Text", L"ToolTipText"}) {
        const std::wstring read = std::wstring(L"get ") + property;
        const auto place = std::find(calls.begin(), calls.end(), read) - calls.begin();
        Form form;
        fill(form);
        form.controls[0].failCallWithNumber(static_cast<int>(place) + 1, 438);
        load(form);
        EXPECT_EQ(Names{std::wstring(L"lbl.") + property}, unchanged(form));
        EXPECT_EQ(0u, form.controls[0].logged(std::wstring(L"put ") + property));
    }
}

TEST_F(LangueFailingForms, onlyFailuresInARowEndTheWalk) {
    Form form;
    fill(form);
    auto& last = form.controls[0];
    std::vector<Variant> items(120, object(&form.controls[1]));
    items.push_back(object(&last));
    form.list.items(items, ScriptedObject::Walk::byEnumerator);
    // After the enumerator and one item, every other call fails.
    for (int failing = 3; failing <= 2 * 120 + 1; failing += 2)
        form.list.failCall(failing, RPC_E_DISCONNECTED);
    load(form);
    EXPECT_EQ(L"new", textIn(last, L"Caption"));
    EXPECT_EQ(120u + 121u + 1u, form.list.logged(L"next"));
}

TEST_F(LangueFailingForms, aColourWithoutASignOverflowsNowhere) {
    Form form;
    fill(form);
    Variant unsignedFace;
    unsignedFace.put()->vt = VT_UI4;
    unsignedFace.put()->ulVal = 0x8000000F;
    put(L"ThemedOldColor", colour(buttonFace));
    form.form.value(L"BackColor") = unsignedFace;
    for (auto& control : form.controls) control.value(L"BackColor") = unsignedFace;
    Intercept<decltype(VariantChangeTypeEx)> convert(component.module(), "oleaut32.dll",
                                                     "VariantChangeTypeEx");
    convert.answer([&](VARIANTARG* to, VARIANTARG* from, LCID locale, USHORT flags, VARTYPE type) {
        // Windows refuses an unsigned number that does not fit a signed one; other systems let it wrap.
        if (from->vt == VT_UI4 && from->ulVal > INT32_MAX && type == VT_I4) return DISP_E_OVERFLOW;
        return convert.callOriginal(to, from, locale, flags, type);
    });
    load(form);
    EXPECT_EQ(Names(), unchanged(form));
}

TEST_F(LangueFailingForms, resizingTellsItsCaller) {
    const auto resize = [this](Form& form) {
        return call(L"LngRedimCtl", {object(&form.controls[2]), object(&form.label), text(L"été")});
    };
    // In the order of its steps; the scale of the control's container is never a failure.
    const std::map<std::wstring, int> fatal{{L"chk", 3}, {L"label", 4}, {L"measuring", 3}, {L"container", 0}};
    for (const auto& [name, count] : fatal) {
        int failed = 0;
        for (int failing = 1; failing <= 8; ++failing) {
            Form form;
            fill(form);
            objectsOf(form)[name]->failCallWithNumber(failing, 381);
            const auto outcome = resize(form);
            if (outcome.code != S_OK) {
                expectError(outcome, 381);
                ++failed;
                // The caption is set last: whatever failed, it is not set.
                EXPECT_EQ(L"old", textIn(form.controls[2], L"Caption"));
            } else {
                EXPECT_EQ(L"été", textIn(form.controls[2], L"Caption"));
            }
            form.expectNothingHeld();
        }
        EXPECT_EQ(count, failed) << narrow(name);
    }
    // A property that the objects lack.
    for (const wchar_t* property : {L"Font", L"Container", L"Width"}) {
        Form form;
        fill(form);
        ScriptedObject label;
        label.property(L"Caption").defaultMember(L"Caption");
        for (const wchar_t* other : {L"Font", L"Container", L"Width"})
            if (other != std::wstring_view(property)) label.property(other, Variant(form.label.value(other)));
        const auto outcome = call(L"LngRedimCtl", {object(&form.controls[2]), object(&label), text(L"x")});
        expectError(outcome, 438, narrow(property));
    }
    Form form;
    fill(form);
    expectError(call(L"LngRedimCtl", {object(&form.controls[2]), nothing(), text(L"x")}), 91);
    form.controls[2].value(L"Font") = nothing();
    expectError(resize(form), 91);
    form.controls[2].value(L"Font") = short16(7);
    expectError(resize(form), 424);
}

TEST_F(LangueFailingForms, whatIsNoForm) {
    ScriptedObject dumb;
    Form form;
    fill(form);
    for (const Variant& frm : {nothing(), object(&dumb), object(&form.controls[0])}) {
        for (const Variant& label : {nothing(), object(&dumb), object(&form.label)}) {
            run(L"LngFormLoad", {frm, label});
            run(L"LngFormSave", {frm, text(L"NEW")});
        }
    }
    // Without a label no width changes; everything else is done.
    run(L"LngFormLoad", {object(&form.form), nothing()});
    EXPECT_EQ((Names{L"opt.Width", L"chk.Width"}), unchanged(form));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, call(L"LngFormLoad", {text(L"frmMain"), nothing()}).code);
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, call(L"LngFormLoad", {object(&form.form)}).code);
    EXPECT_EQ(0, dumb.references());
}

TEST_F(LangueFailingForms, itemsThatAreNoControls) {
    Form form;
    auto& last = form.add(L"Label", L"lbl", L"old");
    last.property(L"Text", text(L"old")).property(L"ToolTipText", text(L"old"));
    form.list.items({text(L"x"), Variant(), nullValue(), nothing(), short16(1), object(&last)},
                    ScriptedObject::Walk::byEnumerator);
    form.form.property(L"Controls", object(&form.list));
    load(form);
    EXPECT_EQ(Names(), unchanged(form));
}

// Hosts differ in how their controls are reached: by a property of the form, or the form is the collection.
TEST_F(LangueFailingForms, everyWayToTheControls) {
    using Walk = ScriptedObject::Walk;
    for (const auto walk : {Walk::byEnumerator, Walk::byCountAndItem, Walk::byCountAndDefault}) {
        for (const bool ownCollection : {false, true}) {
            Form form;
            auto& control = form.add(L"Label", L"lbl", L"old");
            control.property(L"Text", text(L"old")).property(L"ToolTipText", text(L"old"));
            auto& collection = ownCollection ? form.form : form.list;
            collection.items({object(&control)}, walk);
            if (!ownCollection) form.form.property(L"Controls", object(&form.list));
            load(form);
            EXPECT_EQ(Names(), unchanged(form));
            collection.clearLog();
        }
    }
}

TEST_F(LangueFailingForms, noTitleWithoutItsWindow) {
    Form form;
    fill(form);
    Intercept<decltype(GetWindowLongA)> style(component.module(), "user32.dll", "GetWindowLongA");
    style.failCall(1, 0, ERROR_INVALID_WINDOW_HANDLE);
    load(form);
    EXPECT_EQ(1, style.calls());
    EXPECT_EQ(Names{L"form.Caption"}, unchanged(form));
    load(form);
    EXPECT_EQ(Names(), unchanged(form));
}

TEST_F(LangueFailingForms, eachNameIsLookedUpOnce) {
    Form form;
    fill(form);
    load(form);
    for (const auto& [name, object] : objectsOf(form)) {
        // The container, and the objects that measure, are asked again for each control.
        if (name == L"container" || name == L"measuring") continue;
        std::map<std::wstring, int> lookups;
        for (const auto& line : object->log())
            if (line.starts_with(L"lookup")) ++lookups[line];
        for (const auto& [line, count] : lookups)
            EXPECT_LE(count, line == L"lookup Container" ? 2 : 1) << narrow(name) << narrow(line);
    }
}

// When one allocation fails, everything else is still done, and no error is reported.
TEST_F(LangueFailingForms, withoutMemory) {
    Form form;
    fill(form);
    const auto calls =
        failEachCall(component.module(), noMemory(), "LngFormLoad",
                     [&] {
                         const auto outcome = invoke(langue.get(), L"LngFormLoad", formArguments(form));
                         run(L"LngFormSave", {object(&form.form), text(L"NEW")});
                         for (const auto& [name, used] : objectsOf(form)) used->clearLog();
                         return outcome.code == S_OK ? std::string("done") : std::to_string(outcome.code);
                     },
                     "done", {});
    EXPECT_GT(calls, 100);
    load(form);
    EXPECT_EQ(Names(), unchanged(form));
    form.expectNothingHeld();
}

TEST_F(LangueFailingForms, nothingIsLeftBehind) {
    // Blocks count from here on: texts of the form that are replaced later are then taken off again.
    const MemoryCount fromHereOn;
    Form form;
    fill(form);
    int i = 0;
    expectNothingLeft([&] {
        if (i++ % 50 != 0) return;
        load(form);
        load(form, {true});
        run(L"LngFormSave", {object(&form.form), text(L"NEW")});
        call(L"LngRedimCtl", {object(&form.controls[2]), nothing(), text(L"x")});
        for (const auto& [name, used] : objectsOf(form)) used->clearLog();
    });
    form.expectNothingHeld();
}

}  // namespace
}  // namespace vorla::test
