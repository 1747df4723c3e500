#include "frame/host/globals.h"

#include "frame/values/conversions.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"

namespace vorla {
namespace {

constexpr float twipsPerInch = 1440;

// The longest path in Windows, with its NUL.
constexpr DWORD longestPath = 32768;

float twipsPerPixel(int dotsPerInch) {
    const auto screen = WindowContext::ofClientArea(nullptr);
    const int dots = GetDeviceCaps(screen.get(), dotsPerInch);
    return twipsPerInch / static_cast<float>(dots > 0 ? dots : 96);
}

Text program() {
    Text result(MAX_PATH, L'\0');
    auto length = GetModuleFileNameW(nullptr, result.data(), MAX_PATH);
    if (length >= MAX_PATH) {
        result.resize(longestPath);
        length = GetModuleFileNameW(nullptr, result.data(), longestPath);
    }
    result.resize(length);
    return result;
}

// The program's path without its extension. A point in a folder's name begins no extension.
Text programName() {
    auto path = program();
    const auto point = path.find_last_of(L".\\");
    if (point != Text::npos && path[point] == L'.') path.resize(point);
    return path;
}

bool isFile(const Text& path) {
    const auto attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

Text absolute(const Text& path) {
    Text result(longestPath, L'\0');
    result.resize(GetFullPathNameW(path.c_str(), longestPath, result.data(), nullptr));
    return result;
}

HostPicture noPicture() {
    PICTDESC nothing{};
    nothing.cbSizeofstruct = sizeof nothing;
    nothing.picType = PICTYPE_NONE;
    HostPicture picture;
    throwIfFailed(OleCreatePictureIndirect(&nothing, IID_IPictureDisp, FALSE, picture.putVoid()));
    return picture;
}

}  // namespace

float screen::twipsPerPixelX() { return twipsPerPixel(LOGPIXELSX); }
float screen::twipsPerPixelY() { return twipsPerPixel(LOGPIXELSY); }

Text app::path() {
    auto path = program();
    const auto separator = path.find_last_of(L'\\');
    if (separator == Text::npos) return {};
    path.resize(separator);
    if (path.ends_with(L':')) path += L'\\';
    return path;
}

Text app::title() {
    auto name = programName();
    name.erase(0, name.find_last_of(L'\\') + 1);
    return name;
}

Text app::helpFile() {
    const auto name = programName();
    for (const auto* extension : {L".chm", L".hlp"})
        if (auto file = name + extension; isFile(file)) return file;
    return {};
}

float Timer() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    const double seconds = now.wHour * 3600.0 + now.wMinute * 60.0 + now.wSecond;
    return static_cast<float>(seconds + now.wMilliseconds / 1000.0);
}

void DoEvents() {
    // A window that never finishes painting, or answers each message with another, must not keep the caller
    // here.
    constexpr int mostAtOnce = 10'000;
    MSG message;
    for (int i = 0; i < mostAtOnce && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        if (message.message == WM_QUIT) {
            // WM_QUIT is meant for the host's own loop, not for this one.
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    Sleep(0);
}

HostPicture LoadPicture(TextView fileName) {
    if (fileName.empty()) return noPicture();
    // The loader also accepts web addresses. A name that is made absolute is always a file's.
    auto path = absolute(Text(fileName));
    if (!isFile(path)) throw RuntimeError(ErrorNumber::fileNotFound);
    HostPicture picture;
    const auto answer = OleLoadPicturePath(path.data(), nullptr, 0, 0, IID_IPictureDisp, picture.putVoid());
    if (FAILED(answer) || !picture) throw RuntimeError(ErrorNumber::invalidPicture);
    return picture;
}

}  // namespace vorla
