#include "system/words.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorla {
namespace {

constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();

std::int32_t bits(std::uint32_t value) { return static_cast<std::int32_t>(value); }

TEST(Words, ArePieces) {
    EXPECT_EQ(lowWord(0x12345678), 0x5678);
    EXPECT_EQ(highWord(0x12345678), 0x1234);
    EXPECT_EQ(lowByte(0x12345678), 0x78);
    EXPECT_EQ(highByte(0x12345678), 0x56);
    EXPECT_EQ(lowWord(0xFFFF), -1);
    EXPECT_EQ(lowWord(0x8000), -32768);
    EXPECT_EQ(lowWord(0x7FFF), 32767);
    EXPECT_EQ(highWord(-1), -1);
    EXPECT_EQ(highWord(least), -32768);
    EXPECT_EQ(highWord(most), 32767);
    EXPECT_EQ(lowByte(-1), 255);
    EXPECT_EQ(highByte(-1), 255);
    EXPECT_EQ(lowByte(256), 0);
    EXPECT_EQ(highByte(0xFF), 0);
    EXPECT_EQ(highByte(least), 0);
}

TEST(Words, AreJoined) {
    EXPECT_EQ(joinedWords(2, 1), 65538);
    EXPECT_EQ(joinedWords(0x7FFF, 0x7FFF), 0x7FFF7FFF);
    EXPECT_EQ(joinedWords(0, 0x8000), least);
    EXPECT_EQ(joinedWords(0, -1), bits(0xFFFF0000));
    // Only the low words count.
    EXPECT_EQ(joinedWords(0x50002, 0x60001), 65538);
    // A low word of &H8000 or more overwrites the high one.
    EXPECT_EQ(joinedWords(0xFFFF, 1), -1);
    EXPECT_EQ(joinedWords(0x8000, 0x1234), -32768);
    EXPECT_EQ(joinedWords(-2, 0), -2);
}

TEST(Bytes, AreJoined) {
    EXPECT_EQ(joinedBytes(0x1234, 0x56), 0x5634);
    EXPECT_EQ(joinedBytes(0, 0), 0);
    EXPECT_EQ(joinedBytes(0xFF, 0xFF), 0xFFFF);
    EXPECT_EQ(joinedBytes(-1, -1), 0xFFFF);
    EXPECT_EQ(joinedBytes(0x100, 0x100), 0);
}

// Every low word with a few high ones: both come back, unless the low one overwrites the high one.
TEST(Words, ComeApartAsTheyWereJoined) {
    for (std::int32_t low = -32768; low < 32768; ++low)
        for (const std::int32_t high : {-32768, -1, 0, 1, 32767}) {
            const auto joined = joinedWords(low, high);
            ASSERT_EQ(lowWord(joined), low);
            ASSERT_EQ(highWord(joined), low < 0 ? -1 : high) << low;
        }
    for (std::int32_t low = 0; low < 256; ++low)
        for (std::int32_t high = 0; high < 256; ++high) {
            const auto joined = joinedBytes(low, high);
            ASSERT_EQ(lowByte(joined), low);
            ASSERT_EQ(highByte(joined), high);
        }
}

TEST(SignedWord, HasTheBitsOfTheUnsignedOne) {
    for (std::int32_t value = -32768; value < 32768; ++value) ASSERT_EQ(signedWord(value), value);
    for (std::int32_t value = 32768; value < 65536; ++value) ASSERT_EQ(signedWord(value), value - 65536);
    // 65536 is subtracted only once.
    EXPECT_EQ(signedWord(65536), 0);
    EXPECT_EQ(signedWord(98303), 32767);
}

TEST(SignedWord, FailsForWhatIsNoWord) {
    for (const std::int32_t value : {98304, 131072, most, -32769, -65536, least}) try {
            ADD_FAILURE() << value << " is " << signedWord(value);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), ErrorNumber::overflow) << value;
        }
}

}  // namespace
}  // namespace vorla
