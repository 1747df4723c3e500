#include "support/window_picture.h"

#include "frame/values/unique_handle.h"

namespace vorla::test {
namespace {

bool copy(const WindowContext& from, HBITMAP bitmap, int width, int height) {
    const MemoryContext memory(CreateCompatibleDC(from.get()));
    const SelectedObject selected(memory.get(), bitmap);
    // Printing a window, by its message or by PrintWindow, leaves its controls and its frame out on some
    // systems; the pixels that it has painted are all there.
    return selected && BitBlt(memory.get(), 0, 0, width, height, from.get(), 0, 0, SRCCOPY) && GdiFlush();
}

bool write(HANDLE file, const void* bytes, DWORD count) {
    DWORD written = 0;
    return WriteFile(file, bytes, count, &written, nullptr) && written == count;
}

}  // namespace

bool saveWindowPicture(HWND window, const std::wstring& file) {
    RECT place;
    if (!GetWindowRect(window, &place)) return false;
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);

    const int width = place.right - place.left, height = place.bottom - place.top;
    BITMAPINFO form{};
    form.bmiHeader.biSize = sizeof form.bmiHeader;
    form.bmiHeader.biWidth = width;
    form.bmiHeader.biHeight = height;
    form.bmiHeader.biPlanes = 1;
    form.bmiHeader.biBitCount = 24;
    const auto bytesOfLine = (static_cast<DWORD>(width) * 3 + 3) / 4 * 4;
    form.bmiHeader.biSizeImage = bytesOfLine * static_cast<DWORD>(height);

    const auto screen = WindowContext::ofWholeWindow(window);
    void* pixels = nullptr;
    const Bitmap bitmap(CreateDIBSection(screen.get(), &form, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!bitmap || !copy(screen, bitmap.get(), width, height)) return false;

    BITMAPFILEHEADER head{};
    head.bfType = 0x4D42;  // "BM"
    head.bfOffBits = sizeof head + sizeof form.bmiHeader;
    head.bfSize = head.bfOffBits + form.bmiHeader.biSizeImage;
    const File made(
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return made && write(made.get(), &head, sizeof head) &&
           write(made.get(), &form.bmiHeader, sizeof form.bmiHeader) &&
           write(made.get(), pixels, form.bmiHeader.biSizeImage);
}

}  // namespace vorla::test
