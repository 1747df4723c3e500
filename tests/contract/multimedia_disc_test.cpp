// VorlaMultiMedia's members for audio CDs: what is sent to the device, to the letter and in order.
#include "contract/fake_mixer.h"
#include "contract/media_fixture.h"
#include "support/failing_calls.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

const Log opening{"open D:\\ type cdaudio alias QZCDPlay"};
const Log stopping{"Status QZCDPlay mode [20]", "stop QZCDPlay", "close QZCDPlay"};
const Log milliseconds{"set QZCDPlay time format milliseconds"};

std::wstring withTimeSeparator(std::wstring time) {
    wchar_t separator[8];
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STIME, separator, 8);
    for (auto at = time.find(L':'); at != std::wstring::npos; at = time.find(L':', at + 1))
        time.replace(at, 1, separator);
    return time;
}

class Disc : public MultiMedia {
protected:
    Log get(const wchar_t* name, Arguments arguments = {}) { return sentBy(name, std::move(arguments)); }
    void open() {
        sentBy(L"MMCDOpen", {text(L"D:")});
        expect(Variant(true));
        log.clear();
    }
    // Three audio tracks behind one of data.
    void insert() {
        devices.answer("status QZCDPlay media present", "true")
            .answer("status QZCDPlay number of tracks", "4")
            .answer("status QZCDPlay type track 1", "other");
        for (const char* track : {"2", "3", "4"})
            devices.answer("status QZCDPlay type track " + std::string(track), "audio")
                .answer("status QZCDPlay length track " + std::string(track),
                        "03:2" + std::string(track) + ":10");
    }

    FakeMixer mixer{module, log};
};

const Log counting{"status QZCDPlay number of tracks [50]", "status QZCDPlay type track 1 [50]",
                   "status QZCDPlay type track 2 [50]", "status QZCDPlay type track 3 [50]",
                   "status QZCDPlay type track 4 [50]"};

TEST_F(Disc, theAliasIsAlwaysTheSame) {
    expectResult(call(L"MMCDAlias"), text(L"QZCDPlay"));
    open();
    expectResult(call(L"MMCDAlias"), text(L"QZCDPlay"));
}

TEST_F(Disc, openTakesTheDriveOfAnyPath) {
    for (const wchar_t* drive : {L"D:", L"D:\\", L"D:\\Track01.cda", L"D:a\\b"}) {
        sentBy(L"MMCDStop");
        EXPECT_EQ(sentBy(L"MMCDOpen", {text(drive)}), opening) << narrow(drive);
        expect(Variant(true));
    }
    EXPECT_EQ(sentBy(L"MMCDOpen", {text(L"")}), Log{});
    expect(Variant(false));
    // It is still open.
    EXPECT_EQ(sentBy(L"MMCDOpen", {text(L"E:")}), stopping + Log{"open E:\\ type cdaudio alias QZCDPlay"});
    EXPECT_EQ(sentBy(L"MMCDOpen", {text(L"x")}), stopping + Log{"open \\ type cdaudio alias QZCDPlay"});
    devices.fail("open D:\\ type cdaudio alias QZCDPlay");
    EXPECT_EQ(sentBy(L"MMCDOpen", {text(L"D:")}), stopping + opening);
    expect(Variant(false));
    EXPECT_EQ(sentBy(L"MMCDStop"), Log{});
    expect(Variant(false));
}

TEST_F(Disc, readyNeedsAnAudioTrack) {
    insert();
    const Log asking{"status QZCDPlay media present [50]"};
    EXPECT_EQ(get(L"MMCDIsReady"), Log{});
    expect(Variant(false));
    EXPECT_EQ(get(L"MMCDIsReady", {text(L"D:")}), opening + asking + counting + stopping);
    expect(Variant(true));
    open();
    EXPECT_EQ(get(L"MMCDIsReady"), asking + counting);
    expect(Variant(true));
    EXPECT_EQ(get(L"MMCDIsReady", {text(L"E:")}), asking + counting);
    devices.answer("status QZCDPlay number of tracks", "1");
    EXPECT_EQ(get(L"MMCDIsReady"), asking + Log(counting.begin(), counting.begin() + 2));
    expect(Variant(false));
    devices.answer("status QZCDPlay media present", "false");
    EXPECT_EQ(get(L"MMCDIsReady"), asking);
    expect(Variant(false));
    devices.fail("status QZCDPlay media present", 1, "true");
    EXPECT_EQ(get(L"MMCDIsReady"), asking);
    expect(Variant(false));
}

