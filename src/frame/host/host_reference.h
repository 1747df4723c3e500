// References to the host's objects.
#pragma once

#include "frame/values/com_pointer.h"
#include "frame/values/winapi.h"

namespace vorla {

using HostObject = ComPointer<IDispatch>;
using HostPicture = ComPointer<IPictureDisp>;
using HostFont = ComPointer<IFontDisp>;

}  // namespace vorla
