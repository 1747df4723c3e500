#include "graphics/form_place.h"

#include <optional>

#include "frame/host/bound_object.h"
#include "frame/host/globals.h"
#include "frame/shared/host_queries.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "graphics/centring.h"
#include "graphics/frame_sizes.h"
#include "graphics/screen_measures.h"

namespace vorla {
namespace {

// The window of a parent; null for a value that names none.
HWND parentWindow(VariantView parent) {
    if (parent.type() == VT_I4) return windowOf(parent.raw().lVal);
    if (!parent.isObject()) return nullptr;
    BoundObject object(parent);
    if (ProprieteExiste(object.object(), L"Hwnd", callPropertyGet))
        return windowOf(object.getAs<std::int32_t>(L"hwnd"));
    if (ProprieteExiste(object.object(), L"Handle", callPropertyGet))
        return windowOf(object.getAs<std::int32_t>(L"handle"));
    return nullptr;
}

bool isMinimised(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    return GetWindowPlacement(window, &placement) &&
           (placement.showCmd == SW_SHOWMINIMIZED || placement.showCmd == SW_MINIMIZE);
}

// A parent's edges and the screen that they are on, in pixels.
struct ParentPlace {
    records::Rect edges;
    records::RectSise screen;
};

// None for a parent that a form cannot be centred on.
std::optional<ParentPlace> placeOf(VariantView parent) {
    const auto screen = virtualScreen(eUnit::euPixels);
    const auto window = parentWindow(parent);
    if (!window || isMinimised(GetAncestor(window, GA_ROOT))) return {};
    RECT edges;
    if (!GetWindowRect(window, &edges)) return {};
    const records::Rect parentEdges{edges.left, edges.top, edges.right, edges.bottom};
    if (!isOnScreen(parentEdges, screen)) return {};
    return ParentPlace{parentEdges, screen};
}

// In twips; 0 when it cannot be read.
double lengthOf(BoundObject& form, Literal name) {
    return endOnError(0.0, [&] { return form.getAs<double>(name); });
}

void move(BoundObject& form, double x, double y) {
    form.call(L"Move", static_cast<float>(x), static_cast<float>(y));
}

void centreOnParent(BoundObject& form, const ParentPlace& parent) {
    const auto perPixelX = double{screen::twipsPerPixelX()}, perPixelY = double{screen::twipsPerPixelY()};
    const auto& [edges, screen] = parent;
    const auto width = lengthOf(form, L"Width") / perPixelX, height = lengthOf(form, L"Height") / perPixelY;
    move(form, centredOnParent(edges.Left, edges.Right, width, screen.Left, screen.Width) * perPixelX,
         centredOnParent(edges.Top, edges.Bottom, height, screen.Top, screen.Height) * perPixelY);
}

void centreOnScreen(BoundObject& form) {
    const auto screen = virtualScreen(eUnit::euTwips);
    const auto width = lengthOf(form, L"Width"), height = lengthOf(form, L"Height");
    move(form, centredOnScreen(screenWidth(eUnit::euTwips), width, screen.Left),
         centredOnScreen(screenHeight(eUnit::euTwips), height, screen.Top));
}

void putAfter(HWND window, ewPos position, UINT flags) {
    // Most positions are Windows' own numbers for "topmost", "not topmost", "top" and "bottom".
    SetWindowPos(window, windowOf(static_cast<std::int32_t>(position)), 0, 0, 0, 0, flags);
}

// The window that a combo box is placed in.
HWND placingWindow(BoundObject& combo) {
    if (ProprieteExiste(combo.object(), L"Container", callPropertyGet)) {
        const auto container = combo.get(L"Container");
        if (container.view().isObject() && container.view().raw().punkVal) {
            BoundObject outer(container.view());
            if (ProprieteExiste(outer.object(), L"Hwnd", callPropertyGet))
                return windowOf(outer.getAs<std::int32_t>(L"Hwnd"));
        }
    }
    return windowOf(BoundObject(combo.getObject(L"Parent")).getAs<std::int32_t>(L"hwnd"));
}

std::int32_t itemHeight(HWND combo, WPARAM item) {
    return static_cast<std::int32_t>(SendMessageA(combo, CB_GETITEMHEIGHT, item, 0));
}

}  // namespace

void centreForm(const HostObject& form, VariantView parent) {
    BoundObject centred(form);
    const auto place = endOnError(std::optional<ParentPlace>(), [&] {
        return parent.isMissing() ? std::optional<ParentPlace>() : placeOf(parent);
    });
    step([&] { place ? centreOnParent(centred, *place) : centreOnScreen(centred); });
}

void putInOrder(const HostObject& form, ewPos position) {
    constexpr UINT inPlace = SWP_NOSIZE | SWP_NOMOVE;
    constexpr std::int16_t toFront = 0, toBack = 1;
    BoundObject placed(form);
    const auto window = windowOf(placed.getAs<std::int32_t>(L"hwnd"));
    if (position == ewPos::ewpDessusTout) {
        putAfter(window, ewPos::ewpDessus, inPlace);
        SetForegroundWindow(window);
        return;
    }
    if (position == ewPos::ewpTop) putAfter(window, ewPos::ewpNormal, inPlace | SWP_NOACTIVATE);
    putAfter(window, position, inPlace | SWP_NOACTIVATE);
    if (position == ewPos::ewpNormal) placed.call(L"ZOrder", toBack);
    if (position == ewPos::ewpTop) placed.call(L"ZOrder", toFront);
}

std::int32_t frameSize(const HostObject& form, WS_Flags part) {
    const auto style = BoundObject(form).getAs<std::int32_t>(L"BorderStyle");
    const auto metric = frameMetric(part, style);
    return metric ? GetSystemMetrics(*metric) : 0;
}

void sizeComboList(const HostObject& combo, std::int16_t lines, std::int32_t listWidth) {
    constexpr auto field = static_cast<WPARAM>(-1);
    BoundObject sized(combo);
    const auto left = sized.getAs<std::int32_t>(L"Left"), top = sized.getAs<std::int32_t>(L"Top");
    const auto window = windowOf(sized.getAs<std::int32_t>(L"hwnd"));
    RECT place{};
    GetWindowRect(window, &place);
    POINT corner{place.left, place.top};
    ScreenToClient(placingWindow(sized), &corner);
    const auto fieldHeight = itemHeight(window, field), lineHeight = itemHeight(window, 0);
    const auto height = comboHeight(lines, lineHeight, fieldHeight);
    MoveWindow(window, corner.x, corner.y, place.right - place.left, height, TRUE);
    // The host's idea of the place counts, in its own units.
    sized.call(L"Move", left, top);
    if (listWidth > 0) SendMessageA(window, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(listWidth), 0);
}

}  // namespace vorla
