#include "graphics/painting.h"

namespace vorla::graphics {
namespace {

// Destination AND NOT source.
constexpr DWORD andNot = 0x220326;

bool copy(const Canvas& to, int width, int height, HDC from, int x, int y, DWORD operation = SRCCOPY) {
    return BitBlt(to.get(), 0, 0, width, height, from, x, y, operation) != FALSE;
}

bool copy(const Canvas& to, int width, int height, const Canvas& from, DWORD operation = SRCCOPY) {
    return copy(to, width, height, from.get(), 0, 0, operation);
}

bool putBack(const Target& target, const Canvas& work) {
    return BitBlt(target.context, target.x, target.y, target.width, target.height, work.get(), 0, 0,
                  SRCCOPY) != FALSE;
}

// A monochrome bitmap copied into a colour context gets the text colour for 0 and the background colour
// for 1. In the other direction the background colour becomes 1.
void setColours(const Canvas& canvas, Colour text, Colour background) {
    SetTextColor(canvas.get(), text);
    SetBkColor(canvas.get(), background);
}

Bitmap monochrome(int width, int height) { return Bitmap(CreateBitmap(width, height, 1, 1, nullptr)); }

constexpr RGBQUAD tableBlack{0, 0, 0, 0}, tableWhite{0xFF, 0xFF, 0xFF, 0};

// A bitmap with one bit per pixel and a table of black and white. A colour that is copied into it becomes the
// nearer of the two. In a monochrome bitmap without a table, all colours but one would become 0.
Bitmap lightAndDark(HDC screen, int width, int height) {
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[2];
    } info{};
    info.header.biSize = sizeof info.header;
    info.header.biWidth = width;
    info.header.biHeight = -height;  // the first line is the top one
    info.header.biPlanes = 1;
    info.header.biBitCount = 1;
    info.colours[0] = tableBlack;
    info.colours[1] = tableWhite;
    void* bits;
    return Bitmap(CreateDIBSection(screen, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits,
                                   nullptr, 0));
}

// Light pixels become 1, and dark ones 0.
bool fillSilhouette(const Canvas& silhouette, HDC screen, const Target& target, const Source& source,
                    Colour mask, HPALETTE palette) {
    const auto [context, x, y, width, height] = target;
    if (isSameColour(mask, white)) return copy(silhouette, width, height, source.context, source.x, source.y);
    const auto onWhite = Canvas::ofColours(screen, width, height, palette);
    if (!onWhite) return false;
    onWhite.fill(width, height, white);
    return paintTransparent({onWhite.get(), 0, 0, width, height}, source, mask, palette) &&
           copy(silhouette, width, height, onWhite);
}

}  // namespace

Canvas::Canvas(HDC screen, Bitmap bitmap, HPALETTE palette)
    : bitmap_(std::move(bitmap)),
      context_(CreateCompatibleDC(screen)),
      selected_(context_.get(), bitmap_.get()),
      palette_(context_.get(), palette) {}

Canvas::Canvas(HDC screen, HBITMAP bitmap, HPALETTE palette)
    : context_(CreateCompatibleDC(screen)),
      selected_(context_.get(), bitmap),
      palette_(context_.get(), palette) {}

Canvas Canvas::ofColours(HDC device, int width, int height, HPALETTE palette) {
    return {device, Bitmap(CreateCompatibleBitmap(device, width, height)), palette};
}

void Canvas::fill(int width, int height, Colour colour) const {
    const Brush brush(CreateSolidBrush(colour));
    const RECT all{0, 0, width, height};
    FillRect(context_.get(), &all, brush.get());
}

bool paintTransparent(const Target& target, const Source& source, Colour mask, HPALETTE palette) {
    const auto [context, x, y, width, height] = target;
    if (width <= 0 || height <= 0) return false;
    const auto screen = WindowContext::ofClientArea(nullptr);
    const auto work = Canvas::ofColours(screen.get(), width, height, palette);
    const auto image = Canvas::ofColours(work.get(), width, height, palette);
    const Canvas leftOut(screen.get(), monochrome(width, height), palette);
    if (!work || !image || !leftOut) return false;

    // A context that only records, such as a metafile's, cannot be read. The image is then painted on black.
    copy(work, width, height, context, x, y);
    if (!copy(image, width, height, source.context, source.x, source.y)) return false;
    setColours(image, white, mask);
    if (!copy(leftOut, width, height, image)) return false;
    // The bits of 0 and 1 are now black and white.
    setColours(image, black, white);
    return copy(image, width, height, leftOut, andNot) && copy(work, width, height, leftOut, SRCAND) &&
           copy(work, width, height, image, SRCPAINT) && putBack(target, work);
}

bool paintDisabled(const Target& target, const Source& source, const Embossing& colours, HPALETTE palette) {
    const auto [context, x, y, width, height] = target;
    if (width <= 0 || height <= 0) return false;
    const auto screen = WindowContext::ofClientArea(nullptr);
    const Canvas silhouette(screen.get(), lightAndDark(screen.get(), width, height), palette);
    const auto work = Canvas::ofColours(screen.get(), width, height, palette);
    const auto stamp = Canvas::ofColours(work.get(), width, height, palette);
    const Canvas shape(screen.get(), monochrome(width, height), palette);
    if (!silhouette || !work || !stamp || !shape) return false;

    if (!fillSilhouette(silhouette, screen.get(), target, source, colours.mask, palette)) return false;
    copy(work, width, height, context, x, y);
    // Dark pixels become 1, which takes the background's colour, and light ones 0.
    constexpr RGBQUAD exchanged[] = {tableWhite, tableBlack};
    SetDIBColorTable(silhouette.get(), 0, 2, exchanged);
    // Some systems use the bitmap's own table in place of the context's colours. A bitmap without a table
    // takes the context's colours everywhere.
    if (!copy(shape, width, height, silhouette)) return false;
    const auto stampIn = [&](Colour colour, int offset) {
        setColours(stamp, colours.key, colour);
        return copy(stamp, width, height, shape) &&
               paintTransparent({work.get(), offset, offset, width, height}, {stamp.get(), 0, 0}, colours.key,
                                palette);
    };
    return stampIn(colours.highlight, 1) && stampIn(colours.shadow, 0) && putBack(target, work);
}

}  // namespace vorla::graphics
