#include "graphics/form_look.h"

#include "frame/host/bound_object.h"
#include "frame/host/globals.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/comparison.h"
#include "frame/shared/system_queries.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/rounding.h"
#include "frame/values/unique_handle.h"
#include "graphics/layering.h"
#include "graphics/screen_size.h"

namespace vorla {
namespace {

// The size in pixels of a form or control, by the scale of the form.
SIZE sizeInPixels(BoundObject& shaped, BoundObject& form) {
    constexpr std::int16_t twips = 1, pixels = 3;
    const auto width = form.call(L"ScaleX", shaped.get(L"Width"), twips, pixels);
    const auto height = form.call(L"ScaleY", shaped.get(L"Height"), twips, pixels);
    return {convertedTo<std::int32_t>(width.view()), convertedTo<std::int32_t>(height.view())};
}

std::int32_t oneLess(LONG length) { return roundedToInt32(static_cast<double>(length) - 1); }

HDC contextOfForm(BoundObject& form) { return contextOf(form.getAs<std::int32_t>(L"hdc")); }

void drawBorder(BoundObject& shaped, BoundObject& form, std::int16_t ellipse, std::int32_t colour) {
    Variant before;
    // A colour that could not be put back is not changed.
    const bool isKept = step([&] { before = form.get(L"ForeColor"); });
    if (isKept) step([&] { form.put(L"ForeColor", colour); });
    step([&] {
        const auto size = sizeInPixels(shaped, form);
        RoundRect(contextOfForm(form), 0, 0, oneLess(size.cx), oneLess(size.cy), ellipse, ellipse);
    });
    if (isKept) step([&] { form.put(L"ForeColor", before); });
}

LayeringWish layeringWish(VariantView opacity, VariantView colourKey) {
    constexpr std::int16_t invisible = 0, opaque = 255;
    LayeringWish wish;
    if (!opacity.isMissing()) {
        const auto given = plainValue(opacity);
        const auto atMost = MinVar(given.view(), Variant(opaque).view());
        wish.opacity = convertedTo<std::uint8_t>(MaxVar(atMost.view(), Variant(invisible).view()).view());
    }
    if (!colourKey.isMissing()) wish.colourKey = colourIn(colourKey);
    return wish;
}

template <class Value>
void put(BoundObject& form, Literal name, Value value) {
    step([&] { form.put(name, value); });
}

// A property of the form's scale, put back as hosts keep it: as a 16-bit integer. One that could not be read
// is left alone.
class KeptScale {
public:
    KeptScale(BoundObject& form, Literal name) : form_(form), name_(name) {
        isKept_ = step([&] { value_ = form.getAs<std::int16_t>(name); });
    }
    void putBack() const {
        if (isKept_) put(form_, name_, value_);
    }

private:
    BoundObject& form_;
    const Literal name_;
    std::int16_t value_ = 0;
    bool isKept_ = false;
};

void drawBands(BoundObject& form, const GradientStart& start, bool toWhite) {
    constexpr std::int16_t filledBox = 38;
    // Twips, where the scale is in pixels: far enough to the right for any screen.
    const auto right = form.getAs<float>(L"Width");
    for (std::int32_t number = 0; number < gradientBands; ++number) {
        const auto band = gradientBand(number, start, toWhite);
        step([&] {
            form.call(L"Line", filledBox, 0.0F, static_cast<float>(band.top), right,
                      static_cast<float>(band.bottom), band.colour);
        });
    }
}

}  // namespace

void roundCorners(HostObject& form, std::int16_t ellipse, const RoundBorder& border) {
    BoundObject shaped(form);
    step([&] {
        if (!isHostForm(shaped.object())) form = shaped.getObject(L"Parent");
    });
    BoundObject owner(form);
    step([&] {
        const auto size = sizeInPixels(shaped, owner);
        const auto window = windowOf(shaped.getAs<std::int32_t>(L"hwnd"));
        Region region(CreateRoundRectRgn(0, 0, size.cx, size.cy, ellipse, ellipse));
        // An accepted region belongs to the window. None at all would end the shape that the window has.
        if (region && SetWindowRgn(window, region.get(), TRUE)) region.release();
    });
    if (border.drawn) drawBorder(shaped, owner, ellipse, border.colour);
}

bool setTransparency(std::int32_t window, VariantView opacity, VariantView colourKey) {
    return endOnError(false, [&] {
        Text name;
        if (!canLayer(VersionWindows(name))) return false;
        const auto wish = layeringWish(opacity, colourKey);
        const auto target = windowOf(window);
        const auto style = GetWindowLongA(target, GWL_EXSTYLE);
        const auto layering = layeringFor(wish, (style & WS_EX_LAYERED) != 0);
        if (layering.action == Layering::Action::none) return false;
        const bool applies = layering.action == Layering::Action::apply;
        SetWindowLongA(target, GWL_EXSTYLE, applies ? style | WS_EX_LAYERED : style & ~WS_EX_LAYERED);
        SetLayeredWindowAttributes(target, static_cast<COLORREF>(layering.colourKey), layering.opacity,
                                   layering.flags);
        return true;
    });
}

void paintGradient(const HostObject& form, const GradientStart& start, bool toWhite) {
    constexpr std::int16_t insideSolid = 6, copyPen = 13, penWidth = 2, pixels = 3;
    constexpr auto units = static_cast<std::int16_t>(gradientHeight);
    BoundObject painted(form);
    put(painted, L"AutoRedraw", true);
    put(painted, L"DrawStyle", insideSolid);
    put(painted, L"DrawMode", copyPen);
    put(painted, L"DrawWidth", penWidth);
    const KeptScale mode(painted, L"ScaleMode"), height(painted, L"ScaleHeight"),
        width(painted, L"ScaleWidth");
    put(painted, L"ScaleMode", pixels);
    put(painted, L"ScaleHeight", units);
    step([&] { drawBands(painted, start, toWhite); });
    mode.putBack();
    // After these the form has a scale of its own, with the numbers of its former one.
    height.putBack();
    width.putBack();
}

void paintDesktop(const HostObject& form) {
    BoundObject painted(form);
    std::int16_t x = 0, y = 0;
    step([&] {
        const auto perPixel = roundedToInt16(double{screen::twipsPerPixelY()});
        y = roundedToInt16(painted.getAs<double>(L"Top") / perPixel);
    });
    step([&] {
        const auto perPixel = roundedToInt16(double{screen::twipsPerPixelX()});
        x = roundedToInt16(painted.getAs<double>(L"Left") / perPixel);
    });
    // Never released. Old hosts rely on that.
    const HDC desktop = GetDC(GetDesktopWindow());
    step([&] {
        const auto context = contextOfForm(painted);
        // In twips; the form's context cuts off what is too much.
        const auto width = painted.getAs<std::int16_t>(L"Width");
        const auto height = painted.getAs<std::int16_t>(L"Height");
        BitBlt(context, 0, 0, width, height, desktop, x, y, SRCCOPY);
    });
}

bool hasTitleBar(const HostObject& form) {
    const auto window = windowOf(BoundObject(form).getAs<std::int32_t>(L"hwnd"));
    return (GetWindowLongA(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
}

}  // namespace vorla
