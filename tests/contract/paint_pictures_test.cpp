// The members that paint pictures: bitmaps, icons with and without alpha, and what is not a picture to paint.
#include "contract/paint_fixture.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

using Picture = ComPointer<IPictureDisp>;

Picture pictureOf(PICTDESC description, bool owned = true) {
    Picture picture;
    EXPECT_EQ(S_OK, OleCreatePictureIndirect(&description, IID_IPictureDisp, owned, picture.putVoid()));
    return picture;
}

Picture pictureOf(const Pixels& pixels, Depth depth = Depth::bits32) {
    Bitmap bitmap = makeBitmap(depth, pixels.width, pixels.height);
    {
        const MemoryContext context(CreateCompatibleDC(nullptr));
        const SelectedObject selected(context.get(), bitmap.get());
        for (int y = 0; y < pixels.height; ++y)
            for (int x = 0; x < pixels.width; ++x) SetPixelV(context.get(), x, y, pixels.at(x, y));
    }
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.release();
    return pictureOf(description);
}

constexpr int iconSize = 32;

struct IconPixel {
    COLORREF colour;
    std::uint8_t alpha;  // 0 is transparent
};

// Four squares: a dark one, a light one, a transparent one, and one of another colour.
IconPixel squares(int x, int y) {
    const bool right = x >= iconSize / 2, low = y >= iconSize / 2;
    if (right && low) return {black, 0};
    return {right ? navy : low ? pale : maroon, 255};
}

template <class PixelAt>
Icon makeIcon(bool hasAlpha, PixelAt pixelAt) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = iconSize;
    info.bmiHeader.biHeight = -iconSize;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const Bitmap colours(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const auto words = static_cast<std::uint32_t*>(bits);
    // One bit a pixel, 1 for what the icon leaves out; each line has 32 bits.
    std::uint8_t mask[iconSize * iconSize / 8] = {};
    for (int y = 0; y < iconSize; ++y)
        for (int x = 0; x < iconSize; ++x) {
            const IconPixel pixel = pixelAt(x, y);
            const auto place = y * iconSize + x;
            words[place] = RGB(GetBValue(pixel.colour), GetGValue(pixel.colour), GetRValue(pixel.colour)) |
                           (hasAlpha ? std::uint32_t{pixel.alpha} << 24 : 0);
            if (pixel.alpha == 0)
                mask[place / 8] = static_cast<std::uint8_t>(mask[place / 8] | 0x80 >> place % 8);
        }
    const Bitmap leftOut(CreateBitmap(iconSize, iconSize, 1, 1, mask));
    ICONINFO icon{TRUE, 0, 0, leftOut.get(), colours.get()};
    return Icon(CreateIconIndirect(&icon));
}

Picture pictureOf(Icon icon) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_ICON;
    description.icon.hicon = icon.release();
    return pictureOf(description);
}

Picture metafile() {
    const HDC context = CreateMetaFileW(nullptr);
    Rectangle(context, 0, 0, 10, 10);
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_METAFILE;
    description.wmf = {CloseMetaFile(context), 100, 100};
    return pictureOf(description);
}

// A picture of the host's own, which answers what the test wants.
class ScriptedPicture : public ScriptedObject {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        return ScriptedObject::QueryInterface(id == IID_IPictureDisp ? IID_IDispatch : id, object);
    }
};

class PaintPictures : public PaintTest {
protected:
    static Variant given(const Picture& picture) { return vorla::test::object(picture.get()); }

    Outcome paint(const wchar_t* member, const Surface& target, const Painted& area, const Variant& picture,
                  std::initializer_list<Variant> more = {}) const {
        Arguments arguments{target.handle(),          std::int32_t{area.x},      std::int32_t{area.y},
                            std::int32_t{area.width}, std::int32_t{area.height}, picture,
                            std::int32_t{area.fromX}, std::int32_t{area.fromY}};
        arguments.owned.insert(arguments.owned.end(), more.begin(), more.end());
        return invoke(effects.get(), member, std::move(arguments));
    }

    // What is painted for an icon: its square on the mask's colour, from the upper left corner.
    template <class PixelAt>
    static Pixels drawn(int width, int height, COLORREF mask, PixelAt pixelAt) {
        Pixels result(width, height, mask);
        for (int y = 0; y < std::min(height, iconSize); ++y)
            for (int x = 0; x < std::min(width, iconSize); ++x)
                if (const IconPixel pixel = pixelAt(x, y); pixel.alpha != 0) result.at(x, y) = pixel.colour;
        return result;
    }

