#include "graphics/centring.h"

#include <algorithm>

namespace vorla {
namespace {

// In this order: a form longer than the screen loses its beginning, not its end.
double limited(double start, double formLength, double screenStart, double screenLength) {
    return std::min(std::max(start, screenStart), screenLength - formLength);
}

}  // namespace

bool isOnScreen(const records::Rect& parent, const records::RectSise& screen) {
    return std::int64_t{parent.Left} + parent.Right >= screen.Left && parent.Left <= screen.Width &&
           parent.Top <= screen.Height && std::int64_t{parent.Top} + parent.Bottom >= screen.Top;
}

double centredOnParent(std::int32_t parentStart, std::int32_t parentEnd, double formLength,
                       std::int32_t screenStart, std::int32_t screenLength) {
    const double start = parentStart, end = parentEnd;
    return limited(start + (end - start - formLength) / 2, formLength, screenStart, screenLength);
}

double centredOnScreen(std::int32_t screenLength, double formLength, std::int32_t virtualStart) {
    return limited((screenLength - formLength) / 2, formLength, virtualStart, screenLength);
}

}  // namespace vorla
