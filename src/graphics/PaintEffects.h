// PaintEffects: images painted as they are, with a transparent colour, or as disabled, like the buttons of a
// toolbar that cannot be pressed.
//
// An image comes from a device context or from a host's picture: a bitmap (type 1) or an icon (type 3). A
// picture of another kind, and Nothing, raise error 481. Failures of GDI are not reported: when an object
// cannot be made or the source cannot be read, nothing is painted.
//
// Coordinates and sizes are in device units, colours are the host's, system colours included. Handles and
// colours are 32 bits with or without a sign. A palette of 0 is the instance's own.
#pragma once

#include "frame/host/host_reference.h"
#include "frame/values/scalars.h"
#include "frame/values/unique_handle.h"

namespace vorla {

class PaintEffects {
public:
    PaintEffects();

    /// As PaintDisabledDC, with a picture. An icon is drawn in its usual size at the rectangle's upper left
    /// corner, wherever xSrc and ySrc are.
    void PaintDisabledStdPic(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                             std::int32_t Height, HostPicture picSource, std::int32_t xSrc, std::int32_t ySrc,
                             Bits32 clrMask, Bits32 clrHighlight, Bits32 clrShadow, Bits32 hPal);

    /// Dark pixels in the shadow's colour and, one pixel to the right and down, in the highlight's. Light
    /// pixels and those of the mask's colour stay as they were.
    void PaintDisabledDC(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                         std::int32_t Height, Bits32 hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                         Bits32 clrMask, Bits32 clrHighlight, Bits32 clrShadow, Bits32 hPal);

    /// All pixels but those of the mask's colour. What the source does not cover is painted black.
    void PaintTransparentDC(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                            std::int32_t Height, Bits32 hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                            Bits32 clrMask, Bits32 hPal);

    /// The same with a picture, an icon as in PaintDisabledStdPic.
    void PaintTransparentStdPic(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                                std::int32_t Height, HostPicture picSource, std::int32_t xSrc,
                                std::int32_t ySrc, Bits32 clrMask, Bits32 hPal);

    /// A picture without effects. An icon fills the rectangle.
    void PaintNormalStdPic(Bits32 hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                           std::int32_t Height, HostPicture picSource, std::int32_t xSrc, std::int32_t ySrc,
                           Bits32 hPal);

private:
    HPALETTE paletteOr(Bits32 given) const;

    // Null when it could not be made: then images are painted without one.
    const Palette halftone_;
};

}  // namespace vorla