TEST_F(Disc, readyClosesWhatItOpenedEvenAfterAnError) {
    devices.answer("status QZCDPlay media present", "peut-être");
    EXPECT_EQ(get(L"MMCDIsReady", {text(L"D:")}),
              opening + Log{"status QZCDPlay media present [50]"} + stopping);
    expectError(outcome, 13);
    // What cannot be opened has no alias.
    devices.fail(opening[0]).fail("status  media present");
    EXPECT_EQ(get(L"MMCDIsReady", {text(L"D:")}), opening + Log{"status  media present [50]"});
    expect(Variant(false));
}

TEST_F(Disc, theTrayIsOpenOrNot) {
    EXPECT_EQ(get(L"MMCDIsOpen"), Log{});
    expect(Variant(false));
    const Log asking{"Status QZCDPlay mode [50]"};
    devices.answer("Status QZCDPlay mode", "open");
    EXPECT_EQ(get(L"MMCDIsOpen", {text(L"D:")}), opening + asking);
    expect(Variant(true));
    for (const char* mode : {"", "stopped", "Open", "open "}) {
        devices.answer("Status QZCDPlay mode", mode);
        EXPECT_EQ(get(L"MMCDIsOpen"), asking);
        expect(Variant(false), mode);
    }
}

TEST_F(Disc, playOpensAnew) {
    EXPECT_EQ(sentBy(L"MMCDPlay"), Log{});
    expect(Variant(false));
    EXPECT_EQ(sentBy(L"MMCDPlay", {text(L"D:")}), opening + Log{"play QZCDPlay"});
    expect(Variant(true));
    EXPECT_EQ(sentBy(L"MMCDPlay", {text(L"D:")}), stopping + opening + Log{"play QZCDPlay"});
    devices.fail("play QZCDPlay");
    sentBy(L"MMCDPlay", {text(L"D:")});
    expect(Variant(false));
    // Without a drive it is stopped and cannot be opened again.
    devices.fail("play ");
    EXPECT_EQ(sentBy(L"MMCDPlay"), stopping + Log{"play "});
    expect(Variant(false));
    EXPECT_EQ(sentBy(L"MMCDPlay"), Log{});
}

TEST_F(Disc, stopFadesAPlayingDiscAndRestoresTheVolume) {
    EXPECT_EQ(sentBy(L"MMCDStop"), Log{});
    expect(Variant(false));
    mixer.line(0x1005, 2).control(2, 0x50030001, {9, 0, 3000});
    const Log finding{"open", "line 1005 by 3", "control 50030001 of 2"};
    const auto set = [&](int value) { return finding + (Log{"set 9 to " + std::to_string(value), "close"}); };
    const Log got = finding + (Log{"get 9", "close"});
    open();
    devices.answer("Status QZCDPlay mode", "playing");
    EXPECT_EQ(sentBy(L"MMCDStop"), Log{"Status QZCDPlay mode [20]"} + got + got + set(3000) +
                                       Log{"Sleep 10"} + set(1800) + Log{"Sleep 10"} + set(600) +
                                       Log{"Sleep 10"} + set(0) + set(3000) +
                                       (Log{"stop QZCDPlay", "close QZCDPlay"}));
    expect(Variant(true));
    EXPECT_EQ(sentBy(L"MMCDStop"), Log{});
    devices.answer("Status QZCDPlay mode", "stopped");
    open();
    EXPECT_EQ(sentBy(L"MMCDStop"), stopping);
    expect(Variant(true));
    open();
    devices.fail("close QZCDPlay");
    EXPECT_EQ(sentBy(L"MMCDStop"), stopping);
    expect(Variant(false));
    EXPECT_EQ(sentBy(L"MMCDStop"), Log{});
}

TEST_F(Disc, closeStopsTheDisc) {
    EXPECT_EQ(sentBy(L"MMClose", {text(L"QZCDPlay")}), Log{});
    expect(Variant(false));
    open();
    EXPECT_EQ(sentBy(L"MMClose", {text(L"QZCDPlay")}), stopping);
    expect(Variant(true));
}

