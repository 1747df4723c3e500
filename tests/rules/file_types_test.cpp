#include "system/file_types.h"

#include <gtest/gtest.h>

#include "shown.h"

namespace vorla {
namespace {

struct Row {
    eFiletype type;
    const wchar_t* extensions;
};

// One list a kind, its extensions between blanks.
constexpr Row rows[] = {
    {eFiletype::eftVideo, L" avi mpg mpeg wmv mov "},
    {eFiletype::eftSound, L" wav mp3 "},
    {eFiletype::eftZip, L" zip arj ace arc cab dwc gzip jar lbr lzh mar mhk rar sqz tar war zlib zoo xcr "},
    {eFiletype::eftPicture,
     L" iff bmp jpg jpeg gif pcx pgm pct pict png psd rle sgi rgb bw rgba tga tif tiff wmf emf ico "},
    {eFiletype::eftOther, L" gz txt exe ts mp4 cd cda AVI Mp3 av avix "},
};

TEST(FileTypes, FollowTheirLists) {
    for (const Row& row : rows) {
        TextView rest = row.extensions;
        for (rest.remove_prefix(1); !rest.empty(); rest.remove_prefix(rest.find(L' ') + 1)) {
            const auto extension = rest.substr(0, rest.find(L' '));
            EXPECT_EQ(typeOfExtension(extension), row.type) << shown(extension);
        }
    }
    EXPECT_EQ(typeOfExtension(L""), eFiletype::eftOther);
    EXPECT_EQ(typeOfExtension(L" avi"), eFiletype::eftOther);
    EXPECT_EQ(typeOfExtension(TextView(L"avi\0", 4)), eFiletype::eftOther);
}

// Every extension of up to three small letters: those of the lists above, and no other.
TEST(FileTypes, KnowNoOtherShortExtension) {
    Text extension;
    const auto expected = [&] {
        for (const Row& row : rows)
            if (TextView(row.extensions).find(L" " + extension + L" ") != TextView::npos) return row.type;
        return eFiletype::eftOther;
    };
    for (wchar_t a = L'a'; a <= L'z'; ++a)
        for (wchar_t b = L'a'; b <= L'z'; ++b) {
            extension = {a, b};
            EXPECT_EQ(typeOfExtension(extension), expected()) << shown(extension);
            for (wchar_t c = L'0'; c <= L'z'; ++c) {
                extension = {a, b, c};
                EXPECT_EQ(typeOfExtension(extension), expected()) << shown(extension);
            }
        }
}

}  // namespace
}  // namespace vorla
