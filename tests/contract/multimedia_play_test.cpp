// VorlaMultiMedia's playback: what is sent to the devices, to the letter and in order.
#include "contract/media_fixture.h"
#include "support/failing_calls.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

Variant yes() { return Variant(true); }
Variant no() { return Variant(false); }

TEST_F(MultiMedia, channelsAreReserved) {
    expectResult(call(L"cCanalMusique"), long32(4));
    expectResult(call(L"cCanalComment"), long32(5));
}

TEST_F(MultiMedia, soundPlaysUnderTheAliasOfItsTypeAndChannel) {
    const struct {
        const wchar_t* file;
        int channel;
        const char *shortName, *alias;
    } rows[] = {{L"C:\\son\\air.mp3", 0, "C:\\SON\\AIR.MP3", "SonMp3"},
                {L"C:\\son\\air.mp3", 3, "C:\\SON\\AIR.MP3", "SonMp33"},
                {L"C:\\son\\air.mp3", 12, "C:\\SON\\AIR.MP3", "SonMp3"},
                {L"C:\\son\\air.mp3", -1, "C:\\SON\\AIR.MP3", "SonMp3"},
                {L"C:\\son\\air.mp3", 10, "C:\\SON\\AIR.MP3", "C:\\SON\\AIR.MP3"},
                {L"C:\\son\\air.Wav", 9, "C:\\SON\\AIR.WAV", "SonWav9"},
                {L"  C:\\son\\air.mid ", 1, "C:\\SON\\AIR.MID", "SonMidi1"}};
    for (const auto& row : rows) {
        const std::string alias = row.alias;
        EXPECT_EQ(sentBy(L"MMPlay", {text(row.file), long32(row.channel)}),
                  (Log{"close " + alias, "open MPEGVideo!" + std::string(row.shortName) + " alias " + alias,
                       "set " + alias + " time format milliseconds", "play " + alias}));
        expect(text(std::wstring(alias.begin(), alias.end())), alias);
    }
}

TEST_F(MultiMedia, soundIgnoresWindowFullScreenAndWaiting) {
    ScriptedObject image;
    image.property(L"hwnd", long32(99));
    EXPECT_EQ(
        sentBy(L"MMPlay",
               {text(L"C:\\a.wav"), long32(0), yes(), octet(55), vorla::test::object(&image), yes(), yes()}),
        (Log{"close SonWav", "open MPEGVideo!C:\\A.WAV alias SonWav", "set SonWav time format milliseconds",
             "play SonWav repeat", "setaudio SonWav volume to 550"}));
    expect(text(L"SonWav"));
    EXPECT_TRUE(image.log().empty());
    EXPECT_EQ(0, image.references());
}

TEST_F(MultiMedia, onlyAReducedVolumeIsSent) {
    for (const int volume : {100, 101, 255}) {
        EXPECT_EQ(sentBy(L"MMPlay", {text(L"C:\\a.wav"), long32(0), no(), octet(volume)}).size(), 4u)
            << volume;
    }
    for (const int volume : {0, 1, 99}) {
        const auto sent = sentBy(L"MMPlay", {text(L"C:\\a.wav"), long32(0), no(), octet(volume)});
        EXPECT_EQ(sent.back(), "setaudio SonWav volume to " + std::to_string(volume * 10));
    }
}

TEST_F(MultiMedia, nothingIsSentForWhatIsNotPlayed) {
    files.missing = {"C:\\absent\\"};
    for (const wchar_t* name : {L"", L"C:\\absent\\a.wav", L"D:\\Track01.cda"}) {
        EXPECT_EQ(sentBy(L"MMPlay", {text(name)}), Log{}) << narrow(name);
        expect(text(L""), narrow(name));
    }
}

