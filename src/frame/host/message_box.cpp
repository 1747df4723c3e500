#include "frame/host/message_box.h"

#include <windows.h>

#include "frame/host/globals.h"

namespace vorla {

void messageBox(TextView text) { MessageBoxW(nullptr, Text(text).c_str(), app::title().c_str(), MB_OK); }

}  // namespace vorla
