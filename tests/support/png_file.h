// Pictures as people send and show them.
#pragma once

#include <string>

namespace vorla::test {

/// Writes a picture file again as PNG, which is a tenth of a bitmap file; whether that worked.
bool saveAsPng(const std::wstring& picture, const std::wstring& png);

}  // namespace vorla::test