TEST_F(MultiMedia, unknownKindsPlayAsPicturesWithoutAName) {
    files.shortForms = {{"C:\\film.mpeg", "C:\\FILM~1.MPE"}};
    EXPECT_EQ(
        sentBy(L"MMPlay", {text(L"C:\\film.mpeg")}),
        (Log{"close ", "open MPEGVideo!C:\\FILM~1.MPE alias ", "set  time format milliseconds", "play "}));
    expect(text(L""));
    EXPECT_EQ(sentBy(L"MMPlay", {text(L"C:\\film.mpeg"), long32(2)}),
              (Log{"close 2", "open MPEGVideo!C:\\FILM~1.MPE alias 2", "set 2 time format milliseconds",
                   "play 2"}));
    expect(text(L"2"));
    // A file that does not exist has no short name.
    files.missing = {"C:\\b.wav"};
    EXPECT_EQ(sentBy(L"MMPlay", {text(L"C:\\b.wav"), long32(10)}),
              (Log{"close 10", "open MPEGVideo! alias 10", "set 10 time format milliseconds", "play 10"}));
    expect(text(L"10"));
}

TEST_F(MultiMedia, picturesPlayInAWindow) {
    ScriptedObject image;
    image.property(L"hwnd", long32(65664));
    const Log opening{"close SonAvi", "open MPEGVideo!C:\\F.AVI alias SonAvi parent 65664 style 1073741824",
                      "set SonAvi time format milliseconds"};
    const auto play = [&](Variant repeat, int volume, Variant fullScreen, Variant wait) {
        return sentBy(L"MMPlay", {text(L"C:\\f.avi"), long32(0), std::move(repeat), octet(volume),
                                  vorla::test::object(&image), std::move(fullScreen), std::move(wait)});
    };
    EXPECT_EQ(play(no(), 100, no(), no()), opening + Log{"play SonAvi"});
    EXPECT_EQ(play(yes(), 100, no(), no()), opening + Log{"play SonAvi repeat"});
    EXPECT_EQ(play(no(), 100, yes(), no()), opening + Log{"play SonAvi fullscreen"});
    EXPECT_EQ(play(yes(), 30, yes(), no()),
              opening + (Log{"play SonAvi repeat fullscreen", "setaudio SonAvi volume to 300"}));
    EXPECT_EQ(play(yes(), 100, no(), yes()), opening + (Log{"play SonAvi wait", "close SonAvi"}));
    EXPECT_EQ(
        play(yes(), 30, yes(), yes()),
        opening + (Log{"play SonAvi wait fullscreen", "setaudio SonAvi volume to 300", "close SonAvi"}));
    expect(text(L"SonAvi"));
    EXPECT_EQ(play(no(), 100, no(), short16(1)), opening + (Log{"play SonAvi wait", "close SonAvi"}));
    EXPECT_EQ(play(no(), 100, no(), text(L"?")), opening + Log{"play SonAvi"});
    EXPECT_EQ(play(no(), 100, no(), nullValue()), opening + Log{"play SonAvi"});
    EXPECT_EQ(0, image.references());
}

TEST_F(MultiMedia, picturesWithoutAReadableWindowOpenOnTheirOwn) {
    ScriptedObject without, failing, zero, word;
    failing.property(L"hwnd", long32(5)).failCall(1, E_FAIL);
    zero.property(L"hwnd", long32(0));
    word.property(L"hwnd", text(L"fenêtre"));
    for (IDispatch* image : std::initializer_list<IDispatch*>{nullptr, &without, &failing, &zero, &word}) {
        const auto sent =
            sentBy(L"MMPlay", {text(L"C:\\f.wmv"), long32(0), no(), octet(100), vorla::test::object(image)});
        EXPECT_EQ(sent, (Log{"close SonAvi", "open MPEGVideo!C:\\F.WMV alias SonAvi",
                             "set SonAvi time format milliseconds", "play SonAvi"}));
        expect(text(L"SonAvi"));
    }
    word.value(L"hwnd") = text(L"77");
    EXPECT_EQ(
        sentBy(L"MMPlay", {text(L"C:\\f.wmv"), long32(0), no(), octet(100), vorla::test::object(&word)})[1],
        "open MPEGVideo!C:\\F.WMV alias SonAvi parent 77 style 1073741824");
}

