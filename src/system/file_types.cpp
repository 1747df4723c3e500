#include "system/file_types.h"

#include <algorithm>
#include <iterator>

namespace vorla {
namespace {

constexpr TextView video[] = {L"avi", L"mpg", L"mpeg", L"wmv", L"mov"};
constexpr TextView sound[] = {L"wav", L"mp3"};
constexpr TextView zip[] = {L"zip", L"arj", L"ace", L"arc", L"cab", L"dwc", L"gzip", L"jar", L"lbr", L"lzh",
                            L"mar", L"mhk", L"rar", L"sqz", L"tar", L"war", L"zlib", L"zoo", L"xcr"};
constexpr TextView picture[] = {L"iff",  L"bmp", L"jpg",  L"jpeg", L"gif", L"pcx", L"pgm", L"pct",
                                L"pict", L"png", L"psd",  L"rle",  L"sgi", L"rgb", L"bw",  L"rgba",
                                L"tga",  L"tif", L"tiff", L"wmf",  L"emf", L"ico"};

template <std::size_t count>
bool holds(const TextView (&list)[count], TextView extension) {
    return std::find(std::begin(list), std::end(list), extension) != std::end(list);
}

}  // namespace

eFiletype typeOfExtension(TextView extension) {
    if (holds(video, extension)) return eFiletype::eftVideo;
    if (holds(sound, extension)) return eFiletype::eftSound;
    if (holds(zip, extension)) return eFiletype::eftZip;
    if (holds(picture, extension)) return eFiletype::eftPicture;
    return eFiletype::eftOther;
}

}  // namespace vorla
