// Forms for the tests of VorlaLangue, of objects that tests script.
#pragma once

#include <deque>

#include "contract/langue_fixture.h"
#include "support/scripted_object.h"

namespace vorla::test {

inline constexpr std::int32_t buttonFace = INT32_MIN + 15;  // &H8000000F
inline constexpr std::int32_t marked = 0x123456, themed = 0x00C0FFC0, tabs = 0x00FFC0C0, other = 0x00777777;

inline Variant colour(std::int32_t value) { return value; }

/// A form with controls, a label for measuring, and a window with or without a title bar. Lengths are twips
/// for the form, and pixels of 15 twips for the label.
class Form {
public:
    explicit Form(DWORD style = WS_OVERLAPPEDWINDOW)
        : window_(
              CreateWindowExW(0, L"STATIC", L"", style, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)) {
        form.property(L"hwnd", static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window_)))
            .property(L"Name", text(L"frmMain"))
            .property(L"Caption", text(L"Fiche"))
            .property(L"BackColor", colour(marked))
            .property(L"Tag", text(L""));
        container.property(L"ScaleMode", short16(1));
        measuring.property(L"ScaleMode", short16(3)).method(L"ScaleX", [](const ScriptedObject::Call& call) {
            // From one scale to the other, of the two that occur here.
            Variant length;
            VariantChangeType(length.put(), const_cast<VARIANT*>(&call.argument(0).raw()), 0, VT_R8);
            const auto twips = [&](std::size_t i) { return call.argument(i).raw().iVal == 1; };
            const double factor = twips(1) == twips(2) ? 1 : twips(2) ? 15 : 1 / 15.0;
            return Variant(length.raw().dblVal * factor);
        });
        label.property(L"Font", nothing())
            .property(L"Caption", text(L"Essai"))
            .property(L"Width", short16(40))
            .property(L"Container", object(&measuring))
            .defaultMember(L"Caption");
    }
    Form(const Form&) = delete;
    ~Form() { DestroyWindow(window_); }

    /// Adds a control of this class with the properties that all controls have.
    ScriptedObject& add(const wchar_t* className, const wchar_t* name) {
        auto& control = controls.emplace_back();
        control.className(className)
            .property(L"Name", text(name))
            .property(L"BackColor", colour(marked))
            .property(L"Tag", text(L""))
            .property(L"Width", 1000.0)
            .property(L"Font", object(&font))
            .property(L"Container", object(&container));
        return control;
    }
    ScriptedObject& add(const wchar_t* className, const wchar_t* name, const wchar_t* caption) {
        return add(className, name).property(L"Caption", text(caption));
    }

    /// Call this after all controls are added.
    void complete() {
        std::vector<Variant> items;
        for (auto& control : controls) items.push_back(object(&control));
        list.items(items, ScriptedObject::Walk::byEnumerator);
        form.property(L"Controls", object(&list));
    }

    void expectNothingHeld() {
        // The form's own property holds the list once, and the list's items each control.
        EXPECT_EQ(0, form.references());
        EXPECT_EQ(1, list.references());
        for (auto& control : controls) EXPECT_EQ(1, control.references());
        EXPECT_EQ(0, label.references());
    }

    // An object that refers to another is declared after it and destroyed before it.
    ScriptedObject font, container, measuring, label;
    std::deque<ScriptedObject> controls;
    ScriptedObject list, form;

private:
    HWND window_;
};

inline std::wstring textIn(ScriptedObject& object, const wchar_t* property) {
    const auto& value = object.value(property).raw();
    return value.vt == VT_BSTR ? std::wstring(viewOf(value.bstrVal)) : L"?";
}
inline std::int32_t numberIn(ScriptedObject& object, const wchar_t* property) {
    return object.value(property).raw().lVal;
}
inline double widthOf(ScriptedObject& object) {
    Variant width;
    EXPECT_EQ(S_OK, VariantChangeType(width.put(), object.value(L"Width").put(), 0, VT_R8));
    return width.raw().dblVal;
}

class LangueForms : public Langue {
protected:
    Arguments formArguments(Form& form, std::initializer_list<Variant> more = {}) {
        std::vector<Variant> all{object(&form.form), object(&form.label)};
        Arguments arguments;
        all.insert(all.end(), more);
        arguments.owned = all;
        for (auto i = all.rbegin(); i != all.rend(); ++i) arguments.reversed.push_back(i->raw());
        return arguments;
    }
    void load(Form& form, std::initializer_list<Variant> more = {}) {
        run(L"LngFormLoad", formArguments(form, more));
    }
    void theme(bool applies) {
        put(L"ThemedBackColorApply", applies);
        put(L"ThemedBackColor", colour(themed));
        put(L"ThemedTabBackColor", colour(tabs));
        put(L"ThemedOldColor", colour(marked));
    }
};

}  // namespace vorla::test