    const Pixels wide{40, 38, {white, teal, yellow, 0x008400, pale}};
};

TEST_F(PaintPictures, bitmaps) {
    const Painted area{2, 1, 8, 8, 1, 2};
    for (const auto depth : {Depth::screen, Depth::bits32, Depth::bits24, Depth::bits16}) {
        const auto picture = pictureOf(image, depth);
        const Surface clear(ground), grey(ground), plain(ground);
        expectDone(paint(L"PaintTransparentStdPic", clear, area, given(picture), {colour(magenta)}));
        expectPixels(transparent(ground, image, area, magenta), clear.pixels());
        expectDone(paint(L"PaintDisabledStdPic", grey, area, given(picture),
                         {colour(magenta), colour(yellow), colour(teal)}));
        expectPixels(disabled(ground, image, area, magenta, yellow, teal), grey.pixels());
        // Without effects, what the picture does not cover stays.
        expectDone(paint(L"PaintNormalStdPic", plain, area, given(picture)));
        expectPixels(paintedOver(ground, area,
                                 [&](int x, int y, COLORREF before) {
                                     return image.has(1 + x, 2 + y) ? image.at(1 + x, 2 + y) : before;
                                 }),
                     plain.pixels());
    }
}

TEST_F(PaintPictures, iconsWithAndWithoutAlpha) {
    for (const bool hasAlpha : {false, true}) {
        const auto picture = pictureOf(makeIcon(hasAlpha, squares));
        // Larger than the icon, and smaller. The origin in the source is ignored.
        for (const Painted& area : {Painted{2, 1, 36, 34, 7, 9}, Painted{2, 1, 20, 18, 7, 9}}) {
            const Painted fromCorner{area.x, area.y, area.width, area.height};
            const Surface clear(wide), grey(wide);
            const auto shown = drawn(area.width, area.height, magenta, squares);
            expectDone(paint(L"PaintTransparentStdPic", clear, area, given(picture), {colour(magenta)}));
            expectPixels(transparent(wide, shown, fromCorner, magenta), clear.pixels());
            expectDone(paint(L"PaintDisabledStdPic", grey, area, given(picture),
                             {colour(magenta), colour(yellow), colour(teal)}));
            expectPixels(disabled(wide, shown, fromCorner, magenta, yellow, teal), grey.pixels());
        }
    }
}

// Half of white on a black mask is grey, which is not the mask's colour: 255 * 128 / 255.
TEST_F(PaintPictures, iconThatIsHalfTransparent) {
    const auto picture = pictureOf(makeIcon(true, [](int x, int) {
        return IconPixel{white, static_cast<std::uint8_t>(x < 16 ? 128 : 0)};
    }));
    const Surface target(wide);
    expectDone(paint(L"PaintTransparentStdPic", target, {2, 1, 32, 32}, given(picture), {colour(black)}));
    expectPixels(paintedOver(wide, {2, 1, 16, 32}, [](int, int, COLORREF) { return COLORREF{0x808080}; }),
                 target.pixels());
}

TEST_F(PaintPictures, iconsWithoutEffectsFillTheRectangle) {
    for (const bool hasAlpha : {false, true}) {
        const auto picture = pictureOf(makeIcon(hasAlpha, squares));
        for (const int size : {16, 32}) {
            const Surface target(wide);
            expectDone(paint(L"PaintNormalStdPic", target, {2, 1, size, size, 5, 5}, given(picture)));
            expectPixels(paintedOver(wide, {2, 1, size, size},
                                     [&](int x, int y, COLORREF before) {
                                         const auto pixel = squares(x * iconSize / size, y * iconSize / size);
                                         return pixel.alpha ? pixel.colour : before;
                                     }),
                         target.pixels());
        }
    }
}

