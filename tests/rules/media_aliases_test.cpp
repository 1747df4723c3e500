#include "media/aliases.h"

#include <gtest/gtest.h>

namespace vorla::media {
namespace {

mmCanal channel(std::int32_t number) { return static_cast<mmCanal>(number); }
MMType type(std::int32_t number) { return static_cast<MMType>(number); }

TEST(Aliases, AreMadeOfTypeAndChannel) {
    const struct {
        MMType type;
        TextView base;
    } rows[] = {{MMType::AviMpg, L"SonAvi"},
                {MMType::Wav, L"SonWav"},
                {MMType::Midi, L"SonMidi"},
                {MMType::Mp3, L"SonMp3"},
                {MMType::CD, L"QZCDPlay"},
                {type(0), L""},
                {type(3), L""},
                {type(31), L""},
                {type(-1), L""}};
    const TextView numbers[] = {L"", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"10"};
    for (const auto& row : rows)
        for (std::int32_t number = 0; number <= 10; ++number)
            EXPECT_EQ(aliasName(channel(number), row.type), Text(row.base) + Text(numbers[number]));
}

TEST(Aliases, OfChannelsThatDoNotExistAreThoseOfChannel0) {
    for (const std::int32_t number : {-1, 11, 12, 2147483647, -2147483647 - 1})
        EXPECT_EQ(aliasName(channel(number), MMType::Mp3, L"C:\\A.MP3"), L"SonMp3") << number;
}

TEST(Aliases, AreFileNamesOnChannel10) {
    EXPECT_EQ(aliasName(mmCanal::Canal99_FileName, MMType::Mp3, L"C:\\A.MP3"), L"C:\\A.MP3");
    EXPECT_EQ(aliasName(mmCanal::Canal99_FileName, MMType::Wav, L""), L"SonWav10");
    EXPECT_EQ(aliasName(mmCanal::Canal9, MMType::Mp3, L"C:\\A.MP3"), L"SonMp39");
    EXPECT_EQ(aliasName(mmCanal::Canal0_Defaut, MMType::Mp3, L"C:\\A.MP3"), L"SonMp3");
}

TEST(MediaTypes, FollowTheExtension) {
    const struct {
        TextView extension;
        std::int32_t type;
    } rows[] = {{L"AVI", 1}, {L"MPG", 1},  {L"MPEG", 1}, {L"WMV", 1}, {L"WAV", 2},
                {L"MID", 4}, {L"MP3", 8},  {L"CDA", 16}, {L"", 0},    {L"MPE", 0},
                {L"wav", 0}, {L"MIDI", 0}, {L"OGG", 0},  {L"WAV ", 0}};
    for (const auto& row : rows) EXPECT_EQ(typeOfExtension(row.extension), type(row.type)) << row.type;
}

TEST(MediaTypes, AreBits) {
    for (std::int32_t sources = 0; sources <= 31; ++sources)
        for (const std::int32_t bit : {1, 2, 4, 8, 16})
            EXPECT_EQ(has(type(sources), type(bit)), sources / bit % 2 == 1) << sources << ' ' << bit;
    EXPECT_TRUE(has(fromFileName, MMType::CD));
}

TEST(MediaTypes, WithoutPictureAreThree) {
    for (std::int32_t number = -1; number <= 31; ++number)
        EXPECT_EQ(isSound(type(number)), number == 2 || number == 4 || number == 8) << number;
}

}  // namespace
}  // namespace vorla::media
