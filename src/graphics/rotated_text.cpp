#include "graphics/rotated_text.h"

#include "frame/shared/fields.h"
#include "frame/values/rounding.h"

namespace vorla {
namespace {

// In line heights.
struct Direction {
    double x, y;
};

Direction directionAt(float degrees) {
    if (degrees == 0) return {0, 1};
    if (degrees > 0 && degrees < 90) return {1, 1};
    if (degrees == 90) return {1, 0};
    // Half a height, unlike in the other quadrants. Old hosts place their labels by it.
    if (degrees > 90 && degrees < 180) return {0.5, -1};
    if (degrees == 180) return {0, -1};
    if (degrees > 180 && degrees < 270) return {-1, -1};
    if (degrees == 270) return {-1, 0};
    if (degrees > 270 && degrees < 360) return {-1, 1};
    return {0, 0};
}

void move(std::int32_t& coordinate, double heights, float lineHeight) {
    if (heights != 0) coordinate = roundedToInt32(coordinate + heights * double{lineHeight});
}

}  // namespace

TextView textLine(TextView text, std::int16_t number) { return ExtraitChamp(text, number, L"\r\n", false); }

std::int32_t tenthsOfDegree(float degrees) { return roundedToInt32(double{degrees * 10.0F}); }

void advanceLine(std::int32_t& x, std::int32_t& y, float degrees, float lineHeight) {
    const auto direction = directionAt(degrees);
    move(y, direction.y, lineHeight);
    move(x, direction.x, lineHeight);
}

}  // namespace vorla
