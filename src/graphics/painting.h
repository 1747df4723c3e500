// Images painted into device contexts, through copies in memory. Colours are already translated.
//
// Nothing is reported. When an object cannot be made or the source cannot be read, nothing is painted; every
// object that was made is freed.
#pragma once

#include "frame/values/unique_handle.h"
#include "graphics/paint_colours.h"

namespace vorla::graphics {

/// Where an image goes, in device units.
struct Target {
    HDC context;
    int x, y, width, height;
};

/// Where the image comes from: the upper left corner of what is copied.
struct Source {
    HDC context;
    int x, y;
};

/// A memory context that is compatible with the screen, with a bitmap and a palette selected.
class Canvas {
public:
    /// Owns its bitmap.
    Canvas(HDC screen, Bitmap bitmap, HPALETTE palette);
    /// Uses a bitmap that the caller owns.
    Canvas(HDC screen, HBITMAP bitmap, HPALETTE palette);

    /// With a new bitmap in the colours of the screen or of another canvas. Asking another canvas takes a
    /// hundredth of the time.
    static Canvas ofColours(HDC device, int width, int height, HPALETTE palette);

    HDC get() const { return context_.get(); }
    /// Whether everything could be made.
    explicit operator bool() const { return static_cast<bool>(selected_); }

    /// Fills it with one colour.
    void fill(int width, int height, Colour colour) const;

private:
    // The context ends before its bitmap, so that the bitmap can be deleted even if it stayed selected.
    const Bitmap bitmap_;
    const MemoryContext context_;
    const SelectedObject selected_;
    const SelectedPalette palette_;
};

/// Paints the image except its pixels of the mask's colour. Returns whether it was painted.
bool paintTransparent(const Target& target, const Source& source, Colour mask, HPALETTE palette);

/// The colours of an image that is painted as disabled.
struct Embossing {
    Colour mask, highlight, shadow;
    Colour key;  // keyColour() of the two
};

/// Paints the image's dark pixels in the shadow's colour and, one pixel to the right and down, in the
/// highlight's. Light pixels and those of the mask's colour are not painted. Returns whether it was painted.
bool paintDisabled(const Target& target, const Source& source, const Embossing& colours, HPALETTE palette);

}  // namespace vorla::graphics
