// Picture files for the page of the tour.
#pragma once

#include <string>

namespace vorla::test {

/// Converts a picture file to PNG, which is a tenth of a bitmap's size. Returns whether that worked.
bool saveAsPng(const std::wstring& picture, const std::wstring& png);

}  // namespace vorla::test
