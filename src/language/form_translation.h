// Puts texts and colours on the host's forms, and saves a form's texts into a language file.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/text.h"
#include "language/theme.h"

namespace vorla::language {

/// What loadForm() does.
struct FormLoading {
    bool texts = true;
    bool colours = true;
    TextView section;  // of the controls' texts; the form's name when empty
    Theme theme;
};

/// Puts the texts of the language in use and the theme's colours on a form and its controls, in the form's
/// order. Sizes option buttons and check boxes to their texts, which `label` measures. Continue on error: a
/// step that fails is skipped, the others still run.
void loadForm(const HostObject& form, const HostObject& label, const FormLoading& wanted);

/// Writes the texts of a form and its controls into a language file. An empty text leaves its key as it is.
/// Continue on error, as loadForm().
void saveForm(const HostObject& form, TextView file);

/// Gives an option button or a check box a caption and the width that it needs. Other objects are left
/// unchanged. `label` must size itself to its text. Unguarded: a failure of the host reaches the caller, and
/// changes made until then stay.
void fitToText(const HostObject& control, const HostObject& label, TextView text);

}  // namespace vorla::language
