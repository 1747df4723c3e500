#include "frame/host/message_box.h"

#include <windows.h>

namespace vorla {
namespace {

// A host without a title of its own goes by the name of its program.
Text hostTitle() {
    Text path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    Text name = path.substr(path.find_last_of(L'\\') + 1);
    return name.substr(0, name.find_last_of(L'.'));
}

}  // namespace

void messageBox(TextView text) { MessageBoxW(nullptr, Text(text).c_str(), hostTitle().c_str(), MB_OK); }

}  // namespace vorla
