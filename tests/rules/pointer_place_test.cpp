#include "misc/pointer_place.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorla {
namespace {

constexpr auto most = std::numeric_limits<std::int32_t>::max();
constexpr auto least = std::numeric_limits<std::int32_t>::min();

TEST(PointerPlace, IsTheMiddleWithHalvesToEven) {
    const struct {
        std::int32_t from, to, middle;
    } rows[] = {{0, 10, 5},
                {0, 1, 0},
                {0, 3, 2},
                {1, 4, 2},
                {2, 5, 4},
                {10, 10, 10},
                {-10, 0, -5},
                {-3, 0, -2},
                {-1, 0, 0},
                {-5, -2, -4},
                {100, 0, 50},
                {most, most, most},
                {least, least, least},
                {least, most, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(middle(row.from, row.to), row.middle) << row.from << ", " << row.to;
}

}  // namespace
}  // namespace vorla
