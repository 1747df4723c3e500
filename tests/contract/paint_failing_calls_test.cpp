// Every call of GDI that painting makes, failing in turn: the image is painted or the destination stays as it
// was, nothing is reported and nothing is left.
#include "contract/paint_fixture.h"
#include "support/failing_calls.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

class ScriptedPicture : public ScriptedObject {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        return ScriptedObject::QueryInterface(id == IID_IPictureDisp ? IID_IDispatch : id, object);
    }
};

class PaintFailing : public PaintTest {
protected:
    PaintFailing() {
        icon.readOnly(L"Type", std::int16_t{3})
            .readOnly(L"Handle", std::int32_t{HandleToLong(LoadIconW(nullptr, MAKEINTRESOURCEW(32512)))});
    }

    // One use of each member; the destination is shown anew each time.
    std::string used(const wchar_t* member, const Variant& painted, const std::vector<Variant>& more) const {
        target.show(ground);
        Arguments arguments;
        arguments.owned = {target.handle(), std::int32_t{1}, std::int32_t{1}, std::int32_t{8},
                           std::int32_t{8}, painted,         std::int32_t{0}, std::int32_t{0}};
        arguments.owned.insert(arguments.owned.end(), more.begin(), more.end());
        const auto outcome = invoke(effects.get(), member, std::move(arguments));
        if (outcome.code != S_OK) return outcome.exceptionCode == E_OUTOFMEMORY ? "no memory" : "refused";
        const auto pixels = target.pixels();
        if (pixels == ground) return "untouched";
        std::string shown = "painted";
        for (const COLORREF colour : pixels.colours) shown += " " + std::to_string(colour);
        return shown;
    }

    void failAll(const Fault& fault, bool anythingIsPainted = false,
                 const std::string& whenNoMemory = "untouched") {
        int calls = 0;
        const auto use = [&](const wchar_t* member, const Variant& painted, std::vector<Variant> more) {
            const auto work = [&, painted, more] {
                auto answer = used(member, painted, more);
                icon.clearLog();
                return answer;
            };
            const auto right = work();
            ASSERT_EQ("painted", right.substr(0, 7)) << narrow(member);
            // Without a colour or the destination's pixels, the shapes are painted otherwise.
            calls += failEachCall(
                component.module(), fault, narrow(member),
                [&] {
                    const auto answer = work();
                    return anythingIsPainted && answer != right && answer.starts_with("painted") ? "otherwise"
                                                                                                 : answer;
                },
                right, {"untouched", "otherwise", whenNoMemory});
        };
        const Variant picture = vorla::test::object(&icon);
        use(L"PaintTransparentDC", source.handle(), {colour(magenta)});
        use(L"PaintDisabledDC", source.handle(), {colour(magenta), colour(yellow), colour(teal)});
        use(L"PaintDisabledDC", source.handle(), {colour(white), colour(yellow), colour(teal)});
        use(L"PaintTransparentStdPic", picture, {colour(magenta)});
        use(L"PaintDisabledStdPic", picture, {colour(magenta), colour(yellow), colour(teal)});
        use(L"PaintNormalStdPic", picture, {});
        EXPECT_GT(calls, 0) << fault.name;
    }

    const Surface target{ground}, source{image};
    ScriptedPicture icon;
};

TEST_F(PaintFailing, objectsThatCannotBeMade) {
    failAll(fault<decltype(GetDC)>("user32.dll", "GetDC", HDC{}));
    failAll(fault<decltype(CreateCompatibleDC)>("gdi32.dll", "CreateCompatibleDC", HDC{}));
    failAll(fault<decltype(CreateCompatibleBitmap)>("gdi32.dll", "CreateCompatibleBitmap", HBITMAP{}));
    failAll(fault<decltype(CreateBitmap)>("gdi32.dll", "CreateBitmap", HBITMAP{}));
    failAll(fault<decltype(CreateDIBSection)>("gdi32.dll", "CreateDIBSection", HBITMAP{}));
}

TEST_F(PaintFailing, palettes) {
    failAll(fault<decltype(SelectPalette)>("gdi32.dll", "SelectPalette", HPALETTE{}));
    failAll(fault<decltype(RealizePalette)>("gdi32.dll", "RealizePalette", UINT{GDI_ERROR}));
}

TEST_F(PaintFailing, selections) {
    failAll(fault<decltype(SelectObject)>("gdi32.dll", "SelectObject", HGDIOBJ{}));
}

// A destination that cannot be read is painted on black; without a brush or a colour other shapes come out.
TEST_F(PaintFailing, steps) {
    failAll(fault<decltype(BitBlt)>("gdi32.dll", "BitBlt", FALSE), true);
    failAll(fault<decltype(CreateSolidBrush)>("gdi32.dll", "CreateSolidBrush", HBRUSH{}), true);
    failAll(fault<decltype(FillRect)>("user32.dll", "FillRect", 0), true);
    failAll(fault<decltype(SetBkColor)>("gdi32.dll", "SetBkColor", CLR_INVALID), true);
    failAll(fault<decltype(SetTextColor)>("gdi32.dll", "SetTextColor", CLR_INVALID), true);
    failAll(fault<decltype(SetDIBColorTable)>("gdi32.dll", "SetDIBColorTable", UINT{0}), true);
    failAll(fault<decltype(DrawIcon)>("user32.dll", "DrawIcon", FALSE));
    failAll(fault<decltype(DrawIconEx)>("user32.dll", "DrawIconEx", FALSE));
    failAll(fault<decltype(OleTranslateColor)>("oleaut32.dll", "OleTranslateColor", E_INVALIDARG), true);
}

// Pictures are asked by name, which takes memory.
TEST_F(PaintFailing, memory) { failAll(noMemory(), false, "no memory"); }

}  // namespace
}  // namespace vorla::test
