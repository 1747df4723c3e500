#include "language/form_translation.h"

#include "frame/host/bound_object.h"
#include "frame/host/host_items.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/host_queries.h"
#include "frame/shared/profile.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/winapi.h"
#include "language/language_format.h"
#include "language/language_store.h"

namespace vorla::language {
namespace {

Text nameOf(BoundObject& object) { return object.getAs<Text>(L"Name"); }

// Only members of control arrays have an index. A single control's is empty or cannot be read.
Text indexOf(BoundObject& control) {
    Text index;
    step([&] { index = control.getAs<Text>(L"Index"); });
    return index;
}

Text tagOf(BoundObject& object) { return object.getAs<Text>(L"Tag"); }

bool hasTitleBar(BoundObject& form) {
    const auto window = windowOf(form.getAs<std::int32_t>(L"hwnd"));
    return (GetWindowLongA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

// Visits the controls of a form, skipping what fails.
template <class Visit>
void forEachControl(BoundObject& form, Visit&& visit) {
    step([&] {
        HostItems controls(form.knows(L"Controls") ? form.getObject(L"Controls") : form.object());
        forEachItem(controls, visit);
    });
}

bool isResizable(TextView type) {
    return isOptionButton(type) || isCheckBox(type) || type == L"SSOption" || type == L"SSCheck";
}

// Users type and choose in these, so they keep the window colour.
bool hasWindowColour(TextView type) {
    return isTextBox(type) || isComboBox(type) || isListBox(type) || type == L"MaskEdBox";
}

constexpr std::int16_t twips = 1;

// The scale of the control's width. Twips unless its container has another, so also for a control whose
// container cannot be read, where ScaleModeConteneur() would answer 0.
std::int16_t scaleAround(BoundObject& control) {
    return endOnError(twips, [&] {
        const auto container = control.getObject(L"Container");
        if (!ProprieteExiste(container, L"Scalemode", callPropertyGet)) return twips;
        return BoundObject(container).getAs<std::int16_t>(L"ScaleMode");
    });
}

void fit(BoundObject& control, BoundObject& label, TextView text) {
    constexpr std::int16_t boxAndGap = 330;  // twips: the box or circle, and the gap before the text
    label.putRef(L"Font", control.getObject(L"Font"));
    label.putDefault(text);
    BoundObject container(label.getObject(L"Container"));
    const auto scale = scaleAround(control);
    const auto scaled = [&](const auto& length, const auto& from) {
        return convertedTo<double>(container.call(L"ScaleX", length, from, scale).view());
    };
    const double box = scaled(boxAndGap, twips);
    control.put(L"Width", scaled(label.get(L"Width"), container.get(L"ScaleMode")) + box);
    control.put(L"Caption", text);
}

void loadTitle(BoundObject& form) {
    if (!hasTitleBar(form)) return;
    const auto name = nameOf(form);
    const auto text = LngReadValue(name, controlKey(name, {}, L"Caption"));
    if (!text.empty()) form.put(L"Caption", text);
}

void colourForm(BoundObject& form, const Theme& theme) {
    const auto tag = theme.applies ? tagOf(form) : Text();
    if (const auto colour = formColour(theme, form.getColour(L"BackColor"), tag))
        form.put(L"BackColor", *colour);
}

// Unlike the keys that controlKey() makes, one for loading keeps the blanks of an index that is text.
Text loadedKey(TextView control, TextView index, TextView property) {
    Text key(control);
    if (!index.empty()) key.append(keySeparator).append(index);
    return key.append(keySeparator).append(property);
}

void loadTexts(BoundObject& control, TextView section) {
    const auto index = indexOf(control);
    for (const Literal property : properties) {
        step([&] {
            if (!control.hasProperty(property)) return;
            const auto text = LngReadValue(section, loadedKey(nameOf(control), index, property));
            if (!text.empty()) control.put(property, text);
        });
    }
}

void loadControl(BoundObject& control, BoundObject& label, TextView section, const FormLoading& wanted) {
    const auto type = typeName(control.object());
    if (wanted.texts) {
        loadTexts(control, section);
        step([&] {
            if (!isResizable(type) || (isCheckBox(type) && keepsWidth(tagOf(control)))) return;
            fit(control, label, control.getAs<Text>(L"Caption"));
        });
    }
    if (!wanted.colours) return;
    step([&] {
        const auto present = control.get(L"BackColor");
        const auto rule = colouringOf(tagOf(control), hasWindowColour(type));
        if (rule == Colouring::tab) control.put(L"BackColor", wanted.theme.tabBack);
        if (rule != Colouring::themed) return;
        if (const auto themed = themedColour(wanted.theme, colourIn(present.view())))
            control.put(L"BackColor", *themed);
    });
}

// Writes one text of a form if it is not empty.
void saveText(BoundObject& form, TextView file, BoundObject& object, TextView index, Literal property) {
    const auto text = object.getAs<Text>(property);
    if (text.empty()) return;
    constexpr bool oem = false;
    IniEcriture(file, nameOf(form), controlKey(nameOf(object), index, property), escaped(text), oem);
}

}  // namespace

void loadForm(const HostObject& form, const HostObject& label, const FormLoading& wanted) {
    BoundObject loaded(form), measuring(label);
    if (wanted.texts) step([&] { loadTitle(loaded); });
    if (wanted.colours) step([&] { colourForm(loaded, wanted.theme); });
    Text section;
    step([&] { section = wanted.section.empty() ? nameOf(loaded) : Text(wanted.section); });
    forEachControl(loaded, [&](BoundObject& control) { loadControl(control, measuring, section, wanted); });
}

void saveForm(const HostObject& form, TextView file) {
    BoundObject saved(form);
    step([&] { saveText(saved, file, saved, {}, L"Caption"); });
    forEachControl(saved, [&](BoundObject& control) {
        const auto index = indexOf(control);
        for (const Literal property : properties)
            step([&] {
                if (control.hasProperty(property)) saveText(saved, file, control, index, property);
            });
    });
}

void fitToText(const HostObject& control, const HostObject& label, TextView text) {
    if (!isResizable(typeName(control))) return;
    BoundObject fitted(control), measuring(label);
    fit(fitted, measuring, text);
}

}  // namespace vorla::language
