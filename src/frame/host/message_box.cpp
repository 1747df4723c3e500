#include "frame/host/message_box.h"

#include <windows.h>

#include "frame/host/globals.h"

namespace vorla {

void messageBox(TextView text) { MessageBoxW(nullptr, Text(text).c_str(), app::title().c_str(), MB_OK); }

void warningBox(TextView text, TextView title) {
    MessageBoxW(nullptr, Text(text).c_str(), Text(title).c_str(), MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace vorla
