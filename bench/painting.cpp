// Painting images: the transparent one compared with the system's TransparentBlt, the disabled one with the
// system's DrawState. Both write into a bitmap in memory.
#include "frame/com/catalogue.h"
#include "frame/values/unique_handle.h"
#include "subjects.h"

namespace vorla::bench {
namespace {

constexpr COLORREF mask = 0xFF00FF;

// A bitmap of 32 bits a pixel in a memory context, filled with a pattern.
class Surface {
public:
    template <class PixelAt>
    Surface(int size, PixelAt pixelAt)
        : size_(size), bitmap_(make(size)), context_(CreateCompatibleDC(nullptr)) {
        SelectObject(context_.get(), bitmap_.get());
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) pixels_[y * size + x] = pixelAt(x, y);
    }

    HDC get() const { return context_.get(); }
    LONG handle() const { return HandleToLong(get()); }

    bool shows(const Surface& other) const {
        GdiFlush();
        for (int i = 0; i < size_ * size_; ++i)
            if ((pixels_[i] ^ other.pixels_[i]) & 0xFFFFFF) return false;
        return true;
    }

private:
    Bitmap make(int size) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size;
        info.bmiHeader.biHeight = -size;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        Bitmap made(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        pixels_ = static_cast<std::uint32_t*>(bits);
        return made;
    }

    const int size_;
    std::uint32_t* pixels_ = nullptr;
    // The context ends first: its bitmap is still selected.
    const Bitmap bitmap_;
    const MemoryContext context_;
};

// A third of the image is left out, in stripes as sprites have them.
std::uint32_t sprite(int x, int y) {
    return (x + y) / 5 % 3 == 0 ? mask : static_cast<std::uint32_t>(x * 7 + y * 0x301);
}
std::uint32_t ground(int x, int y) { return static_cast<std::uint32_t>(x * 0x10203 + y) & 0xFFFFFF; }

void compareTransparent(Bench& bench, IDispatch* object, int size, double target) {
    const auto name = "PaintTransparentDC, " + std::to_string(size) + " pixels a side";
    const Slot<LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG> paint(object,
                                                                                 L"PaintTransparentDC");
    const Surface source(size, sprite), ours(size, ground), systems(size, ground);
    const auto byUs = [&] {
        paint(ours.handle(), 0, 0, size, size, source.handle(), 0, 0, mask, 0);
        return 0;
    };
    const auto bySystem = [&] {
        return TransparentBlt(systems.get(), 0, 0, size, size, source.get(), 0, 0, size, size, mask) ? 0 : 1;
    };
    byUs();
    bySystem();
    if (!ours.shows(systems)) throw WrongResult(name);
    bench.compare(name, target, byUs, "TransparentBlt", bySystem);
}

// The system's disabled image has other shapes and colours: only the time is compared.
void compareDisabled(Bench& bench, IDispatch* object, int size, double target) {
    const auto name = "PaintDisabledDC, " + std::to_string(size) + " pixels a side";
    const Slot<LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG, LONG> paint(
        object, L"PaintDisabledDC");
    const Surface source(size, sprite), ours(size, ground), systems(size, ground);
    // DrawState selects the bitmap itself.
    const auto screen = WindowContext::ofClientArea(nullptr);
    const Bitmap free(CreateCompatibleBitmap(screen.get(), size, size));
    {
        const MemoryContext context(CreateCompatibleDC(nullptr));
        const SelectedObject selected(context.get(), free.get());
        BitBlt(context.get(), 0, 0, size, size, source.get(), 0, 0, SRCCOPY);
    }
    bench.compare(
        name, target,
        [&] {
            paint(ours.handle(), 0, 0, size, size, source.handle(), 0, 0, mask, static_cast<LONG>(0x80000014),
                  static_cast<LONG>(0x80000010), 0);
            return 0;
        },
        "DrawState, disabled",
        [&] {
            return DrawStateW(systems.get(), nullptr, nullptr, reinterpret_cast<LPARAM>(free.get()), 0, 0, 0,
                              size, size, DST_BITMAP | DSS_DISABLED)
                       ? 0
                       : 1;
        });
}

}  // namespace

void measurePainting(Bench& bench, const Component& component) {
    const auto object = create(component.factory(classEntry<PaintEffects>.number).get());
    // Both make the same mask, which takes half the time of a large image. We also copy the destination and
    // write it back, so that it is written once: two copies, a bitmap and a context more. In Wine, making and
    // selecting bitmaps of colours asks the screen what it can do, which is all that a small image costs.
    compareTransparent(bench, object.get(), 16, 4);
    for (const int size : {256, 1024}) compareTransparent(bench, object.get(), size, 1.5);
    // Three transparent paintings, and a division into light and dark that takes as long as one.
    for (const int size : {16, 256}) compareDisabled(bench, object.get(), size, 14);
}

}  // namespace vorla::bench
