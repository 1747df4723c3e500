// VorlaMultiMedia's mixer, its wave volumes and its system sounds.
#include "contract/fake_mixer.h"
#include "contract/media_fixture.h"
#include "support/memory_count.h"

namespace vorla::test {
namespace {

constexpr DWORD volumeType = 0x50030001, bassType = 0x50030002, trebleType = 0x50030003;
constexpr DWORD speakers = 4, auxiliary = 0x1009, lineIn = 0x1002, disc = 0x1005, wave = 0x1008;

class Mixer : public MultiMedia {
protected:
    Log put(const wchar_t* name, Arguments arguments) {
        log.clear();
        outcome = invoke(object.get(), name, std::move(arguments), DISPATCH_PROPERTYPUT);
        return log;
    }
    Log setVolume(int type, int value) {
        return put(L"MMMixVolume", Arguments{long32(type)}.named(DISPID_PROPERTYPUT, long32(value)));
    }

    FakeMixer mixer{module, log};
};

TEST_F(Mixer, everySourceHasItsLineAndControl) {
    const struct {
        DWORD component, control;
    } rows[] = {{4, volumeType},      {0x1005, volumeType}, {0x1002, volumeType},
                {0x1003, volumeType}, {0x1000, volumeType}, {0x1008, volumeType},
                {0x1004, volumeType}, {4, bassType},        {4, trebleType}};
    const char* const lines[] = {"4", "1005", "1002", "1003", "1000", "1008", "1004", "4", "4"};
    const char* const controls[] = {"50030001", "50030001", "50030001", "50030001", "50030001",
                                    "50030001", "50030001", "50030002", "50030003"};
    for (DWORD i = 0; i < 9; ++i)
        mixer.line(rows[i].component, 20 + rows[i].component)
            .control(20 + rows[i].component, rows[i].control, {i + 1, 0, 1000 * i + 5});
    for (DWORD i = 0; i < 9; ++i) {
        const auto number = std::to_string(i + 1);
        const Log finding{
            "open", std::string("line ") + lines[i] + " by 3",
            std::string("control ") + controls[i] + " of " + std::to_string(20 + rows[i].component)};
        EXPECT_EQ(sentBy(L"MMMixVolume", {long32(static_cast<int>(i))}),
                  finding + (Log{"get " + number, "close"}));
        expect(long32(static_cast<int>(1000 * i + 5)));
        EXPECT_EQ(setVolume(static_cast<int>(i), 77), finding + (Log{"set " + number + " to 77", "close"}));
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(sentBy(L"MMMixPanVolume", {long32(static_cast<int>(i)), long32(65535), long32(0)}),
                  finding + (Log{"set " + number + " to 65535 and 0", "close"}));
        expect(Variant(true));
    }
}

TEST_F(Mixer, lineInFallsBackToTheAuxiliaryLine) {
    mixer.line(auxiliary, 6).control(6, volumeType, {2, 0, 900});
    const Log finding{"open", "line 1002 by 3", "line 1009 by 3", "control 50030001 of 6"};
    EXPECT_EQ(sentBy(L"MMMixVolume", {long32(2)}), finding + (Log{"get 2", "close"}));
    expect(long32(900));
    mixer.line(lineIn, 5);
    EXPECT_EQ(sentBy(L"MMMixVolume", {long32(2)}),
              (Log{"open", "line 1002 by 3", "control 50030001 of 5", "line 1009 by 3",
                   "control 50030001 of 6", "get 2", "close"}));
    expect(long32(900));
}

TEST_F(Mixer, whatDoesNotExistIsNotFound) {
    for (const int type : {9, -1, 2147483647}) {
        EXPECT_EQ(sentBy(L"MMMixVolume", {long32(type)}), (Log{"open", "close"})) << type;
        expect(long32(-1));
        EXPECT_EQ(setVolume(type, 5), (Log{"open", "close"}));
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(sentBy(L"MMMixPanVolume", {long32(type), long32(1), long32(2)}), (Log{"open", "close"}));
        expect(Variant(false));
    }
    mixer.line(speakers, 3);
    EXPECT_EQ(sentBy(L"MMMixVolume", {long32(7)}),
              (Log{"open", "line 4 by 3", "control 50030002 of 3", "close"}));
    expect(long32(-1));
    EXPECT_EQ(setVolume(7, 5), (Log{"open", "line 4 by 3", "control 50030002 of 3", "close"}));
    EXPECT_EQ(sentBy(L"MMMixVolume", {long32(5)}), (Log{"open", "line 1008 by 3", "close"}));
    expect(long32(-1));
}

TEST_F(Mixer, stereoVolumesKeepTheControlsItems) {
    mixer.line(wave, 1).control(1, volumeType, {8, 3, 0});
    sentBy(L"MMMixPanVolume", {long32(5), long32(-1), long32(2147483647)});
    EXPECT_EQ(log[3], "set 8 to -1 and 2147483647");
    expect(Variant(true));
}

TEST_F(Mixer, everyCallFailsInTurn) {
    mixer.line(speakers, 3).control(3, volumeType, {1, 0, 500});
    // In order: opening, which the others do without, the line, the control, the value.
    const int volumes[] = {500, -1, -1, 0};
    for (int failing = 1; failing <= 4; ++failing) {
        mixer.failCall(failing);
        sentBy(L"MMMixVolume", {long32(0)});
        expect(long32(volumes[failing - 1]), std::to_string(failing));
        EXPECT_EQ(0, mixer.openMixers);
    }
    for (int failing = 1; failing <= 4; ++failing) {
        mixer.failCall(failing);
        sentBy(L"MMMixPanVolume", {long32(0), long32(1), long32(2)});
        expect(Variant(failing == 1), std::to_string(failing));
        mixer.failCall(failing);
        setVolume(0, 500);
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(0, mixer.openMixers);
    }
}

TEST_F(Mixer, memoryIsLockedUnlockedAndFreed) {
    mixer.line(speakers, 3).control(3, volumeType, {1, 0, 500});
    Intercept<decltype(GlobalAlloc)> allocate(module, "kernel32.dll", "GlobalAlloc");
    Intercept<decltype(GlobalLock)> lock(module, "kernel32.dll", "GlobalLock");
    Intercept<decltype(GlobalUnlock)> unlock(module, "kernel32.dll", "GlobalUnlock");
    Intercept<decltype(GlobalFree)> release(module, "kernel32.dll", "GlobalFree");
    std::vector<SIZE_T> sizes;
    allocate.answer([&](UINT flags, SIZE_T size) {
        EXPECT_EQ(64u, flags);
        sizes.push_back(size);
        return allocate.callOriginal(flags, size);
    });
    sentBy(L"MMMixVolume", {long32(0)});
    EXPECT_EQ(sizes, (std::vector<SIZE_T>{148, 4}));
    sizes.clear();
    sentBy(L"MMMixPanVolume", {long32(0), long32(1), long32(2)});
    EXPECT_EQ(sizes, (std::vector<SIZE_T>{148, 8}));
    EXPECT_EQ(4, lock.calls());
    EXPECT_EQ(4, unlock.calls());
    EXPECT_EQ(4, release.calls());
    for (int failing = 1; failing <= 2; ++failing) {
        allocate.failCall(failing, nullptr);
        sentBy(L"MMMixVolume", {long32(0)});
        expect(long32(-1));
        allocate.failCall(failing, nullptr);
        sentBy(L"MMMixPanVolume", {long32(0), long32(1), long32(2)});
        expect(Variant(false));
        lock.failCall(failing, nullptr);
        sentBy(L"MMMixVolume", {long32(0)});
        expect(long32(-1));
        lock.failCall(failing, nullptr);
        setVolume(0, 3);
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(0, mixer.openMixers);
    }
    // The four blocks that could not be locked were freed without being unlocked.
    EXPECT_EQ(lock.calls() - 4, unlock.calls());
    EXPECT_EQ(lock.calls(), release.calls());
}

TEST_F(Mixer, scalesAreConverted) {
    const struct {
        int volume, percent;
    } rows[] = {{0, 0}, {655, 1}, {32768, 50}, {65535, 100}, {167441, 255}};
    for (const auto& row : rows)
        expectResult(call(L"MMMixConvToPercent", {long32(row.volume)}), octet(row.percent));
    for (const int volume : {-400, 167442, 21474837, 2147483647})
        expectError(call(L"MMMixConvToPercent", {long32(volume)}), 6, std::to_string(volume));
    expectResult(call(L"MMMixConvToLong", {octet(0)}), long32(0));
    expectResult(call(L"MMMixConvToLong", {octet(1)}), long32(655));
    expectResult(call(L"MMMixConvToLong", {octet(50)}), long32(32768));
    expectResult(call(L"MMMixConvToLong", {octet(100)}), long32(65535));
    expectResult(call(L"MMMixConvToLong", {octet(255)}), long32(167114));
}

const Log findingDisc{"open", "line 1005 by 3", "control 50030001 of 2"};
Log gotDisc() { return findingDisc + (Log{"get 9", "close"}); }
Log setDisc(int value) { return findingDisc + (Log{"set 9 to " + std::to_string(value), "close"}); }

TEST_F(Mixer, theDiscsVolumeIsTheMixers) {
    mixer.line(disc, 2).control(2, volumeType, {9, 0, 32768});
    EXPECT_EQ(sentBy(L"MMVolGet", {text(L"QZCDPlay")}), gotDisc());
    expect(short16(50));
    EXPECT_EQ(sentBy(L"MMVolume", {octet(50), text(L"QZCDPlay")}), setDisc(32768));
    EXPECT_EQ(sentBy(L"MMVolume", {octet(1), text(L""), long32(16)}), setDisc(655));
    EXPECT_EQ(sentBy(L"MMVolume", {octet(255), text(L"QZCDPlay")}), setDisc(167114));
    EXPECT_EQ(sentBy(L"MMVolume", {octet(55), text(L""), long32(-1), long32(2)}),
              (Log{"setaudio SonMp32 volume to 550", "setaudio SonWav2 volume to 550",
                   "setaudio SonMidi2 volume to 550", "setaudio SonAvi2 volume to 550"}) +
                  setDisc(36044));  // 36044.25
}

TEST_F(Mixer, theDiscRampsOnTheMixersScale) {
    mixer.line(disc, 2).control(2, volumeType, {9, 0, 0});
    const struct {
        DWORD current;
        int percent, style, step, count, target;
    } rows[] = {{3000, 0, 1, -1200, 3, 0}, {1500, 0, 0, -500, 4, 0},   {9600, 0, 2, -4800, 3, 0},
                {0, 1, 0, 500, 2, 655},    {655, 1, 1, -1200, 1, 655}, {65535, 0, 1, -1200, 55, 0}};
    for (const auto& row : rows) {
        mixer.value(2, volumeType) = row.current;
        Log expected = gotDisc();
        for (int i = 0; i < row.count; ++i)
            expected = expected + setDisc(static_cast<int>(row.current) + i * row.step) + Log{"Sleep 10"};
        EXPECT_EQ(sentBy(L"MMIncreaseVolume", {text(L"QZCDPlay"), octet(row.percent), long32(row.style)}),
                  expected + setDisc(row.target))
            << row.current;
    }
}

TEST_F(Mixer, withoutADiscLineTheVolumeIs0) {
    sentBy(L"MMVolGet", {text(L"QZCDPlay")});
    expect(short16(0));
}

TEST_F(Mixer, waveVolumesAreSetOnBothSides) {
    mixer.line(wave, 1).control(1, volumeType, {8, 0, 0}).line(speakers, 3).control(3, volumeType, {1, 0, 0});
    const struct {
        int given;
        Variant right;
        int stored;
        const char* set;
    } rows[] = {{150, missing(), 100, "set 8 to 65535 and 65535"},
                {50, missing(), 50, "set 8 to 32768 and 32768"},
                {100, short16(0), 100, "set 8 to 65535 and 0"},
                {0, long32(101), 0, "set 8 to 0 and 65535"},
                {0, short16(-5), 0, "set 8 to 0 and 0"},
                {1, Variant(0.5), 1, "set 8 to 655 and 328"},  // 327.675
                // A text is greater than 100.
                {1, text(L"50"), 1, "set 8 to 655 and 65535"},
                {1, nothing(), 1, "set 8 to 655 and 0"}};
    for (const auto& row : rows) {
        BYTE left = static_cast<BYTE>(row.given);
        sentBy(L"MMVolumePercentLet", {byReference(VT_UI1, &left), row.right});
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(row.stored, left);
        ASSERT_EQ(5u, log.size());
        EXPECT_EQ(log[3], row.set);
    }
    BYTE left = 1;
    sentBy(L"MMVolumePercentLet", {byReference(VT_UI1, &left), missing(), long32(0)});
    EXPECT_EQ(log[3], "set 1 to 655 and 655");
}

TEST_F(MultiMedia, waveVolumesAreReadFromTheMapper) {
    Intercept<decltype(waveOutGetVolume)> volumes(module, "winmm.dll", "waveOutGetVolume");
    const struct {
        DWORD answer;
        MMRESULT code;
        int left, right, larger;
    } rows[] = {{0xFFFF'FFFF, 0, 100, 100, 100},
                {0x8000'0000, 0, 0, 50, 50},
                {0x028F'FFFF, 0, 100, 1, 100},
                {0, 0, 0, 0, 0},
                {0, MMSYSERR_NODRIVER, 0, 0, 0}};
    for (const auto& row : rows) {
        volumes.answer([&](HWAVEOUT device, LPDWORD volume) {
            EXPECT_EQ(0xFFFF'FFFFu, reinterpret_cast<ULONG_PTR>(device));
            if (row.code == 0) *volume = row.answer;
            return row.code;
        });
        BYTE left = 7, right = 7;
        expectResult(call(L"MMVolumePercentGet", {byReference(VT_UI1, &left), byReference(VT_UI1, &right)}),
                     octet(row.larger));
        EXPECT_EQ(row.left, left);
        EXPECT_EQ(row.right, right);
        expectResult(call(L"MMVolumePercentGet"), octet(row.larger));
    }
}

TEST_F(MultiMedia, systemSoundsAreSix) {
    Intercept<decltype(MessageBeep)> beep(module, "user32.dll", "MessageBeep");
    std::vector<UINT> played;
    beep.answer([&](UINT type) {
        played.push_back(type);
        return TRUE;
    });
    for (int sound = -2; sound <= 256; ++sound)
        EXPECT_EQ(S_OK, call(L"PlaySystemSound", {long32(sound)}).code);
    EXPECT_EQ(played, (std::vector<UINT>{0, 16, 32, 48, 64, 80}));
}

TEST_F(MultiMedia, devicesAreCounted) {
    Intercept<decltype(waveOutGetNumDevs)> waves(module, "winmm.dll", "waveOutGetNumDevs");
    Intercept<decltype(midiOutGetNumDevs)> midis(module, "winmm.dll", "midiOutGetNumDevs");
    for (const UINT count : {0u, 1u, 2u}) {
        waves.answer([=] { return count; });
        midis.answer([=] { return 2 - count; });
        expectResult(call(L"IsSoundCard"), Variant(count > 0));
        expectResult(call(L"IsMidiEnabled"), Variant(count < 2));
    }
}

}  // namespace
}  // namespace vorla::test
