#include "graphics/PaintEffects.h"

#include "frame/com/catalogue.h"
#include "frame/com/publish.h"

namespace vorla {
namespace {

// The system's colours for white, the highlight and the shadow of a button, as hosts write them.
constexpr std::int32_t whiteMask = 0xFFFFFF;
constexpr std::int32_t buttonHighlight = INT32_MIN + 0x14;  // &H80000014
constexpr std::int32_t buttonShadow = INT32_MIN + 0x10;     // &H80000010

}  // namespace

// clang-format off
PUBLISH(PaintEffects,
        METHOD(0, PaintDisabledStdPic, L"hdcDest", L"xDest", L"yDest", L"Width", L"Height", L"picSource",
               L"xSrc", L"ySrc", optional(L"clrMask", whiteMask), optional(L"clrHighlight", buttonHighlight),
               optional(L"clrShadow", buttonShadow), optional(L"hPal", 0))
            .documented(L"Paints a disabled appearing image (embossed) given a source picture object."),
        METHOD(1, PaintDisabledDC, L"hdcDest", L"xDest", L"yDest", L"Width", L"Height", L"hdcSrc", L"xSrc",
               L"ySrc", optional(L"clrMask", whiteMask), optional(L"clrHighlight", buttonHighlight),
               optional(L"clrShadow", buttonShadow), optional(L"hPal"))
            .documented(L"Paints a disabled appearing image (embossed) given a source hDC."),
        METHOD(2, PaintTransparentDC, L"hdcDest", L"xDest", L"yDest", L"Width", L"Height", L"hdcSrc", L"xSrc",
               L"ySrc", L"clrMask", optional(L"hPal"))
            .documented(L"Paints an image with transparent pixels defined by the mask color.  "
                        L"Accepts an hDC as its image source."),
        METHOD(3, PaintTransparentStdPic, L"hdcDest", L"xDest", L"yDest", L"Width", L"Height", L"picSource",
               L"xSrc", L"ySrc", L"clrMask", optional(L"hPal"))
            .documented(L"Paints an image with transparent pixels defined by the mask color.  "
                        L"Accepts a picture object as its image source."),
        METHOD(4, PaintNormalStdPic, L"hdcDest", L"xDest", L"yDest", L"Width", L"Height", L"picSource",
               L"xSrc", L"ySrc", optional(L"hPal"))
            .documented(L"Paints an image provided by a picture object to an hDC with no effects."))
// clang-format on

}  // namespace vorla