TEST_F(Disc, theTrayIsOpenedOrClosed) {
    EXPECT_EQ(sentBy(L"MMCDEjectClose"), Log{});
    const Log asking{"Status QZCDPlay mode [50]"};
    for (const char* mode : {"stopped", "", "not ready"}) {
        devices.answer("Status QZCDPlay mode", mode);
        EXPECT_EQ(sentBy(L"MMCDEjectClose", {text(L"D:")}),
                  opening + asking + Log{"Set QZCDPlay door open wait"} + stopping);
    }
    devices.answer("Status QZCDPlay mode", "open");
    open();
    EXPECT_EQ(sentBy(L"MMCDEjectClose"), asking + Log{"Set QZCDPlay door closed"} + stopping);
    devices.fail(opening[0]);
    EXPECT_EQ(sentBy(L"MMCDEjectClose", {text(L"D:")}),
              opening + (Log{"Status  mode [50]", "Set  door open wait"}));
    EXPECT_EQ(S_OK, outcome.code);
}

TEST_F(Disc, pauseAndResumeAlternate) {
    EXPECT_EQ(sentBy(L"MMCDPause"), Log{});
    open();
    const Log asking{"Status QZCDPlay mode [20]"};
    const struct {
        const char *mode, *command;
    } rows[] = {{"playing", "pause QZCDPlay"},
                {"paused", "resume QZCDPlay"},
                {"stopped", "resume QZCDPlay"},
                {"", "pause QZCDPlay"},
                {"open", nullptr},
                {"not ready", nullptr},
                {"seeking", nullptr},
                {"parked", nullptr},
                {"recording", nullptr}};
    for (const auto& row : rows) {
        devices.answer("Status QZCDPlay mode", row.mode);
        EXPECT_EQ(sentBy(L"MMCDPause"), row.command ? asking + Log{row.command} : asking) << row.mode;
    }
    devices.fail("Status QZCDPlay mode", 263);
    EXPECT_EQ(sentBy(L"MMCDPause"), asking);
}

TEST_F(Disc, tracksPlayFromTheirPosition) {
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(2)}), Log{});
    expect(Variant(false));
    open();
    devices.answer("status QZCDPlay position track 1", "2000")
        .answer("status QZCDPlay position track 2", "90000")
        .answer("status QZCDPlay length track 2", "61000");
    const auto finding = [](const std::string& track) {
        return Log{"status QZCDPlay media present", "set QZCDPlay time format ms",
                   "status QZCDPlay position track " + track + " [50]", "stop QZCDPlay"};
    };
    const Log length{"set QZCDPlay time format milliseconds", "status QZCDPlay length track 2 [50]"};
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(0)}), finding("1") + Log{"play QZCDPlay from 2000"});
    expect(Variant(true));
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(2)}), finding("2") + Log{"play QZCDPlay from 90000"});
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(2), text(L""), Variant(false), long32(5000)}),
              finding("2") + Log{"play QZCDPlay from 95000"});
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(2), text(L""), Variant(false), long32(-2)}),
              finding("2") + Log{"play QZCDPlay from 89998"});
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(2), text(L""), Variant(true)}),
              finding("2") + length + Log{"play QZCDPlay from 90000 to 151000"});
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(2), text(L""), Variant(true), long32(1000)}),
              finding("2") + length + Log{"play QZCDPlay from 91000 to 152000"});
    expect(Variant(true));
    devices.fail("play QZCDPlay from 90000");
    sentBy(L"MMCDPlayTrack", {short16(2)});
    expect(Variant(false));
    sentBy(L"MMCDStop");
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(1), text(L"D:")}),
              opening + finding("1") + Log{"play QZCDPlay from 2000"});
}

