// The mixer's mute, which no public member reaches, and the line that a mixer object keeps.
#include "media/ClsMixer.h"

#include <gtest/gtest.h>

#include "contract/fake_mixer.h"

namespace vorla::test {
namespace {

using Log = std::vector<std::string>;
constexpr DWORD volumeType = 0x50030001, muteType = 0x20010002;

class ClsMixerTest : public testing::Test {
protected:
    Log log;
    FakeMixer mixer{GetModuleHandleW(nullptr), log};
};

TEST_F(ClsMixerTest, isOpenAsLongAsItLives) {
    {
        const ClsMixer object;
        EXPECT_EQ(1, mixer.openMixers);
        EXPECT_EQ(0u, object.lastError());
    }
    EXPECT_EQ(log, (Log{"open", "close"}));
    mixer.failCall(1);
    EXPECT_EQ(MMSYSERR_BADDEVICEID, ClsMixer().lastError());
    EXPECT_EQ(log, (Log{"open", "close", "open"}));
}

TEST_F(ClsMixerTest, muteOfANewObjectIsThatOfLine0) {
    mixer.control(0, muteType, {3, 0, 1});
    const struct {
        std::int32_t source;
        const char* line;
    } rows[] = {{0, "4"},    {1, "1005"}, {2, "1002"}, {3, "1003"}, {4, "1000"},
                {5, "1008"}, {6, "1004"}, {7, "4"},    {8, "4"}};
    for (const auto& row : rows) {
        const auto source = static_cast<eMixerType>(row.source);
        const Log finding{"open", std::string("line ") + row.line + " by 2", "control 20010002 of 0"};
        log.clear();
        mixer.value(0, muteType) = 1;
        EXPECT_TRUE(ClsMixer().Mute(source));
        auto expected = finding;
        expected.insert(expected.end(), {"get 3", "close"});
        EXPECT_EQ(log, expected);
        // Only 1 is muted.
        for (const DWORD value : {0u, 2u, 0xFFFF'FFFFu}) {
            mixer.value(0, muteType) = value;
            EXPECT_FALSE(ClsMixer().Mute(source)) << value;
        }
        for (const bool muted : {true, false}) {
            log.clear();
            ClsMixer().setMute(source, muted);
            expected = finding;
            expected.insert(expected.end(), {muted ? "set 3 to 1" : "set 3 to 0", "close"});
            EXPECT_EQ(log, expected);
        }
    }
}

TEST_F(ClsMixerTest, muteReachesTheLineThatWasLookedUpBefore) {
    mixer.line(0x1008, 7).control(7, volumeType, {1, 0, 500}).control(7, muteType, {2, 0, 1});
    ClsMixer object;
    EXPECT_EQ(500, object.volume(eMixerType::emxtWave));
    EXPECT_TRUE(object.Mute(eMixerType::emxtMaster));
    EXPECT_EQ(log, (Log{"open", "line 1008 by 3", "control 50030001 of 7", "get 1", "line 4 by 2",
                        "control 20010002 of 7", "get 2"}));
}

TEST_F(ClsMixerTest, muteOfLineInTriesTheAuxiliaryLine) {
    EXPECT_FALSE(ClsMixer().Mute(eMixerType::emxtLineIn));
    EXPECT_EQ(log, (Log{"open", "line 1002 by 2", "control 20010002 of 0", "line 1009 by 2",
                        "control 20010002 of 0", "close"}));
}

TEST_F(ClsMixerTest, muteOfWhatDoesNotExistIsFalse) {
    for (const std::int32_t source : {9, -1}) {
        log.clear();
        EXPECT_FALSE(ClsMixer().Mute(static_cast<eMixerType>(source)));
        ClsMixer().setMute(static_cast<eMixerType>(source), true);
        EXPECT_EQ(log, (Log{"open", "close", "open", "close"}));
    }
}

TEST_F(ClsMixerTest, everyCallFailsInTurn) {
    mixer.control(0, muteType, {3, 0, 1});
    // Without a handle the system takes the first device.
    mixer.failCall(1);
    EXPECT_TRUE(ClsMixer().Mute(eMixerType::emxtMaster));
    const MMRESULT codes[] = {MIXERR_INVALLINE, MIXERR_INVALCONTROL, MMSYSERR_ERROR};
    for (int failing = 2; failing <= 4; ++failing) {
        mixer.failCall(failing);
        ClsMixer object;
        EXPECT_FALSE(object.Mute(eMixerType::emxtMaster)) << failing;
        EXPECT_EQ(codes[failing - 2], object.lastError());
    }
    EXPECT_EQ(0, mixer.openMixers);
}

}  // namespace
}  // namespace vorla::test