TEST_F(MultiMedia, aStartIsSoughtUnlessItIsBeyondTheEnd) {
    const Log opening{"close SonWav", "open MPEGVideo!C:\\A.WAV alias SonWav",
                      "set SonWav time format milliseconds"};
    const Log asking{"set SonWav time format ms [128]", "status SonWav length [128]"};
    const struct {
        int start;
        const char* length;
        const char* seek;  // null when playback is given up
    } rows[] = {{0, "0", "seek SonWav to 0"},
                {2, "2000", "seek SonWav to 2000"},
                {2, "1999", nullptr},
                {2, "", nullptr},
                {1, "1000 ms", "seek SonWav to 1000"},
                {0, "99999999999", "seek SonWav to 0"},
                {1, "99999999999", nullptr},
                {2147483, "2147483647", "seek SonWav to 2147483000"},
                {2147484, "2147483647", nullptr},
                {2147483647, "2147483647", nullptr}};
    for (const auto& row : rows) {
        devices.answer("status SonWav length", row.length);
        const auto sent = sentBy(L"MMPlay", {text(L"C:\\a.wav"), long32(0), no(), octet(100), missing(), no(),
                                             no(), long32(row.start)});
        const auto rest = row.seek ? Log{row.seek, "play SonWav"} : Log{"Close SonWav"};
        EXPECT_EQ(sent, opening + asking + rest) << row.start << ' ' << row.length;
        expect(text(row.seek ? L"SonWav" : L""));
    }
    for (const int start : {-1, -2}) {
        EXPECT_EQ(sentBy(L"MMPlay", {text(L"C:\\a.wav"), long32(0), no(), octet(100), missing(), no(), no(),
                                     long32(start)}),
                  opening + Log{"play SonWav"});
    }
    EXPECT_EQ(sentBy(L"MMPlay",
                     {text(L"C:\\a.avi"), long32(0), no(), octet(100), missing(), no(), yes(), long32(1)})
                  .back(),
              "Close SonAvi");
    expect(text(L""));
}

TEST_F(MultiMedia, playGoesOnWhateverADeviceRefuses) {
    const Log all{
        "close SonAvi",     "open MPEGVideo!C:\\F.AVI alias SonAvi", "set SonAvi time format milliseconds",
        "play SonAvi wait", "setaudio SonAvi volume to 10",          "close SonAvi"};
    for (int refused = 0; refused <= 6; ++refused) {
        devices.reset();
        if (refused > 0) devices.failCommand(refused);
        EXPECT_EQ(sentBy(L"MMPlay", {text(L"C:\\f.avi"), long32(0), no(), octet(1), missing(), no(), yes()}),
                  all)
            << refused;
        expect(text(L"SonAvi"));
    }
}

TEST_F(MultiMedia, aFadeGoesDownByFourOrEight) {
    devices.answer("status SonWav volume", "1000");
    const Log asking{"status SonWav volume [128]"}, end{"Stop SonWav", "Close SonWav"};
    EXPECT_EQ(sentBy(L"MMClose", {text(L"SonWav"), long32(-1), long32(0), text(L""), no(), long32(0)}),
              asking + levels("SonWav", 1000, -4, 251, 1) + end);
    expect(yes());
    EXPECT_EQ(sentBy(L"MMClose", {text(L"SonWav")}), asking + levels("SonWav", 1000, -8, 126, 1) + end);
    expect(yes());
    EXPECT_EQ(sentBy(L"MMClose", {text(L"SonWav"), long32(-1), long32(0), text(L""), no(), long32(2)}),
              asking + end);
    expect(yes());
}