TEST_F(Disc, tracksThatCannotBeFoundDoNotPlay) {
    open();
    devices.fail("status QZCDPlay media present");
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(1)}), Log{"status QZCDPlay media present"});
    expect(Variant(false));
    devices.answer("status QZCDPlay media present", "true").fail("status QZCDPlay position track -1");
    EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(-1)}),
              (Log{"status QZCDPlay media present", "set QZCDPlay time format ms",
                   "status QZCDPlay position track -1 [50]"}));
    expect(Variant(false));
    const struct {
        const char *position, *length;
        int offset, error;
    } rows[] = {{"", "0", -1, 13},         {"deux", "0", -1, 13},      {"2147483648", "0", -1, 6},
                {"2147483647", "0", 1, 6}, {"2147483647", "1", -1, 6}, {"1", "99999999999", -1, 6}};
    for (const auto& row : rows) {
        devices.answer("status QZCDPlay position track 3", row.position)
            .answer("status QZCDPlay length track 3", row.length);
        sentBy(L"MMCDPlayTrack", {short16(3), text(L""), Variant(true), long32(row.offset)});
        expectError(outcome, row.error, row.position);
    }
    // The device is left open.
    EXPECT_EQ(sentBy(L"MMCDStop"), stopping);
}

std::vector<std::wstring> arrayOf(const Outcome& outcome) {
    const VARIANT& value = outcome.result.raw();
    EXPECT_EQ(VT_ARRAY | VT_BSTR, value.vt);
    if (value.vt != (VT_ARRAY | VT_BSTR)) return {};
    LONG first = 0, last = 0;
    SafeArrayGetLBound(value.parray, 1, &first);
    SafeArrayGetUBound(value.parray, 1, &last);
    EXPECT_EQ(1, first);
    std::vector<std::wstring> texts;
    for (LONG i = first; i <= last; ++i) {
        Bstr element;
        EXPECT_EQ(S_OK, SafeArrayGetElement(value.parray, &i, element.put()));
        texts.emplace_back(element.view());
    }
    return texts;
}

using Texts = std::vector<std::wstring>;

TEST_F(Disc, tracksAreListedWithTheirLengths) {
    insert();
    EXPECT_EQ(sentBy(L"MMCDTracks"), Log{});
    expect(Variant());
    Log asking{"status QZCDPlay media present", "status QZCDPlay number of tracks [50]",
               "status QZCDPlay type track 1 [50]"};
    for (const std::string track : {"2", "3", "4"})
        asking = asking + (Log{"status QZCDPlay type track " + track + " [50]",
                               "status QZCDPlay length track " + track + " [50]"});
    EXPECT_EQ(sentBy(L"MMCDTracks", {text(L"D:")}), opening + asking);
    EXPECT_EQ(arrayOf(outcome), (Texts{L"1 : 03:22:10", L"2 : 03:23:10", L"3 : 03:24:10"}));
    EXPECT_EQ(sentBy(L"MMCDTracks", {text(L""), Variant(false), text(L"Piste ")}),
              Log{"status QZCDPlay media present"} + counting);
    EXPECT_EQ(arrayOf(outcome), (Texts{L"Piste 1", L"Piste 2", L"Piste 3"}));
    devices.fail("status QZCDPlay length track 3");
    EXPECT_EQ(sentBy(L"MMCDTracks"), asking);
    EXPECT_EQ(arrayOf(outcome), (Texts{L"1 : 03:22:10", L"2", L"3 : 03:24:10"}));
    for (const char* count : {"1", "0", "-3", "", "aucune"}) {
        devices.answer("status QZCDPlay number of tracks", count);
        sentBy(L"MMCDTracks");
        EXPECT_EQ(arrayOf(outcome), Texts{L""}) << count;
    }
    devices.answer("status QZCDPlay number of tracks", "32768");
    sentBy(L"MMCDTracks");
    expectError(outcome, 6);
    for (const char* command : {"status QZCDPlay number of tracks", "status QZCDPlay media present"}) {
        devices.fail(command);
        sentBy(L"MMCDTracks");
        expect(Variant(), command);
    }
    sentBy(L"MMCDStop");
    devices.fail(opening[0]);
    EXPECT_EQ(sentBy(L"MMCDTracks", {text(L"D:")}), opening);
    expect(Variant());
}

TEST_F(Disc, tracksFillListsAndCombos) {
    insert();
    open();
    for (const wchar_t* kind : {L"ListBox", L"ComboBox", L"TextBox"}) {
        ScriptedObject list;
        Texts added;
        list.className(kind).method(L"AddItem", [&](const ScriptedObject::Call& given) {
            added.emplace_back(viewOf(given.argument(0).raw().bstrVal));
            return Variant();
        });
        IDispatch* variable = &list;
        sentBy(L"MMCDTracks", {text(L""), Variant(false), text(L"n°"), byReference(VT_DISPATCH, &variable)});
        EXPECT_EQ(arrayOf(outcome), (Texts{L"n°1", L"n°2", L"n°3"}));
        EXPECT_EQ(added, kind == std::wstring(L"TextBox") ? Texts{} : (Texts{L"n°1", L"n°2", L"n°3"}));
        EXPECT_EQ(0, list.references());
    }
}

