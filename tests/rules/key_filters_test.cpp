#include "misc/key_filters.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace vorla {
namespace {

using Filter = std::function<std::int16_t(std::int16_t)>;

// Every code, negative ones included, against a table that is right from 0 to 255; any other code gets
// `outside`.
void expectEveryCode(const Filter& filter, const std::array<int, 256>& expected,
                     const std::function<int(int)>& outside) {
    int different = 0;
    for (int code = -32768; code <= 32767; ++code) {
        const int right = code >= 0 && code < 256 ? expected[static_cast<std::size_t>(code)] : outside(code);
        different += filter(static_cast<std::int16_t>(code)) != right;
    }
    EXPECT_EQ(different, 0);
}

std::array<int, 256> unchanged() {
    std::array<int, 256> table{};
    for (int code = 0; code < 256; ++code) table[static_cast<std::size_t>(code)] = code;
    return table;
}

int same(int code) { return code; }
int refused(int) { return 0; }

TEST(KeyFilters, NumbersAreDigitsAndBackspace) {
    std::array<int, 256> kept{};
    kept[8] = 8;
    for (std::size_t digit = 48; digit <= 57; ++digit) kept[digit] = static_cast<int>(digit);
    expectEveryCode(numericKey, kept, refused);
}

TEST(KeyFilters, TwoKeysStandForTheDecimalSeparator) {
    int found = 0;
    for (int code = -32768; code <= 32767; ++code) found += isDecimalKey(static_cast<std::int16_t>(code));
    EXPECT_EQ(found, 2);
    EXPECT_TRUE(isDecimalKey(46));
    EXPECT_TRUE(isDecimalKey(44));
}

TEST(KeyFilters, FileNamesLackNineCharactersAndPathsSeven) {
    auto path = unchanged();
    //                  "   *   /   <   >   ?   |
    for (const auto c : {34, 42, 47, 60, 62, 63, 124}) path[static_cast<std::size_t>(c)] = 0;
    auto name = path;
    name[58] = 0;  // the colon
    name[92] = 0;  // the backslash
    const auto with = [](eKeyFileType type) {
        return [type](std::int16_t code) { return fileKey(code, type); };
    };
    expectEveryCode(with(eKeyFileType::ekftFilenameWithoutPath), name, same);
    expectEveryCode(with(eKeyFileType::ekftPathAndFileName), path, same);
    // Any other type is a name without its path.
    for (const int type : {-1, 2, 3, 256, 65537, -2147483647})
        expectEveryCode(with(static_cast<eKeyFileType>(type)), name, same);
}

// A code page with a few letters: those without accents, an accented pair, a letter whose upper-case form
// stands before it, and one whose upper-case form is elsewhere.
std::uint8_t upperOf(std::uint8_t character) {
    if (character >= 'a' && character <= 'z') return static_cast<std::uint8_t>(character - 32);
    switch (character) {
        case 0xE9: return 0xC9;
        case 0xFF: return 0x9F;
        case 0xB5: return '?';
        default: return character;
    }
}

TEST(KeyFilters, LettersBecomeUpperCase) {
    auto upper = unchanged();
    for (std::size_t letter = 97; letter <= 122; ++letter) upper[letter] = static_cast<int>(letter) - 32;
    upper[0xE9] = 0xC9;
    upper[0xFF] = 0x9F;
    // 0xB5 has no upper-case form there, and a question mark is its own.
    expectEveryCode([](std::int16_t code) { return upperKey(code, upperOf); }, upper, same);
}

// Every state of every key. The system reports only four: 0, 1, -128 and -127.
TEST(KeyFilters, KeysAreOnWhenTheyAreDownOrToggled) {
    for (int key = 0; key < 256; ++key) {
        const bool toggles = key == 19 || key == 20;
        int different = 0;
        for (int state = -32768; state <= 32767; ++state) {
            const bool on = state <= -127 || (toggles && state == 1);
            different += isKeyOn(static_cast<ToucheCtl>(key), static_cast<std::int16_t>(state)) != on;
        }
        EXPECT_EQ(different, 0) << key;
    }
    // The other two locks are keys like any other.
    EXPECT_FALSE(isKeyOn(ToucheCtl::VerrouNumérique, 1));
    EXPECT_FALSE(isKeyOn(ToucheCtl::ArrêtDefil, 1));
    EXPECT_TRUE(isKeyOn(ToucheCtl::VerrouNumérique, -127));
}

}  // namespace
}  // namespace vorla
