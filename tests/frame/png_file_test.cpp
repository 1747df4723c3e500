#include "support/png_file.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

using namespace std::string_view_literals;

// A bitmap file of two pixels by one, 24 bits each.
constexpr auto bitmap =
    "BM\x3E\0\0\0\0\0\0\0\x36\0\0\0"
    "\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0\0\0\0\0\x08\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
    "\x10\x20\x30\xF0\xE0\xD0\0\0"sv;

TEST(PngFile, aPictureIsWrittenAgain) {
    const TemporaryFolder folder;
    const auto picture = folder.file(L"deux.bmp", bitmap), png = folder.path(L"deux.png");
    ASSERT_TRUE(saveAsPng(picture, png));
    const File file(CreateFileW(png.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    std::string head(24, '\0');
    DWORD count = 0;
    ASSERT_TRUE(ReadFile(file.get(), head.data(), static_cast<DWORD>(head.size()), &count, nullptr));
    // The signature, then the first chunk's length and name, width and height.
    EXPECT_EQ("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x02\0\0\0\x01"sv, head);
}

TEST(PngFile, whatIsNoPictureIsNotWritten) {
    const TemporaryFolder folder;
    EXPECT_FALSE(saveAsPng(folder.path(L"absent.bmp"), folder.path(L"absent.png")));
    EXPECT_FALSE(saveAsPng(folder.file(L"texte.bmp", "BM"), folder.path(L"texte.png")));
    EXPECT_FALSE(saveAsPng(folder.file(L"deux.bmp", bitmap), folder.path(L"absent\\deux.png")));
}

}  // namespace
}  // namespace vorla::test
