// Where TextRotate writes its lines.
#pragma once

#include <cstdint>

#include "frame/values/text.h"

namespace vorla {

/// Line `number` of a text, counted from 1; lines end with CR LF. Empty after the last line. Error 6 when the
/// end of one of several lines is past character 32,764.
TextView textLine(TextView text, std::int16_t number);

/// An angle in tenths of a degree, halves rounded to even. Error 6 past 32 bits.
std::int32_t tenthsOfDegree(float degrees);

/// Moves a position to the next line. The direction depends on the angle's quadrant only, so that lines of
/// slanted text overlap or spread; below 0 and from 360 degrees on the position stays. Error 6 past 32 bits;
/// y has then moved if x is what failed.
void advanceLine(std::int32_t& x, std::int32_t& y, float degrees, float lineHeight);

}  // namespace vorla
