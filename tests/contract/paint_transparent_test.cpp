// PaintTransparentDC, and what all members share: publication, handles, palettes, sizes.
#include <climits>

#include "contract/paint_fixture.h"
#include "contract/signatures.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

class PaintTransparent : public PaintTest {};

TEST_F(PaintTransparent, membersArePublished) {
    const std::vector<std::wstring> expected = {
        L"60030000 void PaintDisabledStdPic(I4 hdcDest, I4 xDest, I4 yDest, I4 Width, I4 Height, "
        L"&Picture picSource, I4 xSrc, I4 ySrc, [I4 clrMask=16777215], [I4 clrHighlight=-2147483628], "
        L"[I4 clrShadow=-2147483632], [I4 hPal=0])",
        L"60030001 void PaintDisabledDC(I4 hdcDest, I4 xDest, I4 yDest, I4 Width, I4 Height, I4 hdcSrc, "
        L"I4 xSrc, I4 ySrc, [I4 clrMask=16777215], [I4 clrHighlight=-2147483628], "
        L"[I4 clrShadow=-2147483632], [I4 hPal])",
        L"60030002 void PaintTransparentDC(I4 hdcDest, I4 xDest, I4 yDest, I4 Width, I4 Height, I4 hdcSrc, "
        L"I4 xSrc, I4 ySrc, I4 clrMask, [I4 hPal])",
        L"60030003 void PaintTransparentStdPic(I4 hdcDest, I4 xDest, I4 yDest, I4 Width, I4 Height, "
        L"&Picture picSource, I4 xSrc, I4 ySrc, I4 clrMask, [I4 hPal])",
        L"60030004 void PaintNormalStdPic(I4 hdcDest, I4 xDest, I4 yDest, I4 Width, I4 Height, "
        L"&Picture picSource, I4 xSrc, I4 ySrc, [I4 hPal])"};
    EXPECT_EQ(expected, signatures(effects.get()));
}

TEST_F(PaintTransparent, membersAreDocumented) {
    const std::wstring mask = L"Paints an image with transparent pixels defined by the mask color.  ";
    const std::pair<const wchar_t*, std::wstring> rows[] = {
        {L"PaintDisabledStdPic",
         L"Paints a disabled appearing image (embossed) given a source picture object."},
        {L"PaintDisabledDC", L"Paints a disabled appearing image (embossed) given a source hDC."},
        {L"PaintTransparentDC", mask + L"Accepts an hDC as its image source."},
        {L"PaintTransparentStdPic", mask + L"Accepts a picture object as its image source."},
        {L"PaintNormalStdPic", L"Paints an image provided by a picture object to an hDC with no effects."}};
    ComPointer<ITypeInfo> description;
    ASSERT_EQ(S_OK, effects->GetTypeInfo(0, 0, description.put()));
    for (const auto& [name, expected] : rows) {
        Bstr text;
        ASSERT_EQ(S_OK, description->GetDocumentation(idOf(effects.get(), name), nullptr, text.put(), nullptr,
                                                      nullptr));
        EXPECT_EQ(expected, text.view());
    }
}

TEST_F(PaintTransparent, leavesOutTheMasksColour) {
    const Painted areas[] = {{2, 1, 8, 8}, {0, 0, 3, 5, 2, 1}, {2, 1, 8, 8, 3, 2}, {1, 1, 11, 9}};
    const COLORREF masks[] = {magenta, white, black, navy, 0x123456};
    for (const auto depth : {Depth::screen, Depth::bits32, Depth::bits24, Depth::bits16})
        for (const Painted& area : areas)
            for (const COLORREF mask : masks) {
                const Surface target(ground, depth), source(image, depth);
                paintTransparent(target, source, area, colour(mask));
                expectPixels(
                    transparent(ground, image, area, mask), target.pixels(),
                    "depth " + std::to_string(static_cast<int>(depth)) + ", mask " + std::to_string(mask));
            }
}