TEST_F(MultiMedia, aFadeBeginsAtTheVolumeThatIsAnswered) {
    const Log asking{"status X volume [128]"}, end{"Stop X", "Close X"};
    const struct {
        const char* volume;
        int from, count;
    } rows[] = {{"20", 20, 3}, {"7", 7, 1},    {"0", 0, 1},    {"-1", -1, 0},
                {"", 0, 1},    {"fort", 0, 1}, {"40000", 0, 1}};
    for (const auto& row : rows) {
        devices.answer("status X volume", row.volume);
        EXPECT_EQ(sentBy(L"MMClose", {text(L"X")}), asking + levels("X", row.from, -8, row.count, 1) + end)
            << row.volume;
        expect(yes());
    }
    devices.fail("status X volume");
    EXPECT_EQ(sentBy(L"MMClose", {text(L"X")}), asking + end);
    expect(yes());
    devices.fail("Stop X");
    EXPECT_EQ(sentBy(L"MMClose", {text(L"X")}), asking + end);
    expect(yes());
    devices.fail("Close X");
    EXPECT_EQ(sentBy(L"MMClose", {text(L"X")}), asking + end);
    expect(no());
}

Log closing(const std::string& alias) {
    return {"status " + alias + " volume [128]", "Stop " + alias, "Close " + alias};
}

// The ends of fades are not the point of the next tests.
Variant fast() { return long32(2); }

TEST_F(MultiMedia, closeWithoutArgumentsClosesTheFourTypesOfAChannel) {
    devices.answer("Status QZCDPlay mode", "stopped");
    const auto four = [](const std::string& channel) {
        return closing("SonAvi" + channel) + closing("SonMidi" + channel) + closing("SonMp3" + channel) +
               closing("SonWav" + channel);
    };
    const Log asking{"Status QZCDPlay mode [20]"};
    EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(-1), long32(0), text(L""), no(), fast()}),
              four("") + asking);
    expect(yes());
    EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(-1), long32(7), text(L""), no(), fast()}),
              four("7") + asking);
    EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(-1), long32(10), text(L""), no(), fast()}),
              four("10") + asking);
    EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(-1), long32(11), text(L""), no(), fast()}),
              four("") + asking);
    for (const std::int32_t channel : {-1, 2147483647, -2147483647 - 1})
        EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(-1), long32(channel), text(L""), no(), fast()}),
                  four("") + asking);
    for (const char* refused : {"Close SonAvi", "Close SonMidi", "Close SonMp3", "Close SonWav"}) {
        devices.fail(refused);
        EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(-1), long32(0), text(L""), no(), fast()}),
                  four("") + asking);
        expect(no(), refused);
        devices.answer(refused, "");
    }
    Log everything;
    for (const char* channel : {"", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"})
        everything = everything + four(channel);
    EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(8), long32(3), text(L"C:\\a.wav"), yes(), fast()}),
              everything + asking);
    expect(yes());
    devices.fail("Close SonMidi6");
    EXPECT_EQ(sentBy(L"MMClose", {text(L""), long32(-1), long32(0), text(L""), yes(), fast()}),
              everything + asking);
    expect(no());
}

TEST_F(MultiMedia, closeOfAPlayingDiscThatAnotherObjectOpenedIsFalse) {
    devices.answer("Status QZCDPlay mode", "playing");
    sentBy(L"MMClose", {text(L""), long32(-1), long32(0), text(L""), no(), fast()});
    EXPECT_EQ(log.back(), "Status QZCDPlay mode [20]");
    expect(no());
}

TEST_F(MultiMedia, closeBySourcesOrFileIsAlwaysFalse) {
    const struct {
        int sources, channel;
        const wchar_t* file;
        Log expected;
    } rows[] = {{8, 0, L"", closing("SonMp3")},
                {1 | 2, 4, L"", closing("SonAvi4") + closing("SonWav4")},
                {31, 0, L"", closing("SonAvi") + closing("SonMidi") + closing("SonMp3") + closing("SonWav")},
                {16, 0, L"", {}},
                {0, 0, L"", {}},
                {-1, 2, L"C:\\a.wav", closing("SonWav2")},
                {-1, 10, L"C:\\a.wav", closing("SonWav10")},
                {-1, 0, L"C:\\a.txt", {}},
                {-1, 0, L"D:\\Track01.cda", {}},
                {4, 0, L"C:\\a.wav", closing("SonMidi")}};
    for (const auto& row : rows) {
        EXPECT_EQ(sentBy(L"MMClose",
                         {text(L""), long32(row.sources), long32(row.channel), text(row.file), no(), fast()}),
                  row.expected)
            << row.sources;
        expect(no());
    }
}

