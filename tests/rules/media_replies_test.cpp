#include "media/replies.h"

#include <gtest/gtest.h>

#include "outcome.h"

namespace vorla::media {
namespace {

TEST(Replies, BeginWithNumbers) {
    const struct {
        TextView reply;
        Outcome<std::int32_t> long32;
        Outcome<std::int16_t> short16;
    } rows[] = {{L"", 0, std::int16_t{0}},
                {L"abc", 0, std::int16_t{0}},
                {L"75000 ms", 75000, Raises(6)},
                {L"12", 12, std::int16_t{12}},
                {L"-12", -12, std::int16_t{-12}},
                {L" 1 2x", 12, std::int16_t{12}},
                {L"2.5", 2, std::int16_t{2}},
                {L"3.5", 4, std::int16_t{4}},
                {L"00:03:25", 0, std::int16_t{0}},
                {L"32767", 32767, std::int16_t{32767}},
                {L"32767.5", 32768, Raises(6)},
                {L"-32768", -32768, std::int16_t{-32768}},
                {L"-32769", -32769, Raises(6)},
                {L"2147483647", 2147483647, Raises(6)},
                {L"2147483648", Raises(6), Raises(6)},
                {L"1e400", Raises(6), Raises(6)}};
    for (const auto& row : rows) {
        EXPECT_EQ(outcomeOf([&] { return beginningInt32(row.reply); }), row.long32) << Text(row.reply).size();
        EXPECT_EQ(outcomeOf([&] { return beginningInt16(row.reply); }), row.short16);
    }
}

TEST(Replies, OfDigitsThatFillTheBufferOverflow) {
    EXPECT_EQ(outcomeOf([&] { return beginningInt32(Text(128, L'9')); }), Outcome<std::int32_t>(Raises(6)));
    EXPECT_EQ(beginningInt32(Text(128, L'0')), 0);
}

TEST(Replies, NameStates) {
    const struct {
        TextView reply;
        std::int32_t status;
    } rows[] = {{L"playing", 0},  {L"paused", 1},  {L"stopped", 2}, {L"not ready", 3}, {L"recording", 4},
                {L"parked", 5},   {L"open", 6},    {L"seeking", 7}, {L"", 0},          {L"Paused", 0},
                {L"stopped ", 0}, {L"lecture", 0}, {L"opened", 0}};
    for (const auto& row : rows)
        EXPECT_EQ(static_cast<std::int32_t>(statusIn(row.reply)), row.status) << Text(row.reply).size();
}

TEST(Replies, SayPlayingByFourLetters) {
    for (const TextView reply : {L"play", L"playing", L"played"}) EXPECT_TRUE(saysPlaying(reply));
    for (const TextView reply : {L"", L"pla", L"Playing", L" play", L"stopped"})
        EXPECT_FALSE(saysPlaying(reply));
}

}  // namespace
}  // namespace vorla::media