TEST_F(PaintTransparent, byTheSlot) {
    const Surface target(ground), source(image);
    EXPECT_EQ(S_OK, callSlot(2, LONG{target.handle()}, LONG{1}, LONG{1}, LONG{8}, LONG{8},
                             LONG{source.handle()}, LONG{0}, LONG{0}, LONG{magenta}, LONG{0}));
    expectPixels(transparent(ground, image, {1, 1, 8, 8}, magenta), target.pixels());
}

TEST_F(PaintTransparent, sourceIsNotChanged) {
    const Surface target(ground), source(image);
    SetBkColor(source.get(), 0x010203);
    paintTransparent(target, source, {0, 0, 8, 8}, colour(magenta));
    expectPixels(image, source.pixels());
    EXPECT_EQ(COLORREF{0x010203}, GetBkColor(source.get()));
    EXPECT_EQ(COLORREF{white}, GetBkColor(target.get()));
}

TEST_F(PaintTransparent, isCutAtTheDestination) {
    for (const Painted& area : {Painted{-3, -2, 8, 8}, Painted{9, 7, 8, 8}, Painted{-5, 3, 8, 8}}) {
        const Surface target(ground), source(image);
        paintTransparent(target, source, area, colour(magenta));
        expectPixels(transparent(ground, image, area, magenta), target.pixels());
    }
    const Surface target(ground), source(image);
    const Region clip(CreateRectRgn(3, 2, 6, 5));
    SelectClipRgn(target.get(), clip.get());
    paintTransparent(target, source, {0, 0, 8, 8}, colour(magenta));
    SelectClipRgn(target.get(), nullptr);
    // Outside of the region everything stays.
    auto expected = transparent(ground, image, {0, 0, 8, 8}, magenta);
    for (int y = 0; y < ground.height; ++y)
        for (int x = 0; x < ground.width; ++x)
            if (x < 3 || x >= 6 || y < 2 || y >= 5) expected.at(x, y) = ground.at(x, y);
    expectPixels(expected, target.pixels());
}

TEST_F(PaintTransparent, nothingOfTheRectangleIsSeen) {
    for (const Painted& area : {Painted{20, 0, 8, 8}, Painted{-8, 0, 8, 8}, Painted{0, 10, 8, 8}}) {
        const Surface target(ground), source(image);
        paintTransparent(target, source, area, colour(magenta));
        expectPixels(ground, target.pixels());
    }
}

TEST_F(PaintTransparent, monochromeDestinationAndSource) {
    const Pixels bright = inBlackAndWhite(ground), bare = inBlackAndWhite(image);
    const Surface target(bright, Depth::monochrome), source(image);
    paintTransparent(target, source, {2, 1, 8, 8}, colour(magenta));
    expectPixels(inBlackAndWhite(transparent(bright, image, {2, 1, 8, 8}, magenta)), target.pixels());
    const Surface coloured(ground), plain(bare, Depth::monochrome);
    paintTransparent(coloured, plain, {2, 1, 8, 8}, colour(white));
    expectPixels(transparent(ground, bare, {2, 1, 8, 8}, white), coloured.pixels());
}

TEST_F(PaintTransparent, systemColourAsMask) {
    const auto face = GetSysColor(COLOR_BTNFACE);
    const Pixels button(8, 8, {face, black, navy});
    const Surface target(ground), source(button);
    paintTransparent(target, source, {1, 1, 8, 8}, colour(0x8000000F));
    expectPixels(transparent(ground, button, {1, 1, 8, 8}, face), target.pixels());
}

TEST_F(PaintTransparent, colourThatIsNoneIsBlack) {
    const Surface target(ground), source(image);
    paintTransparent(target, source, {1, 1, 8, 8}, colour(0x800000FF));
    expectPixels(transparent(ground, image, {1, 1, 8, 8}, black), target.pixels());
}

