#include "support/png_file.h"

#include "frame/values/winapi.h"

// The header of GDI+ leaves it to others to declare these.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace vorla::test {

bool saveAsPng(const std::wstring& picture, const std::wstring& png) {
    constexpr CLSID encoder = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    const Gdiplus::GdiplusStartupInput plain;
    ULONG_PTR session = 0;
    if (Gdiplus::GdiplusStartup(&session, &plain, nullptr) != Gdiplus::Ok) return false;
    const bool saved = Gdiplus::Image(picture.c_str()).Save(png.c_str(), &encoder, nullptr) == Gdiplus::Ok;
    Gdiplus::GdiplusShutdown(session);
    return saved;
}

}  // namespace vorla::test