TEST_F(Disc, aListThatFailsEndsTheListing) {
    insert();
    open();
    ScriptedObject list;
    list.className(L"ListBox").method(L"AddItem", [](const ScriptedObject::Call&) { return Variant(); });
    list.failCall(2, static_cast<HRESULT>(0x800A0007));
    sentBy(L"MMCDTracks", {text(L""), Variant(false), text(L""), vorla::test::object(&list)});
    expectError(outcome, 7);
    EXPECT_EQ(0, list.references());
    EXPECT_EQ(sentBy(L"MMCDStop"), stopping);
    // A list that closes the device in the middle.
    open();
    ScriptedObject closing;
    closing.className(L"ListBox").method(L"AddItem", [&](const ScriptedObject::Call&) {
        call(L"MMCDStop");
        return Variant();
    });
    sentBy(L"MMCDTracks", {text(L""), Variant(false), text(L""), vorla::test::object(&closing)});
    EXPECT_EQ(3u, arrayOf(outcome).size());
    EXPECT_EQ(sentBy(L"MMCDStop"), Log{});
}

TEST_F(Disc, lengthsAndPositionsComeInThreeUnits) {
    const struct {
        const char* answer;
        int milliseconds, seconds;
        const wchar_t* text;
    } rows[] = {{"2500", 2500, 2, L"00:02"},
                {"3500", 3500, 4, L"00:04"},
                {"3599500", 3599500, 3600, L"01:00:00"},
                {"", 0, 0, L"00:00"},
                {"125000 ms", 125000, 125, L"02:05"},
                {"-125000", -125000, -125, L"-02:-05"}};
    for (const wchar_t* name : {L"MMCDLenght", L"MMCDPosition", L"MMCDTrackPosition", L"MMCDTrackLenght"}) {
        get(name, name == std::wstring(L"MMCDTrackLenght") ? Arguments{short16(1)} : Arguments());
        expect(name == std::wstring(L"MMCDTrackLenght") ? long32(0) : Variant(), narrow(name));
        EXPECT_EQ(log, Log{});
    }
    open();
    devices.answer("status QZCDPlay current track", "5");
    for (const auto& row : rows) {
        devices.answer("status QZCDPlay length", row.answer)
            .answer("status QZCDPlay length track 3", row.answer);
        const Log whole =
            milliseconds + (Log{"status QZCDPlay start position [50]", "status QZCDPlay length [50]"});
        EXPECT_EQ(get(L"MMCDLenght", {long32(0)}), whole);
        expect(long32(row.milliseconds), row.answer);
        EXPECT_EQ(get(L"MMCDLenght"), whole);
        expect(long32(row.seconds), row.answer);
        get(L"MMCDLenght", {long32(2)});
        expect(text(withTimeSeparator(row.text)), row.answer);
        EXPECT_EQ(get(L"MMCDLenght", {long32(3)}), whole);
        expect(Variant());
        EXPECT_EQ(get(L"MMCDTrackLenght", {short16(3), long32(0)}),
                  milliseconds + Log{"status QZCDPlay length track 3 [50]"});
        expect(long32(row.milliseconds), row.answer);
        get(L"MMCDTrackLenght", {short16(3)});
        expect(long32(row.seconds), row.answer);
        get(L"MMCDTrackLenght", {short16(3), long32(2)});
        expectError(outcome, 13, row.answer);
        get(L"MMCDTrackLenght", {short16(3), long32(4)});
        expect(long32(0));
    }
    EXPECT_EQ(get(L"MMCDTrackLenght", {short16(0), long32(0)}), Log{});
    expect(long32(0));
    devices.answer("status QZCDPlay start position", "2000")
        .answer("status QZCDPlay position track 5", "90000");
    const struct {
        const char* position;
        int onDisc, inTrack;
    } positions[] = {
        {"92500", 90500, 2500}, {"93500", 91500, 3500}, {"1000", -1000, -89000}, {"", -2000, -90000}};
    const Log asking =
        milliseconds + (Log{"status QZCDPlay start position [50]", "status QZCDPlay position [50]"});
    const Log asked =
        milliseconds + (Log{"status QZCDPlay position track 5 [50]", "status QZCDPlay position [50]"});
    for (const auto& row : positions) {
        devices.answer("status QZCDPlay position", row.position);
        EXPECT_EQ(get(L"MMCDPosition", {long32(0)}), asking);
        expect(long32(row.onDisc), row.position);
        EXPECT_EQ(get(L"MMCDTrackPosition", {short16(5), long32(0)}), asked);
        expect(long32(row.inTrack), row.position);
        EXPECT_EQ(get(L"MMCDTrackPosition", {short16(0), long32(0)}),
                  Log{"status QZCDPlay current track [50]"} + asked);
        expect(long32(row.inTrack), row.position);
    }
    get(L"MMCDPosition", {long32(2)});
    expect(text(withTimeSeparator(L"00:-02")));
    get(L"MMCDPosition");
    expect(long32(-2));
    get(L"MMCDTrackPosition", {missing(), long32(2)});
    expect(text(withTimeSeparator(L"-01:-30")));
}

