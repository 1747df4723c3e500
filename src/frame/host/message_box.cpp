#include "frame/host/message_box.h"

#include "frame/host/globals.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/runtime_error.h"
#include "frame/values/winapi.h"

namespace vorla {
namespace {

void CALLBACK showHelp(HELPINFO*) {
    step([] {
        const auto file = app::helpFile();
        if (!file.empty()) ShellExecuteW(nullptr, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    });
}

}  // namespace

void messageBox(TextView text) { MessageBoxW(nullptr, Text(text).c_str(), app::title().c_str(), MB_OK); }

void warningBox(TextView text, TextView title) {
    MessageBoxW(nullptr, Text(text).c_str(), Text(title).c_str(), MB_OK | MB_ICONEXCLAMATION);
}

std::int32_t messageBox(TextView text, std::int32_t style, std::int32_t owner) {
    const Text shown(text), title = app::title();
    const auto window = windowOf(owner);
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = IsWindow(window) ? window : nullptr;
    box.lpszText = shown.c_str();
    box.lpszCaption = title.c_str();
    box.dwStyle = static_cast<DWORD>(style);
    box.lpfnMsgBoxCallback = &showHelp;
    const auto button = MessageBoxIndirectW(&box);
    if (button <= 0) throw RuntimeError(ErrorNumber::automationError);
    return button;
}

}  // namespace vorla