// A width or height of 0 is the icon's own; a bitmap is not painted then.
TEST_F(PaintPictures, rectanglesOfNothing) {
    const auto icon = pictureOf(makeIcon(false, squares)), bitmap = pictureOf(image);
    const Surface target(wide);
    expectDone(paint(L"PaintNormalStdPic", target, {2, 1, 0, 0}, given(icon)));
    expectPixels(
        transparent(wide, drawn(iconSize, iconSize, magenta, squares), {2, 1, iconSize, iconSize}, magenta),
        target.pixels());
    for (const Picture& picture : {icon, bitmap})
        for (const Painted& area : {Painted{2, 1, 0, 8}, Painted{2, 1, 8, 0}, Painted{9, 9, -4, -4}}) {
            const Surface untouched(wide);
            expectDone(paint(L"PaintTransparentStdPic", untouched, area, given(picture), {colour(magenta)}));
            expectDone(paint(L"PaintDisabledStdPic", untouched, area, given(picture)));
            expectPixels(wide, untouched.pixels());
        }
    const Surface untouched(wide);
    expectDone(paint(L"PaintNormalStdPic", untouched, {2, 1, 0, 0}, given(bitmap)));
    expectPixels(wide, untouched.pixels());
}

TEST_F(PaintPictures, bySlots) {
    const auto picture = pictureOf(image);
    const Surface clear(ground), grey(ground), plain(ground);
    EXPECT_EQ(S_OK, callSlot(3, LONG{clear.handle()}, LONG{2}, LONG{1}, LONG{8}, LONG{8}, picture.get(),
                             LONG{0}, LONG{0}, LONG{magenta}, LONG{0}));
    expectPixels(transparent(ground, image, {2, 1, 8, 8}, magenta), clear.pixels());
    EXPECT_EQ(S_OK, callSlot(0, LONG{grey.handle()}, LONG{2}, LONG{1}, LONG{8}, LONG{8}, picture.get(),
                             LONG{0}, LONG{0}, LONG{magenta}, LONG{yellow}, LONG{teal}, LONG{0}));
    expectPixels(disabled(ground, image, {2, 1, 8, 8}, magenta, yellow, teal), grey.pixels());
    EXPECT_EQ(S_OK, callSlot(4, LONG{plain.handle()}, LONG{2}, LONG{1}, LONG{8}, LONG{8}, picture.get(),
                             LONG{0}, LONG{0}, LONG{0}));
    expectPixels(paintedOver(ground, {2, 1, 8, 8}, [&](int x, int y, COLORREF) { return image.at(x, y); }),
                 plain.pixels());
    EXPECT_EQ(codeOf(ErrorNumber::invalidPicture),
              callSlot(4, LONG{plain.handle()}, LONG{2}, LONG{1}, LONG{8}, LONG{8},
                       static_cast<IPictureDisp*>(nullptr), LONG{0}, LONG{0}, LONG{0}));
}

const std::pair<const wchar_t*, std::vector<Variant>>& membersOfPictures(std::size_t i) {
    static const std::pair<const wchar_t*, std::vector<Variant>> members[] = {
        {L"PaintTransparentStdPic", {colour(magenta)}},
        {L"PaintDisabledStdPic", {}},
        {L"PaintNormalStdPic", {}}};
    return members[i];
}

TEST_F(PaintPictures, otherKindsAreInvalid) {
    PICTDESC none{};
    none.cbSizeofstruct = sizeof none;
    none.picType = PICTYPE_NONE;
    const auto empty = pictureOf(none), drawing = metafile();
    for (std::size_t i = 0; i < 3; ++i) {
        const auto& [member, mask] = membersOfPictures(i);
        const Surface target(ground);
        for (const Variant& picture : {nothing(), given(drawing), given(empty)}) {
            // A rectangle of nothing too.
            for (const int size : {8, 0}) {
                const Painted area{1, 1, size, size};
                expectError(mask.empty() ? paint(member, target, area, picture)
                                         : paint(member, target, area, picture, {mask[0]}),
                            481, narrow(member));
            }
        }
        expectPixels(ground, target.pixels());
    }
}

TEST_F(PaintPictures, objectsThatAreNone) {
    const Surface target(ground);
    ScriptedObject object;
    for (const Variant& wrong : {vorla::test::object(&object), text(L"image.bmp"), Variant(std::int32_t{5})})
        EXPECT_EQ(DISP_E_TYPEMISMATCH, paint(L"PaintNormalStdPic", target, {1, 1, 8, 8}, wrong).code);
    EXPECT_EQ(0, object.references());
}

