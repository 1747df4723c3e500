// A toolbar and a scene, painted by PaintEffects: painting.exe FOLDER
//
// The toolbar shows icons as they are and, below them, disabled; the last one is an icon of the system. The
// scene is a photograph, here a computed one, with balloons over it, which are bitmaps with a background of
// one colour. Both pictures are left in FOLDER.
#include <ole2.h>
#include <windows.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>

#include "frame/host/bound_object.h"
#include "frame/values/unique_handle.h"
#include "support/png_file.h"

namespace {

using namespace vorla;

constexpr COLORREF mask = RGB(255, 0, 255);

void demand(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

BoundObject create(const wchar_t* program) {
    CLSID id;
    ComPointer<IDispatch> created;
    demand(SUCCEEDED(CLSIDFromProgID(program, &id)) &&
               SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                          reinterpret_cast<void**>(created.put()))),
           "Vorla6 is not registered");
    return BoundObject(HostObject(created.get()));
}

// A bitmap of 24 bits a pixel in a memory context.
class Sheet {
public:
    Sheet(int width, int height)
        : info_{sizeof info_, width, -height, 1, 24, BI_RGB, 0, 0, 0, 0, 0},
          bitmap_(CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info_), DIB_RGB_COLORS, &bits_,
                                   nullptr, 0)),
          context_(CreateCompatibleDC(nullptr)),
          selected_(context_.get(), bitmap_.get()) {
        demand(static_cast<bool>(selected_), "a bitmap cannot be made");
    }

    HDC get() const { return context_.get(); }
    std::int32_t handle() const { return HandleToLong(get()); }
    int width() const { return info_.biWidth; }
    int height() const { return -info_.biHeight; }

    void fill(COLORREF colour) const { box({0, 0, width(), height()}, colour); }
    void box(const RECT& area, COLORREF colour) const {
        const Brush brush(CreateSolidBrush(colour));
        FillRect(get(), &area, brush.get());
    }
    void disc(const RECT& area, COLORREF colour) const {
        const Brush brush(CreateSolidBrush(colour));
        const Pen pen(CreatePen(PS_SOLID, 1, colour));
        const SelectedObject filled(get(), brush.get()), edged(get(), pen.get());
        Ellipse(get(), area.left, area.top, area.right, area.bottom);
    }

    void save(const std::wstring& name) const {
        GdiFlush();
        const auto lineLength = (static_cast<DWORD>(width()) * 3 + 3) / 4 * 4;
        const auto size = lineLength * static_cast<DWORD>(height());
        BITMAPFILEHEADER header{};
        header.bfType = 0x4D42;
        header.bfOffBits = sizeof header + sizeof info_;
        header.bfSize = header.bfOffBits + size;
        const auto bitmap = name + L".bmp";
        {
            const File file(
                CreateFileW(bitmap.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
            DWORD written;
            demand(file && WriteFile(file.get(), &header, sizeof header, &written, nullptr) &&
                       WriteFile(file.get(), &info_, sizeof info_, &written, nullptr) &&
                       WriteFile(file.get(), bits_, size, &written, nullptr),
                   "a picture cannot be written");
        }
        demand(test::saveAsPng(bitmap, name + L".png"), "a picture cannot be saved");
        DeleteFileW(bitmap.c_str());
    }

private:
    BITMAPINFOHEADER info_;
    void* bits_ = nullptr;
    const Bitmap bitmap_;
    const MemoryContext context_;
    const SelectedObject selected_;
};

HostObject pictureOf(PICTDESC description) {
    description.cbSizeofstruct = sizeof description;
    ComPointer<IDispatch> picture;
    demand(SUCCEEDED(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.putVoid())),
           "a picture object cannot be made");
    return HostObject(picture.get());
}

// What a form's image control would hold: a bitmap drawn on the mask's colour.
HostObject drawnPicture(int width, int height, const std::function<void(const Sheet&)>& draw) {
    const Sheet sheet(width, height);
    sheet.fill(mask);
    draw(sheet);
    Bitmap bitmap(CreateBitmap(width, height, 1, 32, nullptr));
    {
        const MemoryContext context(CreateCompatibleDC(nullptr));
        const SelectedObject selected(context.get(), bitmap.get());
        BitBlt(context.get(), 0, 0, width, height, sheet.get(), 0, 0, SRCCOPY);
    }
    PICTDESC description{};
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.release();
    return pictureOf(description);
}

HostObject systemIcon(LPCWSTR name) {
    PICTDESC description{};
    description.picType = PICTYPE_ICON;
    description.icon.hicon = CopyIcon(LoadIconW(nullptr, name));
    return pictureOf(description);
}

constexpr COLORREF ink = RGB(40, 40, 60), paper = RGB(255, 255, 240);

void page(const Sheet& sheet) {
    sheet.box({6, 3, 26, 29}, ink);
    sheet.box({7, 4, 25, 28}, paper);
    for (int line = 9; line < 25; line += 4) sheet.box({10, line, 22, line + 1}, ink);
}

void folder(const Sheet& sheet) {
    sheet.box({3, 7, 14, 12}, ink);
    sheet.box({3, 10, 29, 27}, ink);
    sheet.box({4, 11, 28, 26}, RGB(255, 214, 110));
}

void disk(const Sheet& sheet) {
    sheet.box({4, 4, 28, 28}, ink);
    sheet.box({5, 5, 27, 27}, RGB(70, 90, 190));
    sheet.box({10, 5, 22, 12}, paper);
    sheet.box({8, 16, 24, 27}, paper);
    sheet.box({11, 19, 21, 20}, ink);
    sheet.box({11, 22, 21, 23}, ink);
}

