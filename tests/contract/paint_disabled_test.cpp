// PaintDisabledDC: the shadow's shape over the highlight's, one pixel further.
#include "contract/paint_fixture.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

constexpr COLORREF red = 0x0000FF, blue = 0xFF0000;

class PaintDisabled : public PaintTest {
protected:
    // Dark on light, without a colour that a mask leaves out.
    const Pixels drawing{8, 8, {white, black, white, navy, pale, maroon, white}};
};

TEST_F(PaintDisabled, shadowOverHighlight) {
    const Painted areas[] = {
        {2, 1, 8, 8}, {0, 0, 3, 5, 2, 1}, {2, 1, 8, 8, 3, 2}, {-2, -3, 8, 8}, {8, 6, 8, 8}};
    for (const auto depth : {Depth::screen, Depth::bits32, Depth::bits24, Depth::bits16})
        for (const Painted& area : areas)
            for (const COLORREF mask : {magenta, black, navy, pale, COLORREF{0x123456}}) {
                const bool masked = mask == magenta;
                const Pixels& shown = masked ? image : drawing;
                const Surface target(ground, depth), source(shown, depth);
                paintDisabled(target, source, area, colour(mask), colour(yellow), colour(teal));
                expectPixels(
                    disabled(ground, shown, area, mask, yellow, teal), target.pixels(),
                    "depth " + std::to_string(static_cast<int>(depth)) + ", mask " + std::to_string(mask));
            }
}

TEST_F(PaintDisabled, whiteMaskTakesTheImageAsItIs) {
    for (const auto depth : {Depth::screen, Depth::bits32, Depth::bits16}) {
        const Surface target(ground, depth), source(drawing, depth);
        paintDisabled(target, source, {2, 1, 8, 8}, colour(white), colour(yellow), colour(teal));
        expectPixels(disabled(ground, drawing, {2, 1, 8, 8}, white, yellow, teal), target.pixels());
    }
}

// A single dark pixel: the shadow where it is, the highlight one to the right and down.
TEST_F(PaintDisabled, highlightIsOnePixelAway) {
    Pixels dot(5, 5, white);
    dot.at(2, 2) = black;
    Pixels expected = ground;
    expected.at(1 + 2, 1 + 2) = GetSysColor(COLOR_BTNSHADOW);
    expected.at(1 + 3, 1 + 3) = GetSysColor(COLOR_BTNHIGHLIGHT);
    const Surface target(ground), source(dot);
    // Colours left out are white for the mask and the system's for the two shapes.
    expectDone(
        call(L"PaintDisabledDC", {target.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{5},
                                  std::int32_t{5}, source.handle(), std::int32_t{0}, std::int32_t{0}}));
    expectPixels(expected, target.pixels());
}

TEST_F(PaintDisabled, highlightIsCutAtTheRectangle) {
    Pixels dot(5, 5, white);
    dot.at(4, 4) = black;
    dot.at(4, 1) = black;
    dot.at(1, 4) = black;
    Pixels expected = ground;
    for (const auto& [x, y] : {std::pair(4, 4), {4, 1}, {1, 4}}) expected.at(1 + x, 1 + y) = teal;
    const Surface target(ground), source(dot);
    paintDisabled(target, source, {1, 1, 5, 5}, colour(white), colour(yellow), colour(teal));
    expectPixels(expected, target.pixels());
}

// The colours among which the key is looked for are painted like any other.
TEST_F(PaintDisabled, shapesInTheKeysOwnColours) {
    const COLORREF colours[] = {black, red, blue, white};
    for (const COLORREF highlight : colours)
        for (const COLORREF shadow : colours) {
            const Surface target(ground), source(image);
            paintDisabled(target, source, {2, 1, 8, 8}, colour(magenta), colour(highlight), colour(shadow));
            expectPixels(disabled(ground, image, {2, 1, 8, 8}, magenta, highlight, shadow), target.pixels());
        }
}

TEST_F(PaintDisabled, monochromeDestinationAndSource) {
    const Pixels bright = inBlackAndWhite(ground), bare = inBlackAndWhite(drawing);
    const Surface target(bright, Depth::monochrome), source(drawing);
    paintDisabled(target, source, {2, 1, 8, 8}, colour(white), colour(white), colour(teal));
    expectPixels(inBlackAndWhite(disabled(bright, drawing, {2, 1, 8, 8}, white, white, teal)),
                 target.pixels());
    const Surface coloured(ground), plain(bare, Depth::monochrome);
    paintDisabled(coloured, plain, {2, 1, 8, 8}, colour(white), colour(yellow), colour(teal));
    expectPixels(disabled(ground, bare, {2, 1, 8, 8}, white, yellow, teal), coloured.pixels());
}

TEST_F(PaintDisabled, byTheSlot) {
    const Surface target(ground), source(image);
    EXPECT_EQ(S_OK,
              callSlot(1, LONG{target.handle()}, LONG{2}, LONG{1}, LONG{8}, LONG{8}, LONG{source.handle()},
                       LONG{0}, LONG{0}, LONG{magenta}, LONG{yellow}, LONG{teal}, LONG{0}));
    expectPixels(disabled(ground, image, {2, 1, 8, 8}, magenta, yellow, teal), target.pixels());
}

TEST_F(PaintDisabled, sourceIsNotChanged) {
    const Surface target(ground), source(image);
    paintDisabled(target, source, {0, 0, 8, 8}, colour(magenta), colour(yellow), colour(teal));
    expectPixels(image, source.pixels());
    EXPECT_EQ(COLORREF{white}, GetBkColor(source.get()));
}

TEST_F(PaintDisabled, tenThousandLeaveNothing) {
    const Surface target(ground), source(image);
    const auto id = idOf(effects.get(), L"PaintDisabledDC");
    Arguments arguments{target.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{8}, std::int32_t{8},
                        source.handle(), std::int32_t{0}, std::int32_t{0}, colour(magenta)};
    expectNothingLeft([&] {
        auto parameters = arguments.parameters();
        invoke(effects.get(), id, DISPATCH_METHOD, parameters);
    });
}

}  // namespace
}  // namespace vorla::test
