// Counts drawing objects (pens, brushes, fonts, bitmaps, device contexts, regions), which tests may leak.
#pragma once

#include <windows.h>

#include <vector>

namespace vorla::test {

/// How many more of them this process can have: two equal answers mean that nothing was left in between.
/// GetGuiResources would say it directly, but answers 0 under Wine.
inline std::size_t drawingObjectsLeft() {
    std::vector<HGDIOBJ> taken;
    while (const auto brush = CreateSolidBrush(RGB(1, 2, 3))) taken.push_back(brush);
    for (const auto brush : taken) DeleteObject(brush);
    return taken.size();
}

}  // namespace vorla::test