TEST_F(PaintPictures, areAskedForTypeAndHandle) {
    const Surface target(ground);
    const auto bitmap = pictureOf(image);
    const auto handle = invoke(bitmap.get(), L"Handle", {}, DISPATCH_PROPERTYGET).result;
    ScriptedPicture picture;
    picture.readOnly(L"Type", std::int16_t{1}).readOnly(L"Handle", handle);
    expectDone(paint(L"PaintTransparentStdPic", target, {2, 1, 8, 8}, vorla::test::object(&picture),
                     {colour(magenta)}));
    expectPixels(transparent(ground, image, {2, 1, 8, 8}, magenta), target.pixels());
    EXPECT_EQ(1u, picture.logged(L"get Type"));
    EXPECT_EQ(1u, picture.logged(L"get Handle"));
    EXPECT_EQ(0, picture.references());
}

TEST_F(PaintPictures, hostsThatFail) {
    const Surface target(ground);
    for (std::size_t i = 0; i < 3; ++i) {
        const auto& [member, mask] = membersOfPictures(i);
        const auto painted = [&](ScriptedPicture& picture) {
            const auto argument = vorla::test::object(&picture);
            const Painted area{1, 1, 8, 8};
            return mask.empty() ? paint(member, target, area, argument)
                                : paint(member, target, area, argument, {mask[0]});
        };
        for (const int failing : {1, 2}) {
            ScriptedPicture picture;
            picture.readOnly(L"Type", std::int16_t{1}).readOnly(L"Handle", std::int32_t{0});
            picture.failCallWithNumber(failing, 1234);
            expectError(painted(picture), 1234, narrow(member));
            EXPECT_EQ(0, picture.references());
        }
        for (const int failing : {1, 2}) {
            ScriptedPicture picture;
            picture.readOnly(L"Type", std::int16_t{1}).readOnly(L"Handle", std::int32_t{0});
            picture.failLookup(failing, DISP_E_UNKNOWNNAME);
            expectError(painted(picture), 438, narrow(member));
            EXPECT_EQ(0, picture.references());
        }
        ScriptedPicture without;
        expectError(painted(without), 438, narrow(member));
        ScriptedPicture wrong;
        wrong.readOnly(L"Type", text(L"bitmap")).readOnly(L"Handle", std::int32_t{0});
        expectError(painted(wrong), 13, narrow(member));
        // A handle that is none.
        for (const std::int16_t type : {std::int16_t{1}, std::int16_t{3}}) {
            ScriptedPicture stale;
            stale.readOnly(L"Type", type).readOnly(L"Handle", std::int32_t{0x7654321});
            expectDone(painted(stale), narrow(member));
        }
    }
    expectPixels(ground, target.pixels());
}

// A bitmap that the host has selected itself cannot be painted.
TEST_F(PaintPictures, bitmapInUse) {
    const Surface target(ground), busy(image);
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = busy.bitmap();
    const auto picture = pictureOf(description, false);
    expectDone(paint(L"PaintTransparentStdPic", target, {1, 1, 8, 8}, given(picture), {colour(magenta)}));
    expectDone(paint(L"PaintNormalStdPic", target, {1, 1, 8, 8}, given(picture)));
    expectPixels(ground, target.pixels());
}

TEST_F(PaintPictures, tenThousandLeaveNothing) {
    const Surface target(ground);
    const auto bitmap = pictureOf(image);
    const auto icon = pictureOf(makeIcon(true, squares));
    const auto handleIn = [](const Picture& picture) {
        return invoke(picture.get(), L"Handle", {}, DISPATCH_PROPERTYGET).result;
    };
    // The system's pictures would be looked up in their type library, which is not what is counted here.
    ScriptedPicture scripted[2];
    scripted[0].readOnly(L"Type", std::int16_t{1}).readOnly(L"Handle", handleIn(bitmap));
    scripted[1].readOnly(L"Type", std::int16_t{3}).readOnly(L"Handle", handleIn(icon));
    int turn = 0;
    expectNothingLeft([&] {
        ScriptedPicture& picture = scripted[turn & 1];
        picture.clearLog();
        const auto& [member, mask] = membersOfPictures(static_cast<std::size_t>(turn++ / 2 % 3));
        const auto argument = vorla::test::object(&picture);
        const Painted area{1, 1, 8, 8};
        const auto outcome = mask.empty() ? paint(member, target, area, argument)
                                          : paint(member, target, area, argument, {mask[0]});
        ASSERT_EQ(S_OK, outcome.code);
    });
}

}  // namespace
}  // namespace vorla::test
