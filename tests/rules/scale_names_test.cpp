#include "misc/scale_names.h"

#include <gtest/gtest.h>

namespace vorla {
namespace {

TEST(ScaleNames, AreNumberedFromZero) {
    const struct {
        TextView name;
        int mode;
    } rows[] = {{L"user", 0},      {L"twip", 1},     {L"point", 2},      {L"pixel", 3},
                {L"character", 4}, {L"inch", 5},     {L"millimeter", 6}, {L"centimeter", 7},
                {L"", 1},          {L"Pixel", 1},    {L"pixels", 1},     {L"pixe", 1},
                {L" pixel", 1},    {L"himetric", 1}, {L"\u00E9", 1},     {TextView(L"user\0", 5), 1}};
    for (const auto& row : rows) EXPECT_EQ(scaleModeNamed(row.name), row.mode) << &row - rows;
}

}  // namespace
}  // namespace vorla
