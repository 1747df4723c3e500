// The class names of the host's objects, and the kinds that members treat differently.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/text.h"

namespace vorla {

/// The name of the object's class ("TextBox", "frmClients"). If the object does not tell its class, its
/// interface's name without a leading underscore; if it tells neither, "Object". "Nothing" for Nothing.
Text typeName(const HostObject& object);

/// Whether the object is a form: it knows `hWnd`, `Controls` and `WindowState`, and does not know
/// `Container`. Names are only looked up; no property is read. False for Nothing.
bool isHostForm(const HostObject& object);

/// The host's own controls, by their class names. Call typeName() once if you test an object more than once.
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
