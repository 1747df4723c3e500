// Enabling and disabling a container of a form together with everything in it.
#pragma once

#include "frame/host/host_reference.h"

namespace vorla {

/// Enables or disables the controls of the form that are in the container, those in the frames inside it, and
/// last the container. The form's controls name their container and, if it belongs to a control array, its
/// index. What fails is skipped.
void switchContainer(const HostObject& form, const HostObject& container, bool enabled);

}  // namespace vorla