TEST_F(MultiMedia, lengthsComeInThreeUnits) {
    const Log expected{"open MPEGVideo!C:\\A.WAV alias Audio1", "set Audio1 time format ms [128]",
                       "status Audio1 length [128]", "close Audio1"};
    const auto length = [&](const char* answer, int unit) {
        devices.answer("status Audio1 length", answer);
        EXPECT_EQ(sentBy(L"MMMediaLen", {text(L"C:\\a.wav"), long32(unit)}), expected) << answer;
    };
    length("2500", 0);
    expect(long32(2500));
    length("2500", 1);
    expect(Variant(2.5));
    length("75000", 2);
    expect(text(L"00:01:15"));
    length("2500", 2);
    expect(text(L"00:00:02"));
    length("3500", 2);
    expect(text(L"00:00:04"));
    length("32767499", 2);
    expect(text(L"09:06:07"));
    length("", 0);
    expect(long32(0));
    length("12 abc", 1);
    expect(Variant(0.012));
    length("2500", 3);
    expect(Variant());
    length("2500", -1);
    expect(Variant());
    length("32768000", 2);
    expectError(outcome, 6);
    length("99999999999", 1);
    expectError(outcome, 6);
    for (int refused = 1; refused <= 4; ++refused) {
        devices.failCommand(refused);
        EXPECT_EQ(sentBy(L"MMMediaLen", {text(L"C:\\a.wav"), long32(0)}), expected) << refused;
    }
    files.missing = {"C:\\a.wav"};
    EXPECT_EQ(sentBy(L"MMMediaLen", {text(L"C:\\a.wav"), long32(0)})[0], "open MPEGVideo! alias Audio1");
}

TEST_F(MultiMedia, volumesGoToAnAliasOrToTypes) {
    const struct {
        const wchar_t* alias;
        int sources, channel;
        const wchar_t* file;
        Log expected;
    } rows[] = {{L"X", -1, 0, L"", {"setaudio X volume to 550"}},
                {L"", 8, 3, L"", {"setaudio SonMp33 volume to 550"}},
                {L"",
                 15,
                 0,
                 L"",
                 {"setaudio SonMp3 volume to 550", "setaudio SonWav volume to 550",
                  "setaudio SonMidi volume to 550", "setaudio SonAvi volume to 550"}},
                {L"", -1, 10, L"C:\\a.mid", {"setaudio SonMidi10 volume to 550"}},
                {L"", -1, 0, L"C:\\a.txt", {}},
                {L"", 0, 0, L"", {}}};
    for (const auto& row : rows) {
        EXPECT_EQ(sentBy(L"MMVolume", {octet(55), text(row.alias), long32(row.sources), long32(row.channel),
                                       text(row.file)}),
                  row.expected);
        EXPECT_EQ(S_OK, outcome.code);
    }
    devices.failCommand(1);
    EXPECT_EQ(sentBy(L"MMVolume", {octet(255), text(L""), long32(12)}),
              (Log{"setaudio SonMp3 volume to 2550", "setaudio SonMidi volume to 2550"}));
}

