// What an object of the host is: its type's name, and the kinds that members treat differently.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/text.h"

namespace vorla {

/// The name of the object's class ("TextBox", "frmClients"); of an object that does not tell its class, its
/// interface's name without a leading underscore; "Object" when it tells neither, "Nothing" for Nothing.
Text typeName(const HostObject& object);

/// Whether the object is a form: it knows `hWnd`, `Controls` and `WindowState`, and no `Container`.
/// Names are looked up, nothing is read. Nothing is no form.
bool isHostForm(const HostObject& object);

/// The host's own controls, by their class's name. Who asks more than once about an object takes its
/// typeName() once.
bool isCheckBox(TextView typeName);
bool isOptionButton(TextView typeName);
bool isTextBox(TextView typeName);
bool isComboBox(TextView typeName);
bool isListBox(TextView typeName);
bool isCheckBox(const HostObject& object);
bool isOptionButton(const HostObject& object);
bool isTextBox(const HostObject& object);
bool isComboBox(const HostObject& object);
bool isListBox(const HostObject& object);

}  // namespace vorla
