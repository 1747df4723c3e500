// VorlaMultiMedia as hosts see it: identifiers, parameters, defaults.
#include "contract/media_fixture.h"
#include "contract/signatures.h"

namespace vorla::test {
namespace {

TEST_F(MultiMedia, membersAreDescribed) {
    const std::vector<std::wstring> expected{
        L"6803000c get mmCanal cCanalMusique()",
        L"6803000b get mmCanal cCanalComment()",
        L"60030000 BSTR MMPlay(BSTR FileName, [mmCanal Canal=0], [BOOL Boucle=0], [UI1 volume=100], "
        L"[&object image], [BOOL PleinEcran=0], [VARIANT Synchrone=0], [I4 StartSecond=-1])",
        L"60030001 BOOL MMClose([BSTR Alias=\"\"], [MMType Sources=-1], [mmCanal Canal=0], "
        L"[BSTR FileName=\"\"], [BOOL All=0], [eMMCloseStyle CloseSlowly=1])",
        L"60030002 VARIANT MMMediaLen(BSTR FileName, &eMMReturnVal ReturnValue)",
        L"60030003 void MMVolume(UI1 NewVolume, [BSTR Alias=\"\"], [MMType Sources=-1], [mmCanal Canal=0], "
        L"[BSTR FileName=\"\"])",
        L"60030004 void MMIncreaseVolume(BSTR Alias, UI1 NewVolume, [eMMCloseStyle CloseSlowly=1])",
        L"60030005 I2 MMVolGet(BSTR Alias)",
        L"60030006 BOOL MMIsPlaying([BSTR Alias=\"\"], [MMType Sources=-1], [mmCanal Canal=0], "
        L"[BSTR FileName=\"\"])",
        L"60030007 BOOL MMIsOpen(BSTR Alias)",
        L"60030008 emciStatus MMStatus(BSTR Alias)",
        L"60030009 void MMPause(BSTR Alias, BOOL Pause, &UI1 volume, [BOOL Boucle=0])",
        L"6803000a get UI1 MMVolumePercentGet([&UI1 VolGauche], [&UI1 VolDroit])",
        L"6003000a void MMVolumePercentLet(&UI1 NewGauche, [VARIANT NewDroite], [eMixerType TypeVol=5])",
        L"6003000b void PlaySystemSound(&SystemSound Type_Sound)",
        L"6003000c BOOL IsSoundCard()",
        L"6003000d BOOL IsMidiEnabled()",
        L"68030009 get I4 MMMixVolume(eMixerType MixerType)",
        L"68030009 put void MMMixVolume(eMixerType MixerType, I4)",
        L"6003000e BOOL MMMixPanVolume(eMixerType MixerType, I4 NewLeftVolume, I4 NewRightVolume)",
        L"6003000f UI1 MMMixConvToPercent(I4 VolLong)",
        L"60030010 I4 MMMixConvToLong(UI1 VolPercent)",
        L"68030008 get BSTR MMCDAlias()",
        L"60030011 BOOL MMCDOpen(BSTR Lecteur)",
        L"68030007 get BOOL MMCDIsReady([BSTR Lecteur])",
        L"68030006 get BOOL MMCDIsOpen([BSTR Lecteur])",
        L"60030012 BOOL MMCDPlay([BSTR Lecteur])",
        L"60030013 BOOL MMCDStop()",
        L"60030014 void MMCDEjectClose([BSTR Lecteur])",
        L"60030015 void MMCDPause()",
        L"60030016 BOOL MMCDPlayTrack(I2 TrackNum, [BSTR Lecteur], [&BOOL StopAtEndOfTrack=0], "
        L"[&I4 StartToMs=-1])",
        L"60030017 VARIANT MMCDTracks([BSTR Lecteur=\"\"], [BOOL TrackTime=-1], [BSTR TrackPrefixe=\"\"], "
        L"[&object LstCmb])",
        L"68030005 get VARIANT MMCDLenght([eMMReturnVal FormatTime=1])",
        L"68030004 get I4 MMCDTrackLenght(I2 TrackNum, [eMMReturnVal FormatTime=1])",
        L"68030003 get I2 MMCDTrackCurrent()",
        L"68030002 get I2 MMCDTrackCount()",
        L"68030001 get VARIANT MMCDPosition([eMMReturnVal FormatTime=1])",
        L"68030000 get VARIANT MMCDTrackPosition([I2 TrackNum], [eMMReturnVal FormatTime=1])",
        L"60030018 BOOL IsCd(BSTR FileName)",
        L"60030019 I2 MMCDTrackNumberGet(BSTR FileName)"};
    const auto members = signatures(object.get());
    ASSERT_EQ(expected.size(), members.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(expected[i], members[i]) << narrow(members[i]);
}

}  // namespace
}  // namespace vorla::test
