// PaintEffects on memory contexts: surfaces whose pixels a test sets and reads, and what painting makes of
// them by its definition, pixel by pixel.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "contract/component.h"
#include "frame/values/unique_handle.h"
#include "support/resource_count.h"

namespace vorla::test {

inline constexpr COLORREF black = 0x000000, white = 0xFFFFFF, magenta = 0xFF00FF, yellow = 0x00FFFF,
                          navy = 0x840000, maroon = 0x000084, teal = 0x848400, pale = 0xFFFF84;

/// Pixels in memory.
struct Pixels {
    int width, height;
    std::vector<COLORREF> colours;

    Pixels(int width_, int height_, COLORREF colour = black)
        : width(width_), height(height_), colours(static_cast<std::size_t>(width_ * height_), colour) {}
    /// A pattern that repeats a row of colours, one further along in each line.
    Pixels(int width_, int height_, std::initializer_list<COLORREF> row) : Pixels(width_, height_) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                at(x, y) = row.begin()[static_cast<std::size_t>(x + y) % row.size()];
    }

    bool has(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    COLORREF& at(int x, int y) { return colours.at(static_cast<std::size_t>(y * width + x)); }
    COLORREF at(int x, int y) const { return colours.at(static_cast<std::size_t>(y * width + x)); }
    /// A new bitmap is black where nothing was copied into it.
    COLORREF orBlack(int x, int y) const { return has(x, y) ? at(x, y) : black; }

    bool operator==(const Pixels&) const = default;
};

/// The rectangle that is painted, and the point of the source that comes to its upper left corner.
struct Painted {
    int x, y, width, height;
    int fromX = 0, fromY = 0;
};

/// Puts a colour where the rectangle lies on the surface.
template <class ColourAt>
Pixels paintedOver(Pixels target, const Painted& area, ColourAt colourAt) {
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x) {
            if (!target.has(area.x + x, area.y + y)) continue;
            COLORREF& pixel = target.at(area.x + x, area.y + y);
            pixel = colourAt(x, y, pixel);
        }
    return target;
}

/// What transparent painting means: pixels of the mask's colour stay, others are replaced.
inline Pixels transparent(const Pixels& target, const Pixels& source, const Painted& area, COLORREF mask) {
    return paintedOver(target, area, [&](int x, int y, COLORREF before) {
        const auto colour = source.orBlack(area.fromX + x, area.fromY + y);
        return colour == mask ? before : colour;
    });
}

/// What disabled painting means. The colours of the tests are clearly dark or clearly light.
inline Pixels disabled(const Pixels& target, const Pixels& source, const Painted& area, COLORREF mask,
                       COLORREF highlight, COLORREF shadow) {
    const auto isDark = [&](int x, int y) {
        if (x < 0 || y < 0) return false;
        const auto colour = source.orBlack(area.fromX + x, area.fromY + y);
        return colour != mask && GetRValue(colour) + GetGValue(colour) + GetBValue(colour) < 3 * 128;
    };
    return paintedOver(target, area, [&](int x, int y, COLORREF before) {
        return isDark(x, y) ? shadow : isDark(x - 1, y - 1) ? highlight : before;
    });
}

/// What a bitmap of one bit a pixel keeps of colours.
inline Pixels inBlackAndWhite(Pixels pixels) {
    for (COLORREF& colour : pixels.colours) colour = colour == white ? white : black;
    return pixels;
}

enum class Depth { screen, bits32, bits24, bits16, monochrome };

inline Bitmap makeBitmap(Depth depth, int width, int height) {
    const auto screen = WindowContext::ofClientArea(nullptr);
    if (depth == Depth::screen) return Bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    if (depth == Depth::monochrome) return Bitmap(CreateBitmap(width, height, 1, 1, nullptr));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = depth == Depth::bits32 ? 32 : depth == Depth::bits24 ? 24 : 16;
    void* bits;
    return Bitmap(CreateDIBSection(screen.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
}

/// A memory context whose bitmap shows pixels.
class Surface {
public:
    explicit Surface(const Pixels& pixels, Depth depth = Depth::bits32)
        : width_(pixels.width),
          height_(pixels.height),
          bitmap_(makeBitmap(depth, width_, height_)),
          context_(CreateCompatibleDC(nullptr)),
          selected_(context_.get(), bitmap_.get()) {
        EXPECT_TRUE(selected_);
        show(pixels);
    }

    HDC get() const { return context_.get(); }
    HBITMAP bitmap() const { return bitmap_.get(); }
    /// The context as hosts pass it.
    std::int32_t handle() const { return HandleToLong(get()); }

    void show(const Pixels& pixels) const {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) SetPixelV(get(), x, y, pixels.at(x, y));
    }
    Pixels pixels() const {
        Pixels read(width_, height_);
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) read.at(x, y) = GetPixel(get(), x, y);
        return read;
    }

private:
    const int width_, height_;
    const Bitmap bitmap_;
    const MemoryContext context_;
    const SelectedObject selected_;
};

/// The first pixel that differs, in words.
inline void expectPixels(const Pixels& expected, const Pixels& actual, const std::string& what = {}) {
    ASSERT_EQ(expected.colours.size(), actual.colours.size()) << what;
    for (int y = 0; y < expected.height; ++y)
        for (int x = 0; x < expected.width; ++x)
            ASSERT_EQ(expected.at(x, y), actual.at(x, y))
                << std::hex << what << " at " << std::dec << x << ", " << y;
}

class PaintTest : public testing::Test {
protected:
    static constexpr auto number = numberOfPaintEffects;

    Outcome call(const wchar_t* name, Arguments arguments) const {
        return invoke(effects.get(), name, std::move(arguments));
    }
    static void expectDone(const Outcome& outcome, const std::string& what = {}) {
        EXPECT_EQ(S_OK, outcome.code) << what;
        EXPECT_EQ(VT_EMPTY, outcome.result.raw().vt) << what;
    }

    void paintTransparent(const Surface& target, const Surface& source, const Painted& area,
                          const Variant& mask) const {
        expectDone(
            call(L"PaintTransparentDC", {target.handle(), std::int32_t{area.x}, std::int32_t{area.y},
                                         std::int32_t{area.width}, std::int32_t{area.height}, source.handle(),
                                         std::int32_t{area.fromX}, std::int32_t{area.fromY}, mask}));
    }
    void paintDisabled(const Surface& target, const Surface& source, const Painted& area, const Variant& mask,
                       const Variant& highlight, const Variant& shadow) const {
        expectDone(call(L"PaintDisabledDC",
                        {target.handle(), std::int32_t{area.x}, std::int32_t{area.y},
                         std::int32_t{area.width}, std::int32_t{area.height}, source.handle(),
                         std::int32_t{area.fromX}, std::int32_t{area.fromY}, mask, highlight, shadow}));
    }

    /// One slot of the dual interface.
    template <class... Raw>
    HRESULT callSlot(std::size_t slot, Raw... raw) const {
        using Function = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Raw...);
        const auto vtable = *reinterpret_cast<void***>(effects.get());
        return reinterpret_cast<Function>(vtable[7 + slot])(effects.get(), raw...);
    }

    const Component component;
    const Dispatch effects = component.create(number);

    const Pixels ground{12, 10, {white, teal, yellow, maroon, pale}};
    const Pixels image{8, 8, {magenta, black, navy, white, magenta, pale, maroon}};
};

inline Variant colour(COLORREF value) { return static_cast<std::int32_t>(value); }

}  // namespace vorla::test
