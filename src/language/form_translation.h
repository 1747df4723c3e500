// Texts and colours of the host's forms: put on them, and taken from them into a language file.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/text.h"
#include "language/theme.h"

namespace vorla::language {

/// What loadForm() is to do.
struct FormLoading {
    bool texts = true;
    bool colours = true;
    TextView section;  // of the controls' texts; the form's name when empty
    Theme theme;
};

/// Puts texts of the language in use and the theme's colours on a form and its controls, in the order in
/// which the form lists them, and widens option buttons and check boxes to their texts, which `label`
/// measures. Continue on error: a step that the host refuses is skipped, and only that step.
void loadForm(const HostObject& form, const HostObject& label, const FormLoading& wanted);

/// Writes the texts of a form and its controls into a language file. What has no text leaves its key as it
/// is. Continue on error, as loadForm().
void saveForm(const HostObject& form, TextView file);

/// Gives an option button or a check box a caption and the width that it takes; nothing happens to any other
/// object. `label` sizes itself to its text. Unguarded: a failure of the host reaches the caller, with the
/// control as far as it got.
void fitToText(const HostObject& control, const HostObject& label, TextView text);

}  // namespace vorla::language