// Scripts without a sign give a system's colour or a handle as a double.
TEST_F(PaintTransparent, colourAndHandlesOfEitherSign) {
    const auto face = GetSysColor(COLOR_BTNFACE);
    const Pixels button(8, 8, {face, black, navy});
    VARIANT unsignedColour{};
    unsignedColour.vt = VT_UI4;
    unsignedColour.ulVal = 0x8000000F;
    for (const Variant& mask :
         {Variant(2147483663.0), Variant(VariantView(unsignedColour)), text(L"2147483663")}) {
        const Surface target(ground), source(button);
        paintTransparent(target, source, {1, 1, 8, 8}, mask);
        expectPixels(transparent(ground, button, {1, 1, 8, 8}, face), target.pixels());
    }
    const Surface target(ground), source(image);
    const auto unsignedHandle = [](const Surface& surface) {
        return Variant(static_cast<double>(static_cast<std::uint32_t>(surface.handle())));
    };
    expectDone(call(L"PaintTransparentDC", {unsignedHandle(target), 1.0, 1.0, 8.0, 8.0,
                                            unsignedHandle(source), 0.0, 0.0, static_cast<double>(magenta)}));
    expectPixels(transparent(ground, image, {1, 1, 8, 8}, magenta), target.pixels());
    // An object stands for its default property, which is read once.
    ScriptedObject shown{Variant(2147483663.0)};
    const Surface third(ground), buttons(button);
    paintTransparent(third, buttons, {1, 1, 8, 8}, vorla::test::object(&shown));
    expectPixels(transparent(ground, button, {1, 1, 8, 8}, face), third.pixels());
    EXPECT_EQ(1u, shown.logged(L"get (default)"));
    EXPECT_EQ(0, shown.references());
    // 33 bits are no colour, and neither is a word; coordinates have a sign.
    const auto with = [&](const Variant& x, const Variant& mask) {
        return call(L"PaintTransparentDC",
                    {target.handle(), x, std::int32_t{0}, std::int32_t{1}, std::int32_t{1}, source.handle(),
                     std::int32_t{0}, std::int32_t{0}, mask})
            .code;
    };
    EXPECT_EQ(DISP_E_OVERFLOW, with(std::int32_t{0}, 4294967296.0));
    EXPECT_EQ(DISP_E_OVERFLOW, with(std::int32_t{0}, -2147483649.0));
    EXPECT_EQ(DISP_E_OVERFLOW, with(2147483648.0, std::int32_t{0}));
    EXPECT_EQ(DISP_E_TYPEMISMATCH, with(std::int32_t{0}, text(L"rouge")));
}

TEST_F(PaintTransparent, paletteOfTheCaller) {
    const auto screen = WindowContext::ofClientArea(nullptr);
    const Palette palette(CreateHalftonePalette(screen.get()));
    const Surface target(ground), source(image);
    expectDone(call(
        L"PaintTransparentDC",
        {target.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{8}, std::int32_t{8}, source.handle(),
         std::int32_t{0}, std::int32_t{0}, colour(magenta), std::int32_t{HandleToLong(palette.get())}}));
    expectPixels(transparent(ground, image, {1, 1, 8, 8}, magenta), target.pixels());
    // Index 5 of the palette; the palette itself is not deleted.
    PALETTEENTRY entry{};
    ASSERT_EQ(1u, GetPaletteEntries(palette.get(), 5, 1, &entry));
    const auto fifth = RGB(entry.peRed, entry.peGreen, entry.peBlue);
    const Pixels indexed(8, 8, {fifth, black, white});
    const Surface other(ground), shown(indexed);
    expectDone(call(L"PaintTransparentDC", {other.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{8},
                                            std::int32_t{8}, shown.handle(), std::int32_t{0}, std::int32_t{0},
                                            colour(0x01000005), std::int32_t{HandleToLong(palette.get())}}));
    expectPixels(transparent(ground, indexed, {1, 1, 8, 8}, fifth), other.pixels());
}