TEST_F(Disc, lengthsAndPositionsThatFailAreEmpty) {
    open();
    devices.answer("status QZCDPlay current track", "1");
    for (const char* command :
         {"status QZCDPlay length", "status QZCDPlay length track 1", "status QZCDPlay position"})
        devices.fail(command, 1, "1000");
    for (const wchar_t* name : {L"MMCDLenght", L"MMCDPosition", L"MMCDTrackPosition"}) {
        get(name);
        expect(Variant(), narrow(name));
    }
    get(L"MMCDTrackLenght", {short16(1)});
    expect(long32(0));
    devices.fail("status QZCDPlay position track 1");
    EXPECT_EQ(get(L"MMCDTrackPosition", {short16(1)}),
              milliseconds + Log{"status QZCDPlay position track 1 [50]"});
    expect(Variant());
    devices.answer("status QZCDPlay current track", "");
    EXPECT_EQ(get(L"MMCDTrackPosition"), Log{"status QZCDPlay current track [50]"});
    expect(Variant());
    devices.answer("status QZCDPlay length", "2147483648")
        .answer("status QZCDPlay position", "2147483647")
        .answer("status QZCDPlay start position", "-1");
    get(L"MMCDLenght");
    expectError(outcome, 6);
    get(L"MMCDPosition");
    expectError(outcome, 6);
}

TEST_F(Disc, tracksAreCountedAndNamed) {
    insert();
    EXPECT_EQ(get(L"MMCDTrackCount"), Log{});
    expect(short16(0));
    EXPECT_EQ(get(L"MMCDTrackCurrent"), Log{});
    expect(short16(0));
    open();
    EXPECT_EQ(get(L"MMCDTrackCount"), counting);
    expect(short16(3));
    for (const char* count : {"", "aucune", "99999", "0", "-1"}) {
        devices.answer("status QZCDPlay number of tracks", count);
        EXPECT_EQ(get(L"MMCDTrackCount"), Log{"status QZCDPlay number of tracks [50]"});
        expect(short16(0), count);
    }
    devices.fail("status QZCDPlay number of tracks", 1, "4");
    get(L"MMCDTrackCount");
    expect(short16(0));
    for (const auto& [answer, track] : std::map<std::string, int>{
             {"7", 7}, {"", 0}, {"x", 0}, {"32767", 32767}, {"32768", 0}, {"3 of 9", 3}}) {
        devices.answer("status QZCDPlay current track", answer);
        EXPECT_EQ(get(L"MMCDTrackCurrent"), Log{"status QZCDPlay current track [50]"});
        expect(short16(track), answer);
    }
    devices.fail("status QZCDPlay current track", 1, "7");
    get(L"MMCDTrackCurrent");
    expect(short16(0));
}

