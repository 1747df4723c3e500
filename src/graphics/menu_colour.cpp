#include "graphics/menu_colour.h"

#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/unique_handle.h"

namespace vorla {

bool colourMenu(std::int32_t window, std::int32_t colour, bool withSubmenus, std::int32_t place) {
    return endOnError(false, [&] {
        COLORREF translated = 0;
        throwIfFailed(OleTranslateColor(static_cast<OLE_COLOR>(colour), nullptr, &translated));
        const auto owner = windowOf(window);
        const HMENU bar = GetMenu(owner);
        const HMENU menu = place == wholeMenuBar ? bar : GetSubMenu(bar, place);
        // Windows gives the number of a control for its menu.
        if (!IsMenu(menu)) return false;
        Brush brush(CreateSolidBrush(translated));
        if (!brush) return false;
        MENUINFO look{};
        look.cbSize = sizeof look;
        look.fMask = MIM_BACKGROUND | (withSubmenus ? MIM_APPLYTOSUBMENUS : 0);
        look.hbrBack = brush.get();
        // The menu paints with the brush from now on and never tells when it no longer does.
        if (SetMenuInfo(menu, &look)) brush.release();
        DrawMenuBar(owner);
        return true;
    });
}

}  // namespace vorla
