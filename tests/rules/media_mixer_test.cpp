#include <gtest/gtest.h>

#include "media/mixer_scale.h"
#include "media/mixer_targets.h"
#include "outcome.h"

namespace vorla::media {
namespace {

TEST(MixerScale, TurnsEveryPercentageIntoAVolumeAndBack) {
    for (int percent = 0; percent <= 255; ++percent) {
        // In hundredths, so that the nearest whole number is an integer's business.
        const int hundredths = percent * 65535, below = hundredths / 100, rest = hundredths % 100;
        const int expected = rest > 50 || (rest == 50 && below % 2 != 0) ? below + 1 : below;
        EXPECT_EQ(volumeOfPercent(percent), expected) << percent;
        EXPECT_EQ(percentOfVolume(expected), percent);
    }
    EXPECT_EQ(volumeOfPercent(100), 65535);
    EXPECT_EQ(volumeOfPercent(50), 32768);
    EXPECT_EQ(volumeOfPercent(1), 655);
    EXPECT_EQ(volumeOfPercent(30), 19660);  // 19660.5
}

TEST(MixerScale, TurnsEveryVolumeIntoThePercentageNearby) {
    for (int volume = 0; volume <= 65535; ++volume) {
        // 65535 is odd and a hundredfold even, so no volume lies halfway.
        const int expected = (volume * 200 + 65535) / (2 * 65535);
        ASSERT_EQ(percentOfVolume(volume), expected) << volume;
    }
}

TEST(MixerScale, OverflowsAboveItsTypes) {
    const Outcome<std::uint8_t> overflow = Raises(6);
    const auto percent = [](std::int32_t volume) {
        return outcomeOf([=] { return percentOfVolume(volume); });
    };
    EXPECT_EQ(percent(-1), Outcome<std::uint8_t>(std::uint8_t{0}));
    EXPECT_EQ(percent(-327), Outcome<std::uint8_t>(std::uint8_t{0}));
    EXPECT_EQ(percent(-328), overflow);
    // 255.5 percent of 65535 are 167441.9.
    EXPECT_EQ(percent(167441), Outcome<std::uint8_t>(std::uint8_t{255}));
    EXPECT_EQ(percent(167442), overflow);
    EXPECT_EQ(percent(21474836), overflow);
    EXPECT_EQ(percent(21474837), overflow);
    EXPECT_EQ(percent(2147483647), overflow);
    EXPECT_EQ(percent(-2147483647 - 1), overflow);
}

TEST(MixerTargets, AreLinesAndControls) {
    const struct {
        std::uint32_t component, alternative, control, muteComponent;
    } rows[] = {{4, 0, 0x50030001, 4},
                {0x1005, 0, 0x50030001, 0x1005},
                {0x1002, 0x1009, 0x50030001, 0x1002},
                {0x1003, 0, 0x50030001, 0x1003},
                {0x1000, 0, 0x50030001, 0x1000},
                {0x1008, 0, 0x50030001, 0x1008},
                {0x1004, 0, 0x50030001, 0x1004},
                {4, 0, 0x50030002, 4},
                {4, 0, 0x50030003, 4}};
    std::int32_t number = 0;
    for (const auto& row : rows) {
        const auto source = static_cast<eMixerType>(number++);
        const auto volume = mixerTarget(source, ControlKind::volume);
        ASSERT_TRUE(volume) << number;
        EXPECT_EQ(volume->component, row.component) << number;
        EXPECT_EQ(volume->alternative, row.alternative) << number;
        EXPECT_EQ(volume->control, row.control) << number;
        EXPECT_EQ(volume->lookUp, 3u) << number;
        const auto mute = mixerTarget(source, ControlKind::mute);
        ASSERT_TRUE(mute) << number;
        EXPECT_EQ(mute->component, row.muteComponent) << number;
        EXPECT_EQ(mute->alternative, row.alternative) << number;
        EXPECT_EQ(mute->control, 0x20010002u) << number;
        EXPECT_EQ(mute->lookUp, 2u) << number;
    }
}

TEST(MixerTargets, DoNotExistForOtherSources) {
    for (const std::int32_t number : {9, -1, 2147483647, -2147483647 - 1})
        for (const auto kind : {ControlKind::volume, ControlKind::mute})
            EXPECT_FALSE(mixerTarget(static_cast<eMixerType>(number), kind)) << number;
}

}  // namespace
}  // namespace vorla::media