TEST_F(MultiMedia, rampsPassThroughTheirLevels) {
    const Log asking{"status X volume [128]"};
    const struct {
        const char* current;
        int target, style, step, count;
    } rows[] = {{"0", 10, 0, 10, 11},    {"0", 10, 1, 40, 3},   {"1000", 0, 1, -40, 26},
                {"1000", 0, 2, -400, 3}, {"0", 100, 2, 400, 3}, {"500", 50, 1, -40, 1},
                {"505", 50, 0, -10, 1},  {"-100", 0, 1, 40, 3}, {"1000", 100, 9, -40, 1}};
    for (const auto& row : rows) {
        devices.answer("status X volume", row.current);
        EXPECT_EQ(sentBy(L"MMIncreaseVolume", {text(L"X"), octet(row.target), long32(row.style)}),
                  asking + levels("X", std::stoi(row.current), row.step, row.count, 10) +
                      Log{"setaudio X volume to " + std::to_string(row.target * 10)})
            << row.current << ' ' << row.target;
        EXPECT_EQ(S_OK, outcome.code);
    }
    devices.fail("status X volume", MCIERR_INVALID_DEVICE_ID, "1000");
    EXPECT_EQ(sentBy(L"MMIncreaseVolume", {text(L"X"), octet(0)}), asking);
    EXPECT_EQ(S_OK, outcome.code);
    for (const auto& [answer, error] :
         std::map<std::string, int>{{"", 13}, {"fort", 13}, {"2147483648", 6}}) {
        devices.answer("status X volume", answer);
        EXPECT_EQ(sentBy(L"MMIncreaseVolume", {text(L"X"), octet(0)}), asking) << answer;
        expectError(outcome, error, answer);
    }
}

TEST_F(MultiMedia, volumesAreReadInPercent) {
    const struct {
        const char* answer;
        int percent;
    } rows[] = {{"1000", 100}, {"550", 55}, {"45", 4}, {"55", 6}, {"0", 0}, {"32767", 3277}, {"-45", -4}};
    for (const auto& row : rows) {
        devices.answer("status X volume", row.answer);
        EXPECT_EQ(sentBy(L"MMVolGet", {text(L"X")}), Log{"status X volume [128]"});
        expect(short16(row.percent), row.answer);
    }
    devices.fail("status X volume", MCIERR_INVALID_DEVICE_ID, "550");
    sentBy(L"MMVolGet", {text(L"X")});
    expect(short16(0));
    for (const auto& [answer, error] :
         std::map<std::string, int>{{"", 13}, {"fort", 13}, {"32768", 6}, {std::string(128, '9'), 6}}) {
        devices.answer("status X volume", answer);
        sentBy(L"MMVolGet", {text(L"X")});
        expectError(outcome, error, answer);
    }
}

TEST_F(MultiMedia, playingIsAskedUntilOneSaysSo) {
    const Log all{"Status SonMp3 mode [20]", "Status SonWav mode [20]", "Status SonMidi mode [20]",
                  "Status SonAvi mode [20]", "Status QZCDPlay mode [20]"};
    EXPECT_EQ(sentBy(L"MMIsPlaying"), all);
    expect(no());
    const char* const aliases[] = {"SonMp3", "SonWav", "SonMidi", "SonAvi", "QZCDPlay"};
    for (std::size_t playing = 0; playing < 5; ++playing) {
        devices.reset();
        devices.answer("Status " + std::string(aliases[playing]) + " mode", "playing");
        EXPECT_EQ(sentBy(L"MMIsPlaying"), Log(all.begin(), all.begin() + static_cast<int>(playing) + 1));
        expect(yes());
    }
    devices.reset();
    EXPECT_EQ(sentBy(L"MMIsPlaying", {text(L""), long32(9), long32(2)}),
              (Log{"Status SonMp32 mode [20]", "Status SonAvi2 mode [20]"}));
    EXPECT_EQ(sentBy(L"MMIsPlaying", {text(L""), long32(-1), long32(0), text(L"C:\\a.wav")}),
              Log{"Status SonWav mode [20]"});
    EXPECT_EQ(sentBy(L"MMIsPlaying", {text(L""), long32(-1), long32(0), text(L"D:\\Track01.cda")}),
              Log{"Status QZCDPlay mode [20]"});
    EXPECT_EQ(sentBy(L"MMIsPlaying", {text(L""), long32(-1), long32(0), text(L"C:\\a.txt")}), Log{});
    for (const auto& [answer, playing] : std::map<std::string, bool>{
             {"playing", true}, {"play", true}, {"Playing", false}, {"", false}, {"stopped", false}}) {
        devices.answer("Status X mode", answer);
        EXPECT_EQ(sentBy(L"MMIsPlaying", {text(L"X"), long32(8)}), Log{"Status X mode [20]"});
        expect(Variant(playing), answer);
    }
}

