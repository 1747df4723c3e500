// Pictures of windows show what is on the screen, frame and controls included.
#include "support/window_picture.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

struct Picture {
    LONG width = 0, height = 0;
    std::vector<BYTE> pixels;  // rows from the bottom, each filled up to four bytes

    COLORREF at(LONG x, LONG y) const {
        const auto line = (width * 3 + 3) / 4 * 4;
        const auto* const pixel = &pixels.at(static_cast<std::size_t>((height - 1 - y) * line + x * 3));
        return RGB(pixel[2], pixel[1], pixel[0]);
    }
};

Picture readPicture(const std::wstring& path) {
    const File file(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    BITMAPFILEHEADER head{};
    BITMAPINFOHEADER form{};
    DWORD count = 0;
    ReadFile(file.get(), &head, sizeof head, &count, nullptr);
    ReadFile(file.get(), &form, sizeof form, &count, nullptr);
    EXPECT_EQ(24, form.biBitCount);
    EXPECT_EQ(GetFileSize(file.get(), nullptr), head.bfSize);
    Picture picture{form.biWidth, form.biHeight, std::vector<BYTE>(form.biSizeImage)};
    ReadFile(file.get(), picture.pixels.data(), form.biSizeImage, &count, nullptr);
    EXPECT_EQ(form.biSizeImage, count);
    return picture;
}

constexpr COLORREF ground = RGB(10, 200, 30), box = RGB(250, 20, 90);

LRESULT CALLBACK paint(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message != WM_PAINT) return DefWindowProcW(window, message, first, second);
    PAINTSTRUCT painting;
    const HDC context = BeginPaint(window, &painting);
    RECT area;
    GetClientRect(window, &area);
    const HBRUSH brush = CreateSolidBrush(GetParent(window) ? box : ground);
    FillRect(context, &area, brush);
    DeleteObject(brush);
    EndPaint(window, &painting);
    return 0;
}

TEST(WindowPicture, showsTheWindowWithItsFrameAndControls) {
    WNDCLASSW kind{};
    kind.lpszClassName = L"WindowPictureTest";
    kind.lpfnWndProc = &paint;
    RegisterClassW(&kind);
    // A width that is no multiple of four, so that each row of the file is filled up.
    const HWND window = CreateWindowW(kind.lpszClassName, L"Fenêtre", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10,
                                      10, 203, 150, nullptr, nullptr, nullptr, nullptr);
    CreateWindowW(kind.lpszClassName, L"", WS_CHILD | WS_VISIBLE, 20, 10, 50, 40, window, nullptr, nullptr,
                  nullptr);
    const TemporaryFolder folder;
    ASSERT_TRUE(saveWindowPicture(window, folder.path(L"été.bmp")));
    const auto picture = readPicture(folder.path(L"été.bmp"));
    RECT frame;
    POINT client{0, 0};
    GetWindowRect(window, &frame);
    ClientToScreen(window, &client);
    client.x -= frame.left;
    client.y -= frame.top;
    EXPECT_EQ(203, picture.width);
    EXPECT_EQ(150, picture.height);
    EXPECT_EQ(ground, picture.at(client.x, client.y));
    EXPECT_EQ(ground, picture.at(client.x + 19, client.y + 10));
    EXPECT_EQ(box, picture.at(client.x + 20, client.y + 10));
    EXPECT_EQ(box, picture.at(client.x + 69, client.y + 49));
    EXPECT_EQ(ground, picture.at(client.x + 70, client.y + 49));
    // The caption lies above the client area and has a colour of its own.
    ASSERT_GT(client.y, 10);
    EXPECT_NE(ground, picture.at(100, client.y / 2));
    EXPECT_NE(RGB(0, 0, 0), picture.at(100, client.y / 2));

    EXPECT_FALSE(saveWindowPicture(window, folder.path(L"rien\\rien.bmp")));
    DestroyWindow(window);
    EXPECT_FALSE(saveWindowPicture(window, folder.path(L"fermée.bmp")));
    UnregisterClassW(kind.lpszClassName, nullptr);
}

}  // namespace
}  // namespace vorla::test
