#include "graphics/PaintEffects.h"

#include "frame/host/bound_object.h"
#include "frame/values/runtime_error.h"
#include "graphics/painting.h"

namespace vorla {

using namespace graphics;

namespace {

template <class Handle>
Handle handleOf(Bits32 value) {
    // Handles of windows and of GDI have 32 bits in both builds; the upper half repeats the sign.
    return static_cast<Handle>(LongToHandle(value.bits));
}

Colour translated(std::uint32_t colour, HPALETTE palette) {
    COLORREF result = black;  // for a number that is not a colour
    OleTranslateColor(colour, palette, &result);
    return result;
}

Colour translated(Bits32 colour, HPALETTE palette) {
    return translated(static_cast<std::uint32_t>(colour.bits), palette);
}

Embossing embossing(Bits32 mask, Bits32 highlight, Bits32 shadow, HPALETTE palette) {
    auto candidates = keyColours;
    for (Colour& candidate : candidates) candidate = translated(candidate, palette);
    Embossing colours{translated(mask, palette), translated(highlight, palette), translated(shadow, palette),
                      black};
    colours.key = keyColour(candidates, colours.shadow, colours.highlight);
    return colours;
}

/// A picture that can be painted.
class Paintable {
public:
    explicit Paintable(const HostPicture& picture) {
        constexpr std::int16_t bitmapType = 1, iconType = 3;
        if (!picture) throw RuntimeError(ErrorNumber::invalidPicture);
        BoundObject asked{HostObject(picture.get())};
        const auto type = asked.getAs<std::int16_t>(L"Type");
        if (type != bitmapType && type != iconType) throw RuntimeError(ErrorNumber::invalidPicture);
        const Bits32 handle{asked.getColour(L"Handle")};  // 32 bits of either sign, like a colour
        if (type == bitmapType)
            bitmap_ = handleOf<HBITMAP>(handle);
        else
            icon_ = handleOf<HICON>(handle);
        isIcon_ = type == iconType;
    }

    bool isIcon() const { return isIcon_; }
    HBITMAP bitmap() const { return bitmap_; }
    HICON icon() const { return icon_; }

private:
    bool isIcon_ = false;
    HBITMAP bitmap_ = nullptr;
    HICON icon_ = nullptr;
};

/// Calls `paint` with a device context that shows the picture. Around an icon the context has the mask's
/// colour, which is not painted.
template <class Paint>
void paintFromContext(const HostPicture& picSource, std::int32_t width, std::int32_t height, std::int32_t x,
                      std::int32_t y, Colour mask, HPALETTE palette, Paint paint) {
    const Paintable picture(picSource);
    const auto screen = WindowContext::ofClientArea(nullptr);
    if (!picture.isIcon()) {
        const Canvas shown(screen.get(), picture.bitmap(), palette);
        if (shown) paint(Source{shown.get(), x, y});
        return;
    }
    if (width <= 0 || height <= 0) return;
    const auto drawn = Canvas::ofColours(screen.get(), width, height, palette);
    if (!drawn) return;
    SetBkColor(drawn.get(), mask);
    drawn.fill(width, height, mask);
    if (DrawIcon(drawn.get(), 0, 0, picture.icon())) paint(Source{drawn.get(), 0, 0});
}

}  // namespace

PaintEffects::PaintEffects() : halftone_(CreateHalftonePalette(WindowContext::ofClientArea(nullptr).get())) {}

HPALETTE PaintEffects::paletteOr(Bits32 given) const {
    return given.bits != 0 ? handleOf<HPALETTE>(given) : halftone_.get();
}

void PaintEffects::PaintDisabledStdPic(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest,
                                       std::int32_t Width, std::int32_t Height, HostPicture picSource,
                                       std::int32_t xSrc, std::int32_t ySrc, Bits32 clrMask,
                                       Bits32 clrHighlight, Bits32 clrShadow, Bits32 hPal) {
    const auto palette = paletteOr(hPal);
    const auto colours = embossing(clrMask, clrHighlight, clrShadow, palette);
    paintFromContext(picSource, Width, Height, xSrc, ySrc, colours.mask, palette, [&](const Source& source) {
        paintDisabled({handleOf<HDC>(hdcDest), xDest, yDest, Width, Height}, source, colours, palette);
    });
}

void PaintEffects::PaintDisabledDC(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                                   std::int32_t Height, Bits32 hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                                   Bits32 clrMask, Bits32 clrHighlight, Bits32 clrShadow, Bits32 hPal) {
    const auto palette = paletteOr(hPal);
    paintDisabled({handleOf<HDC>(hdcDest), xDest, yDest, Width, Height}, {handleOf<HDC>(hdcSrc), xSrc, ySrc},
                  embossing(clrMask, clrHighlight, clrShadow, palette), palette);
}

void PaintEffects::PaintTransparentDC(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest,
                                      std::int32_t Width, std::int32_t Height, Bits32 hdcSrc,
                                      std::int32_t xSrc, std::int32_t ySrc, Bits32 clrMask, Bits32 hPal) {
    const auto palette = paletteOr(hPal);
    paintTransparent({handleOf<HDC>(hdcDest), xDest, yDest, Width, Height},
                     {handleOf<HDC>(hdcSrc), xSrc, ySrc}, translated(clrMask, palette), palette);
}

void PaintEffects::PaintTransparentStdPic(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest,
                                          std::int32_t Width, std::int32_t Height, HostPicture picSource,
                                          std::int32_t xSrc, std::int32_t ySrc, Bits32 clrMask, Bits32 hPal) {
    const auto palette = paletteOr(hPal);
    const auto mask = translated(clrMask, palette);
    paintFromContext(picSource, Width, Height, xSrc, ySrc, mask, palette, [&](const Source& source) {
        paintTransparent({handleOf<HDC>(hdcDest), xDest, yDest, Width, Height}, source, mask, palette);
    });
}

void PaintEffects::PaintNormalStdPic(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest,
                                     std::int32_t Width, std::int32_t Height, HostPicture picSource,
                                     std::int32_t xSrc, std::int32_t ySrc, Bits32 hPal) {
    const Paintable picture(picSource);
    const auto context = handleOf<HDC>(hdcDest);
    if (picture.isIcon()) {
        // A width or height of 0 is the icon's own: the system reads it so, and old hosts rely on it.
        DrawIconEx(context, xDest, yDest, picture.icon(), Width, Height, 0, nullptr, DI_NORMAL);
        return;
    }
    const auto screen = WindowContext::ofClientArea(nullptr);
    const Canvas shown(screen.get(), picture.bitmap(), paletteOr(hPal));
    if (shown) BitBlt(context, xDest, yDest, Width, Height, shown.get(), xSrc, ySrc, SRCCOPY);
}

}  // namespace vorla