TEST_F(Disc, trackFilesAreRecognised) {
    Intercept<decltype(GetDriveTypeA)> drives(module, "kernel32.dll", "GetDriveTypeA");
    drives.answer([](LPCSTR root) -> UINT { return std::string(root) == "D:\\" ? 5 : 3; });
    const struct {
        const wchar_t* name;
        bool isCd;
        int number;
    } rows[] = {{L"D:\\Track05.cda", true, 5},
                {L"D:\\TRACK12.CDA", true, 12},
                {L"C:\\x\\Track12.cda", false, 12},
                {L"D:\\Song.cda", true, 0},
                {L"D:\\Track05.wav", false, 5},
                {L"D:\\Track40000.cda", true, 0},
                {L"D:\\Track.cda", true, 0},
                {L"", false, 0},
                {L"D:\\", false, 0},
                {L"D:\\tracktrack7.cda", true, 7},
                {L"track3", false, 3},
                {L"D:\\Track-2.cda", true, -2}};
    for (const auto& row : rows) {
        expectResult(call(L"IsCd", {text(row.name)}), Variant(row.isCd), narrow(row.name));
        expectResult(call(L"MMCDTrackNumberGet", {text(row.name)}), short16(row.number), narrow(row.name));
    }
}

TEST_F(Disc, anotherObjectSeesTheDiscByItsAliasOnly) {
    open();
    const auto other = component.create(classNumber);
    expectResult(invoke(other.get(), L"MMCDTrackCurrent"), short16(0));
    expectResult(invoke(other.get(), L"MMCDStop"), Variant(false));
    EXPECT_EQ(log, Log{});
    expectResult(invoke(other.get(), L"MMIsOpen", {text(L"QZCDPlay")}), Variant(true));
    EXPECT_EQ(log, Log{"Status QZCDPlay mode [20]"});
}

TEST_F(Disc, everyCommandFailsInTurn) {
    insert();
    devices.fail("status  media present");
    // Opening, the medium and the count decide; a type that cannot be read is not audio, and the rest only
    // ends what was begun.
    for (int refused = 1; refused <= 10; ++refused) {
        devices.failCommand(refused);
        get(L"MMCDIsReady", {text(L"D:")});
        expect(Variant(refused > 3), std::to_string(refused));
        EXPECT_EQ(sentBy(L"MMCDStop"), Log{}) << refused;
    }
    open();
    devices.answer("status QZCDPlay position track 2", "90000")
        .answer("status QZCDPlay length track 2", "61000");
    const struct {
        bool plays;
        const char* last;
    } rows[] = {{false, "status QZCDPlay media present"},
                {true, "play QZCDPlay from 90000 to 151000"},
                {false, "status QZCDPlay position track 2 [50]"},
                {true, "play QZCDPlay from 90000 to 151000"},
                {true, "play QZCDPlay from 90000 to 151000"},
                // Without a length the end is the start.
                {true, "play QZCDPlay from 90000 to 90000"},
                {false, "play QZCDPlay from 90000 to 151000"}};
    int refused = 0;
    for (const auto& row : rows) {
        devices.failCommand(++refused);
        EXPECT_EQ(sentBy(L"MMCDPlayTrack", {short16(2), text(L""), Variant(true)}).back(), row.last);
        expect(Variant(row.plays), std::to_string(refused));
    }
}

TEST_F(Disc, failingAllocationsLeakNothing) {
    insert();
    open();
    const auto shown = [](const Outcome& answer) {
        return answer.code == S_OK ? describe(answer.result.raw()) : "failed";
    };
    const auto value = [](const Variant& variant) { return describe(variant.raw()); };
    const auto clear = [&] { log.clear(); };
    failEachCall(module, noMemory(), "MMCDTrackCount",
                 [&] {
                     clear();
                     return shown(call(L"MMCDTrackCount"));
                 },
                 value(short16(3)), {value(short16(0)), value(short16(1)), value(short16(2)), "failed"});
    failEachCall(module, noMemory(), "MMCDPosition",
                 [&] {
                     clear();
                     return shown(call(L"MMCDPosition", {long32(2)}));
                 },
                 value(text(withTimeSeparator(L"00:00"))), {"failed"});
    failEachCall(module, noMemory(), "MMCDTracks",
                 [&] {
                     clear();
                     const auto listed = call(L"MMCDTracks", {text(L""), Variant(true), text(L"Piste ")});
                     return listed.code == S_OK ? std::to_string(arrayOf(listed).size()) : "failed";
                 },
                 "3", {"failed"});
}

}  // namespace
}  // namespace vorla::test
