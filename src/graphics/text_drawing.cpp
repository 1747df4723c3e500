#include "graphics/text_drawing.h"

#include "frame/values/ansi.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/unique_handle.h"
#include "graphics/rotated_text.h"

namespace vorla {
namespace {

// The font that the context had, rotated; none when it cannot be made. The context is left with the system's
// font.
Font rotatedFont(HDC context, const TextSlant& slant) {
    const auto before = SelectObject(context, GetStockObject(SYSTEM_FONT));
    LOGFONTA look{};
    if (!before || !GetObjectA(before, sizeof look, &look)) return {};
    look.lfEscapement = look.lfOrientation = tenthsOfDegree(slant.degrees);
    look.lfOutPrecision = OUT_TT_ONLY_PRECIS;
    if (slant.smooth) look.lfQuality = CLEARTYPE_QUALITY;
    return Font(CreateFontIndirectA(&look));
}

bool drawLines(HDC context, TextView text, std::int32_t& x, std::int32_t& y, const TextSlant& slant) {
    bool areDrawn = true;
    // A text with more lines than 16 bits can count fails before, by its length.
    for (std::int16_t number = 1;; ++number) {
        const auto line = toAnsi(textLine(text, number));
        if (line.empty()) return areDrawn;
        if (!TextOutA(context, x, y, line.data(), static_cast<int>(line.size()))) areDrawn = false;
        advanceLine(x, y, slant.degrees, slant.lineHeight);
    }
}

}  // namespace

bool drawRotated(std::int32_t context, TextView text, std::int32_t& x, std::int32_t& y,
                 const TextSlant& slant) {
    return endOnError(false, [&] {
        const auto target = contextOf(context);
        auto font = rotatedFont(target, slant);
        if (!font) return false;
        const auto systemFont = SelectObject(target, font.get());
        if (!systemFont) return false;
        // A selected font cannot be deleted, so a failing line does not end the work here.
        const bool areDrawn = endOnError(false, [&] { return drawLines(target, text, x, y, slant); });
        const bool isPutBack = SelectObject(target, systemFont) != nullptr;
        const bool isDeleted = DeleteObject(font.release()) != FALSE;
        return areDrawn && isPutBack && isDeleted;
    });
}

}  // namespace vorla