// All contexts get the palette: three get it and give it back, realised each time.
TEST_F(PaintTransparent, paletteIsRealisedInEveryContext) {
    CallLog log;
    Intercept<decltype(RealizePalette)> realise(component.module(), "gdi32.dll", "RealizePalette", &log);
    const Surface target(ground), source(image);
    paintTransparent(target, source, {1, 1, 8, 8}, colour(magenta));
    EXPECT_EQ(6u, log.size());
}

TEST_F(PaintTransparent, paletteLivesWithTheInstance) {
    Intercept<decltype(CreateHalftonePalette)> made(component.module(), "gdi32.dll", "CreateHalftonePalette");
    HPALETTE palette = nullptr;
    made.answer([&](HDC context) { return palette = made.callOriginal(context); });
    const auto before = Resources::held().drawing;
    {
        const Dispatch instance = component.create(number);
        EXPECT_EQ(1, made.calls());
        EXPECT_EQ(OBJ_PAL, GetObjectType(palette));
        EXPECT_EQ(before + 1, Resources::held().drawing);
        const Surface target(ground), source(image);
        invoke(instance.get(), L"PaintTransparentDC",
               {target.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{8}, std::int32_t{8},
                source.handle(), std::int32_t{0}, std::int32_t{0}, colour(magenta)});
        EXPECT_EQ(1, made.calls());
        EXPECT_EQ(OBJ_PAL, GetObjectType(palette));
    }
    EXPECT_EQ(0u, GetObjectType(palette));
    EXPECT_EQ(before, Resources::held().drawing);
}

TEST_F(PaintTransparent, withoutAPalette) {
    Intercept<decltype(CreateHalftonePalette)> made(component.module(), "gdi32.dll", "CreateHalftonePalette");
    made.answer([](HDC) { return HPALETTE{}; });
    const Dispatch instance = component.create(number);
    const Surface target(ground), source(image);
    invoke(instance.get(), L"PaintTransparentDC",
           {target.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{8}, std::int32_t{8},
            source.handle(), std::int32_t{0}, std::int32_t{0}, colour(magenta)});
    expectPixels(transparent(ground, image, {1, 1, 8, 8}, magenta), target.pixels());
}

TEST_F(PaintTransparent, contextsThatAreNone) {
    const Surface target(ground), source(image);
    const auto before = Resources::held();
    const std::int32_t bitmap = HandleToLong(source.bitmap());
    for (const std::int32_t none : {0, -1, 0x12345678, bitmap}) {
        for (const wchar_t* member : {L"PaintTransparentDC", L"PaintDisabledDC"}) {
            const auto paint = [&](std::int32_t to, std::int32_t from) {
                expectDone(
                    call(member, {to, std::int32_t{1}, std::int32_t{1}, std::int32_t{8}, std::int32_t{8},
                                  from, std::int32_t{0}, std::int32_t{0}, colour(magenta)}));
            };
            paint(target.handle(), none);
            paint(none, source.handle());
            paint(none, none);
        }
    }
    expectPixels(ground, target.pixels());
    EXPECT_EQ(before, Resources::held());
}

// A metafile records what is painted, but its pixels cannot be read: the image stands on black.
TEST_F(PaintTransparent, contextThatOnlyRecords) {
    const Surface source(image), played(ground);
    const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(nullptr, recording);
    expectDone(call(L"PaintTransparentDC",
                    {std::int32_t{HandleToLong(recording)}, std::int32_t{0}, std::int32_t{0}, std::int32_t{8},
                     std::int32_t{8}, source.handle(), std::int32_t{0}, std::int32_t{0}, colour(magenta)}));
    const HENHMETAFILE recorded = CloseEnhMetaFile(recording);
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(recorded, sizeof header, &header);
    // Played in the size in which it was recorded.
    const RECT frame{header.rclBounds.left, header.rclBounds.top, header.rclBounds.right,
                     header.rclBounds.bottom};
    PlayEnhMetaFile(played.get(), recorded, &frame);
    DeleteEnhMetaFile(recorded);
    expectPixels(paintedOver(ground, {0, 0, 8, 8},
                             [&](int x, int y, COLORREF) {
                                 return image.at(x, y) == magenta ? black : image.at(x, y);
                             }),
                 played.pixels());
}