TEST_F(MultiMedia, openIsWhatAnswers) {
    for (const char* mode : {"playing", "", "stopped"}) {
        devices.answer("Status X mode", mode);
        EXPECT_EQ(sentBy(L"MMIsOpen", {text(L"X")}), Log{"Status X mode [20]"});
        expect(yes(), mode);
    }
    devices.fail("Status X mode");
    sentBy(L"MMIsOpen", {text(L"X")});
    expect(no());
}

TEST_F(MultiMedia, statusIsAWordOfTheDevice) {
    const struct {
        MCIERROR code;
        const char* answer;
        int status;
    } rows[] = {{0, "playing", 0},   {0, "paused", 1},    {0, "stopped", 2},
                {0, "not ready", 3}, {0, "recording", 4}, {0, "parked", 5},
                {0, "open", 6},      {0, "seeking", 7},   {0, "", 0},
                {0, "autre", 0},     {263, "", 8},        {263, "stopped", 8},
                {281, "", 0},        {1, "stopped", 2},   {0, "xxxxxxxxxxxxxxxxxxxxxxxxx", 0}};
    for (const auto& row : rows) {
        devices.fail("Status X mode", row.code, row.answer);
        EXPECT_EQ(sentBy(L"MMStatus", {text(L"X")}), Log{"Status X mode [20]"});
        expect(long32(row.status), row.answer);
    }
}

TEST_F(MultiMedia, pauseKeepsTheVolumeForLater) {
    const Log expected{"status X volume [128]", "pause X"};
    const struct {
        const char* answer;
        int volume;
    } rows[] = {{"1000", 100},
                {"550", 55},
                {"45", 4},
                {"55", 6},
                {"0", 0},
                {"2554", 255},
                // No volume: the variable keeps its 77.
                {"", 77},
                {"fort", 77},
                {"2556", 77},
                {"-10", 77}};
    for (const auto& row : rows) {
        BYTE volume = 77;
        devices.answer("status X volume", row.answer);
        EXPECT_EQ(sentBy(L"MMPause", {text(L"X"), yes(), byReference(VT_UI1, &volume)}), expected);
        EXPECT_EQ(S_OK, outcome.code);
        EXPECT_EQ(row.volume, volume) << row.answer;
    }
    BYTE volume = 77;
    devices.fail("status X volume", MCIERR_INVALID_DEVICE_ID, "550");
    EXPECT_EQ(sentBy(L"MMPause", {text(L"X"), yes(), byReference(VT_UI1, &volume)}), expected);
    EXPECT_EQ(100, volume);
}

TEST_F(MultiMedia, resumeSetsTheVolumeAgain) {
    BYTE volume = 55;
    EXPECT_EQ(sentBy(L"MMPause", {text(L"X"), no(), byReference(VT_UI1, &volume)}),
              (Log{"play X", "setaudio X volume to 550"}));
    EXPECT_EQ(55, volume);
    volume = 100;
    EXPECT_EQ(sentBy(L"MMPause", {text(L"X"), no(), byReference(VT_UI1, &volume), yes()}),
              (Log{"play X repeat", "setaudio X volume to 1000"}));
    devices.failCommand(1);
    EXPECT_EQ(sentBy(L"MMPause", {text(L"X"), no(), byReference(VT_UI1, &volume)}),
              (Log{"play X", "setaudio X volume to 1000"}));
}