void lens(const Sheet& sheet) {
    for (int i = 0; i < 10; ++i) sheet.box({17 + i, 17 + i, 21 + i, 21 + i}, ink);
    sheet.disc({4, 4, 22, 22}, ink);
    sheet.disc({7, 7, 19, 19}, RGB(215, 235, 255));
}

void paintToolbar(BoundObject& effects, const std::wstring& folderName) {
    constexpr int size = 32, step = 44, margin = 10;
    const std::function<void(const Sheet&)> drawings[] = {page, folder, disk, lens};
    const Sheet bar(2 * margin + 5 * step, 2 * margin + 2 * step);
    bar.fill(GetSysColor(COLOR_BTNFACE));
    const auto show = [&](int place, const HostObject& picture, std::int32_t leftOut) {
        const std::int32_t x = margin + place * step + (step - size) / 2, y = margin + (step - size) / 2;
        effects.call(L"PaintTransparentStdPic", bar.handle(), x, y, std::int32_t{size}, std::int32_t{size},
                     picture, std::int32_t{0}, std::int32_t{0}, leftOut);
        effects.call(L"PaintDisabledStdPic", bar.handle(), x, std::int32_t{y + step}, std::int32_t{size},
                     std::int32_t{size}, picture, std::int32_t{0}, std::int32_t{0}, leftOut);
    };
    int place = 0;
    for (const auto& drawing : drawings) show(place++, drawnPicture(size, size, drawing), mask);
    // The soft edges of an icon are blended with the mask, so it is the colour of the bar.
    constexpr std::int32_t buttonFace = INT32_MIN + COLOR_BTNFACE;
    show(place++, systemIcon(IDI_INFORMATION), buttonFace);
    bar.save(folderName + L"\\toolbar");
    std::printf("barre d'outils : %d icônes, normales et désactivées\n", place);
}

// Where the hills end against the sky.
int horizon(int x) { return static_cast<int>(200 + 26 * std::sin(x / 70.0) + 11 * std::sin(x / 23.0 + 1)); }

void exposePhotograph(const Sheet& sheet) {
    for (int y = 0; y < sheet.height(); ++y)
        for (int x = 0; x < sheet.width(); ++x) {
            const int below = y - horizon(x);
            const auto colour = below > 0 ? RGB(60 + below / 3, 120 + (below * 7 + x * 3) % 23, 50)
                                          : RGB(110 + y / 2, 170 + y / 4, 235);
            SetPixelV(sheet.get(), x, y, colour);
        }
}

HostObject balloon(COLORREF colour) {
    return drawnPicture(64, 96, [colour](const Sheet& sheet) {
        sheet.disc({2, 2, 62, 66}, colour);
        sheet.disc({14, 10, 30, 28}, RGB(255, 245, 225));
        const Pen rope(CreatePen(PS_SOLID, 1, ink));
        const SelectedObject selected(sheet.get(), rope.get());
        for (const int side : {-1, 1}) {
            MoveToEx(sheet.get(), 32 + side * 20, 58, nullptr);
            LineTo(sheet.get(), 32 + side * 7, 82);
        }
        sheet.box({24, 80, 41, 94}, RGB(140, 90, 40));
    });
}

void paintSprites(BoundObject& effects, const std::wstring& folderName) {
    const Sheet scene(520, 300);
    exposePhotograph(scene);
    const struct {
        std::int32_t x, y;
        COLORREF colour;
    } balloons[] = {{40, 60, RGB(210, 50, 40)},
                    {150, 20, RGB(240, 190, 40)},
                    {300, 90, RGB(60, 80, 190)},
                    {480, 30, RGB(60, 150, 90)}};  // the last one is cut at the edge
    for (const auto& [x, y, colour] : balloons)
        effects.call(L"PaintTransparentStdPic", scene.handle(), x, y, std::int32_t{64}, std::int32_t{96},
                     balloon(colour), std::int32_t{0}, std::int32_t{0}, static_cast<std::int32_t>(mask));
    // Nothing of the mask's colour may be seen.
    int seen = 0;
    for (int y = 0; y < scene.height(); ++y)
        for (int x = 0; x < scene.width(); ++x) seen += GetPixel(scene.get(), x, y) == mask;
    demand(seen == 0, "the mask's colour is seen");
    scene.save(folderName + L"\\sprites");
    std::printf("photographie : %d ballons, fond transparent\n", static_cast<int>(std::size(balloons)));
}

void refuseNothing(BoundObject& effects) {
    const Sheet sheet(8, 8);
    try {
        effects.call(L"PaintNormalStdPic", sheet.handle(), std::int32_t{0}, std::int32_t{0}, std::int32_t{8},
                     std::int32_t{8}, HostObject(), std::int32_t{0}, std::int32_t{0});
    } catch (const RuntimeError& error) {
        std::printf("sans image : erreur %d\n", static_cast<int>(error.number()));
    }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2 || FAILED(OleInitialize(nullptr))) return 2;
    int status = 1;
    try {
        auto effects = create(L"Vorla6.PaintEffects");
        paintToolbar(effects, arguments[1]);
        paintSprites(effects, arguments[1]);
        refuseNothing(effects);
        std::printf("images peintes\n");
        status = 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "run-time error %d\n", static_cast<int>(error.number()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    OleUninitialize();
    return status;
}