TEST_F(PaintTransparent, rectanglesOfNothingOrLess) {
    const Surface target(ground), source(image);
    for (const Painted& area :
         {Painted{1, 1, 0, 8}, Painted{1, 1, 8, 0}, Painted{1, 1, 0, 0}, Painted{5, 5, -3, 4},
          Painted{5, 5, 4, -3}, Painted{5, 5, INT_MIN, INT_MIN}}) {
        paintTransparent(target, source, area, colour(magenta));
        paintDisabled(target, source, area, colour(magenta), colour(white), colour(black));
    }
    expectPixels(ground, target.pixels());
}

// What lies on the surface is painted right, or, if there is no memory for the whole rectangle, stays.
TEST_F(PaintTransparent, rectanglesOfTenThousandASide) {
    const auto before = Resources::held();
    for (const Painted& area :
         {Painted{1, 1, 10'000, 10}, Painted{1, 1, 12, 10'000}, Painted{1, 1, 10'000, 10'000}}) {
        const Surface target(ground), source(image);
        paintTransparent(target, source, area, colour(magenta));
        const auto painted = target.pixels();
        if (area.width != area.height || painted != ground)
            expectPixels(transparent(ground, image, area, magenta), painted);
    }
    for (const Painted& area : {Painted{1, 1, 10'000, 10}, Painted{1, 1, 12, 10'000}}) {
        const Surface target(ground), source(image);
        paintDisabled(target, source, area, colour(magenta), colour(yellow), colour(teal));
        expectPixels(disabled(ground, image, area, magenta, yellow, teal), target.pixels());
    }
    {
        // Larger than any bitmap.
        const Surface target(ground), source(image);
        paintTransparent(target, source, {1, 1, INT_MAX, INT_MAX}, colour(magenta));
        expectPixels(ground, target.pixels());
    }
    EXPECT_EQ(before, Resources::held());
}

// The destination is also the source: the image moves within one context.
TEST_F(PaintTransparent, withinOneContext) {
    const Surface surface(ground);
    paintTransparent(surface, surface, {2, 2, 6, 6, 0, 0}, colour(teal));
    expectPixels(transparent(ground, ground, {2, 2, 6, 6, 0, 0}, teal), surface.pixels());
}

TEST_F(PaintTransparent, destinationIsWrittenOnce) {
    const Surface target(ground), source(image);
    Intercept<decltype(BitBlt)> copy(component.module(), "gdi32.dll", "BitBlt");
    int writes = 0;
    copy.answer([&](HDC to, int x, int y, int w, int h, HDC from, int fx, int fy, DWORD operation) {
        writes += HandleToLong(to) == target.handle();  // in 64 bits, the upper half may differ
        return copy.callOriginal(to, x, y, w, h, from, fx, fy, operation);
    });
    paintTransparent(target, source, {1, 1, 8, 8}, colour(magenta));
    EXPECT_EQ(1, writes);
    paintDisabled(target, source, {1, 1, 8, 8}, colour(magenta), colour(yellow), colour(teal));
    EXPECT_EQ(2, writes);
}

TEST_F(PaintTransparent, tenThousandLeaveNothing) {
    const Surface target(ground), source(image);
    const auto id = idOf(effects.get(), L"PaintTransparentDC");
    Arguments arguments{target.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{8}, std::int32_t{8},
                        source.handle(), std::int32_t{0}, std::int32_t{0}, colour(magenta)};
    expectNothingLeft([&] {
        auto parameters = arguments.parameters();
        invoke(effects.get(), id, DISPATCH_METHOD, parameters);
    });
}

}  // namespace
}  // namespace vorla::test