// A host's window procedure runs inside commands, and its code may play or close the same alias.
TEST_F(MultiMedia, theHostMayPlayAgainDuringAFade) {
    devices.answer("status SonWav volume", "16");
    bool played = false;
    devices.onCommand = [&](const std::string& command) {
        if (played || command != "setaudio SonWav volume to 8") return;
        played = true;
        expectResult(call(L"MMPlay", {text(L"C:\\a.wav")}), text(L"SonWav"));
    };
    EXPECT_EQ(sentBy(L"MMClose", {text(L"SonWav")}),
              (Log{"status SonWav volume [128]", "setaudio SonWav volume to 16", "Sleep 1",
                   "setaudio SonWav volume to 8", "close SonWav", "open MPEGVideo!C:\\A.WAV alias SonWav",
                   "set SonWav time format milliseconds", "play SonWav", "Sleep 1",
                   "setaudio SonWav volume to 0", "Sleep 1", "Stop SonWav", "Close SonWav"}));
    expect(yes());
}

TEST_F(MultiMedia, theHostsVariableMayChangeDuringAFade) {
    devices.answer("status SonWav volume", "0");
    BSTR alias = SysAllocString(L"SonWav");
    devices.onCommand = [&](const std::string& command) {
        if (command == "status SonWav volume") SysReAllocString(&alias, L"Autre");
    };
    EXPECT_EQ(sentBy(L"MMClose", {byReference(VT_BSTR, &alias)}),
              (Log{"status SonWav volume [128]", "setaudio SonWav volume to 0", "Sleep 1", "Stop SonWav",
                   "Close SonWav"}));
    SysFreeString(alias);
}

TEST_F(MultiMedia, namesOutsideTheCodePageAndLongNamesAreSentAsTheyCan) {
    const std::wstring name = L"C:\\" + std::wstring(240, L'a') + L".wav";
    std::string shortName = "C:\\" + std::string(240, 'A') + ".WAV";
    EXPECT_EQ(sentBy(L"MMPlay", {text(name)})[1], "open MPEGVideo!" + shortName + " alias SonWav");
    // A short form of 255 characters or more is none.
    EXPECT_EQ(sentBy(L"MMPlay", {text(L"C:\\" + std::wstring(300, L'a') + L".wav")})[1],
              "open MPEGVideo! alias ");
    EXPECT_EQ(sentBy(L"MMPlay", {text(L"C:\\\u4E2D\"x y.wav")})[1],
              "open MPEGVideo!C:\\?\"X Y.WAV alias SonWav");
}

std::string shown(const Outcome& outcome) {
    if (outcome.code == S_OK) return describe(outcome.result.raw());
    const auto code =
        static_cast<unsigned>(outcome.code == DISP_E_EXCEPTION ? outcome.exceptionCode : outcome.code);
    return code == static_cast<unsigned>(E_OUTOFMEMORY) || (code & 0xFFFF) == 7 ? "no memory"
                                                                                : std::to_string(code);
}

TEST_F(MultiMedia, failingAllocationsLeakNothing) {
    devices.answer("status SonWav volume", "16").answer("status SonWav length", "9000");
    const auto use = [&](const wchar_t* name, Arguments arguments) {
        return [this, name, arguments = std::move(arguments)]() mutable {
            log.clear();
            auto parameters = arguments.parameters();
            return shown(invoke(object.get(), idOf(object.get(), name), DISPATCH_METHOD, parameters));
        };
    };
    const auto value = [](const Variant& variant) { return describe(variant.raw()); };
    const auto sonWav = value(text(L"SonWav")), none = value(text(L""));
    failEachCall(
        module, noMemory(), "MMPlay",
        use(L"MMPlay", {text(L"C:\\a.wav"), long32(0), no(), octet(5), missing(), no(), no(), long32(1)}),
        sonWav, {none, "no memory"});
    failEachCall(module, noMemory(), "MMClose", use(L"MMClose", {text(L"SonWav")}), value(yes()),
                 {value(no()), "no memory"});
    failEachCall(module, noMemory(), "MMVolGet", use(L"MMVolGet", {text(L"SonWav")}), value(short16(2)),
                 {"no memory"});
    failEachCall(module, noMemory(), "MMIncreaseVolume",
                 use(L"MMIncreaseVolume", {text(L"SonWav"), octet(1)}), value(Variant()), {"no memory"});
}

}  // namespace
}  // namespace vorla::test
