// The `Line` method of forms and picture boxes.
#include <cmath>

#include "support/forms/window.h"

namespace vorla::forms {

LONG Window::toPixels(float coordinate, Axis axis) const {
    return static_cast<LONG>(std::lround((coordinate - origin(axis)) * unit(axis) / twipsPerPixel(axis)));
}

// Arguments: flags, x1, y1, x2, y2, and the colour, without which the foreground colour is used.
Variant Window::line(const HostCall& call) {
    constexpr std::int32_t box = 2, filled = 4, coloured = 32;
    const auto flags = fromHost<std::int32_t>(call.argument(0));
    Members::expectArguments(call, flags & coloured ? 6 : 5);
    const auto at = [&](std::size_t index, Axis axis) {
        return toPixels(fromHost<float>(call.argument(index)), axis);
    };
    const RECT area{at(1, Axis::x), at(2, Axis::y), at(3, Axis::x), at(4, Axis::y)};
    const auto colour =
        flags & coloured ? translated(fromHost<std::int32_t>(call.argument(5))) : foreground();
    const HDC context = GetDC(living());
    if ((flags & box) && (flags & filled)) {
        const Brush brush(CreateSolidBrush(colour));
        FillRect(context, &area, brush.get());
    } else if (flags & box) {
        const Brush brush(CreateSolidBrush(colour));
        FrameRect(context, &area, brush.get());
    } else {
        const Pen pen(CreatePen(PS_SOLID, 1, colour));
        const auto before = SelectObject(context, pen.get());
        MoveToEx(context, area.left, area.top, nullptr);
        LineTo(context, area.right, area.bottom);
        SelectObject(context, before);
    }
    ReleaseDC(window_, context);
    return {};
}

}  // namespace vorla::forms
