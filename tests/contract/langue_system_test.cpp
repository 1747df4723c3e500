// Invalid language files, refusals of the system, and leaks.
#include <algorithm>

#include "contract/langue_fixture.h"
#include "support/failing_calls.h"
#include "support/import_patch.h"
#include "support/memory_count.h"
#include "support/scripted_object.h"

namespace vorla::test {
namespace {

constexpr const wchar_t* marker = L"**********";

TEST_F(Langue, valuesEndWhereTheReadersBufferDoes) {
    std::wstring content = L"[Messages]\r\n";
    for (const int length : {1024, 1025, 1026, 1027, 5000})
        content += L"m" + std::to_wstring(length) + L"=" +
                   std::wstring(static_cast<std::size_t>(length), L'x') + L"\r\n";
    // A group that does not fit completely is not a group.
    content += L"cut=" + std::wstring(1023, L'x') + L"\u00FF{l}\r\n";
    languageFile(L"ENG", content);
    select(L"ENG");
    EXPECT_EQ(std::wstring(1024, L'x'), textOf(L"LoadMsgLng", {text(L"m1024")}));
    for (const wchar_t* key : {L"m1025", L"m1026", L"m1027", L"m5000"})
        EXPECT_EQ(std::wstring(1025, L'x'), textOf(L"LoadMsgLng", {text(key)})) << narrow(key);
    EXPECT_EQ(std::wstring(1023, L'x') + L"\u00FF{", textOf(L"LoadMsgLng", {text(L"cut")}));
}

TEST_F(Langue, filesFromHell) {
    std::string noise(300'000, '\0');
    unsigned state = 1;
    for (char& byte : noise) byte = static_cast<char>((state = state * 1664525u + 1013904223u) >> 24);
    std::string sections;
    for (int i = 0; i < 20'000; ++i)
        sections += "[s" + std::to_string(i) + "]\r\nm=" + std::to_string(i) + "\r\n";
    const std::string files[] = {
        "",
        "m=no section\r\n",
        "[Messages\r\nm=unterminated\r\n",
        "[Messages",
        "[",
        "]\r\n[]\r\n=\r\n==\r\n",
        std::string(3'000'000, 'x'),
        std::string(1'000'000, '\n'),
        "[Messages]\r\nm=" + std::string(2'000'000, 'y') + "\r\n",
        "[Messages]\r\n" + std::string(1'000'000, 'k') + "=value\r\n",
        "[" + std::string(500'000, 'M') + "]\r\nm=1\r\n",
        std::string(100'000, '\xFF') + "{l}",
        noise,
        "[Messages]\r\n" + noise,
        std::string(10'000, '\0') + "[Messages]\r\nm=behind\r\n",
        "\xFF\xFE[\0M\0e\0s\0s\0a\0g\0e\0s\0]\0",
        "\xEF\xBB\xBF[Messages]\r\nm=utf-8\r\n",
        sections,
    };
    languageFile(L"FRA", L"[Messages]\r\nd=défaut\r\n");
    select(L"ENG");
    for (std::size_t i = 0; i < std::size(files); ++i) {
        const auto path = application.file(L"Languages\\ENG.lng", files[i]);
        for (const wchar_t* key : {L"m", L"", L"k", L"\u00FF"})
            EXPECT_LE(textOf(L"LoadMsgLng", {text(key)}).size(), 1025u) << i;
        EXPECT_EQ(L"défaut", textOf(L"LoadMsgLng", {text(L"d")})) << i;
        EXPECT_LE(textOf(L"LoadCtlLng", {text(L""), text(L"m"), long32(0)}).size(), 1025u);
        EXPECT_LE(textOf(L"LngSpecialInfos", {long32(2)}).size(), 1025u);
        expectResult(call(L"LngGetPresent", {long32(3)}), short16(2));
        EXPECT_EQ(2u, textsIn(call(L"LngGetPresent", {long32(1)})).size());
        expectResult(call(L"LngSetLanguage", {text(L"ENG")}), true);
        // Reading changes nothing.
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
        EXPECT_EQ(files[i].size(), data.nFileSizeLow) << i;
        EXPECT_TRUE(DeleteFileW(path.c_str()));
    }
}

TEST_F(Langue, whatCannotBeWrittenGoesUnnoticed) {
    // Without the folder, no file is created.
    run(L"LngSetFileName", {text(application.path(L"rien")), text(L"ENG")});
    run(L"LngSaveMsg", {text(L"m"), text(L"x")});
    EXPECT_FALSE(TemporaryFolder::exists(application.path(L"rien")));
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"m")}));
    // A folder with the name of a language file.
    application.folder(L"Languages\\DIR.lng");
    select(L"DIR");
    run(L"LngSaveMsg", {text(L"m"), text(L"x")});
    EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"m")}));
    // A file that is not shared.
    const auto file = languageFile(L"ENG", L"[Messages]\r\nm=one\r\n");
    select(L"ENG");
    {
        const File locked(CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(static_cast<bool>(locked));
        run(L"LngSaveMsg", {text(L"m"), text(L"two")});
        EXPECT_EQ(marker, textOf(L"LoadMsgLng", {text(L"m")}));
    }
    EXPECT_EQ(L"one", textOf(L"LoadMsgLng", {text(L"m")}));
    // A read-only file can be read. Whether it can be written depends on the user.
    EXPECT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(L"one", textOf(L"LoadMsgLng", {text(L"m")}));
    run(L"LngSaveMsg", {text(L"n"), text(L"two")});
    EXPECT_EQ(L"one", textOf(L"LoadMsgLng", {text(L"m")}));
}

TEST_F(Langue, whatReachesTheSystem) {
    CallLog log;
    Intercept<decltype(GetPrivateProfileStringA)> read(component.module(), "kernel32.dll",
                                                       "GetPrivateProfileStringA", &log);
    Intercept<decltype(WritePrivateProfileStringA)> write(component.module(), "kernel32.dll",
                                                          "WritePrivateProfileStringA", &log);
    read.answer([](LPCSTR, LPCSTR, LPCSTR, LPSTR, DWORD, LPCSTR) { return DWORD{0}; });
    write.answer([](LPCSTR, LPCSTR, LPCSTR, LPCSTR) { return FALSE; });
    // Without a language there is no file. The system would take an empty name for a file of its own.
    EXPECT_EQ(L"**********", textOf(L"LoadMsgLng", {text(L"m")}));
    EXPECT_EQ(L"", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"opt"), long32(2)}));
    EXPECT_EQ(L"", textOf(L"LngSpecialInfos", {long32(2)}));
    run(L"LngSaveMsg", {text(L"m"), text(L"x")});
    run(L"LngFormLoad", {nothing(), nothing()});
    EXPECT_EQ(CallLog(), log);
    run(L"LngSetFileName", {text(L"C:\\App"), text(L"ENG")});
    EXPECT_EQ(L"**********", textOf(L"LoadCtlLng", {text(L"frmMain"), text(L"opt"), long32(2), short16(4)}));
    run(L"LngSaveMsg", {text(L"m"), text(L"a\r\nb")});
    run(L"LngSaveMsg", {text(L";m"), text(L"x")});
    const auto reads = [](const char* file) {
        return std::string(
                   "GetPrivateProfileStringA(\"frmMain\", \"opt#4#ToolTipText\", \"\", set, 1026, \"") +
               "C:\\App\\Languages\\" + file + "\")";
    };
    const char* const writes[] = {
        "WritePrivateProfileStringA(\"Messages\", \"m\", \"a\xFF{l}b\", \"C:\\App\\Languages\\ENG.lng\")",
        // A commented key is never written, only deleted.
        "WritePrivateProfileStringA(\"Messages\", \";m\", null, \"C:\\App\\Languages\\ENG.lng\")"};
    EXPECT_EQ((CallLog{reads("ENG.lng"), reads("FRA.lng"), writes[0], writes[1]}), log);
    // Empty keys are not passed to the system.
    log.clear();
    for (const wchar_t* key : {L"", L"  "}) textOf(L"LoadMsgLng", {text(key)});
    textOf(L"LngSpecialInfos", {long32(0)});
    run(L"LngSaveMsg", {text(L""), text(L"x")});
    run(L"LngSaveMsg", {text(L"m"), text(L"")});
    EXPECT_EQ(CallLog(), log);
}

// A call of a member: its right answer, and those that it may give when the system fails.
struct Call {
    const wchar_t* name;
    Arguments arguments;
    std::wstring right;
    std::vector<std::wstring> others;
};

std::wstring shownResult(const Outcome& outcome) {
    const auto code = outcome.code == DISP_E_EXCEPTION ? outcome.exceptionCode : outcome.code;
    if (FAILED(code)) return L"code " + std::to_wstring(static_cast<unsigned long>(code) & 0xFFFF);
    const VARIANT& value = outcome.result.raw();
    switch (value.vt) {
        case VT_EMPTY: return L"Empty";
        case VT_BSTR: return std::wstring(viewOf(value.bstrVal));
        case VT_BOOL: return value.boolVal ? L"True" : L"False";
        case VT_I2: return std::to_wstring(value.iVal);
        default: return L"array of " + std::to_wstring(textsIn(outcome).size());
    }
}

class LangueFailures : public Langue {
protected:
    LangueFailures() {
        languageFile(L"ENG",
                     L"[Messages]\r\nm=english\r\n[System]\r\nNameISO=English\r\n[f]\r\nc#Caption=ctl\r\n");
        languageFile(L"FRA", L"[Messages]\r\nm=français\r\n");
    }

    std::vector<Call> calls() {
        const std::wstring missing_ = L"**********";
        return {{L"LngSetFileName", {text(application.path()), text(L"ENG")}, L"Empty", {L"code 14"}},
                {L"LngSetLanguage", {text(L"ENG")}, L"True", {L"False"}},
                {L"LngGetFileName", {}, languages + L"\\ENG.lng", {L"", L"code 14"}},
                {L"LoadMsgLng", {text(L"m")}, L"english", {L"français", missing_}},
                {L"LoadMsgLng", {text(L"m"), true, 1.5}, L"english", {L"français", missing_}},
                {L"LoadCtlLng", {text(L"f"), text(L"c"), long32(0)}, L"ctl", {missing_, L""}},
                {L"LngSpecialInfos", {long32(2)}, L"English", {L""}},
                {L"LngSaveMsg", {text(L"w"), text(L"written")}, L"Empty", {}},
                {L"LngGetPresent", {long32(3)}, L"2", {L"0", L"1", L"Empty", L"code 5", L"code 14"}},
                {L"LngGetPresent",
                 {long32(1)},
                 L"array of 2",
                 {L"array of 0", L"array of 1", L"Empty", L"code 5", L"code 14"}},
                {L"LngGetPresent",
                 {long32(2)},
                 L"array of 2",
                 {L"array of 0", L"array of 1", L"Empty", L"code 5", L"code 14"}}};
    }

    template <class Function>
    void expectHarmless(const char* dll, const char* function, auto result) {
        int failing = 1;
        for (bool failed = true; failed; ++failing) {
            // A new thread begins without a store, so that making the store can fail too.
            const auto expected = calls();
            std::vector<std::wstring> seen;
            int made = 0;
            {
                Intercept<Function, LangueFailures> intercepted(component.module(), dll, function);
                intercepted.failCall(failing, result);
                onThread(component, [&](const Dispatch& mine) {
                    for (const auto& each : expected) {
                        auto arguments = each.arguments;
                        seen.push_back(shownResult(invoke(mine.get(), each.name, std::move(arguments))));
                    }
                    SetErrorInfo(0, nullptr);
                });
                made = intercepted.calls();
            }
            failed = failing <= made;
            ASSERT_EQ(expected.size(), seen.size());
            for (std::size_t i = 0; i < seen.size(); ++i) {
                // A failure can lose the folder or the language, and the following calls then lack it.
                const auto& [name, arguments, right, others] = expected[i];
                const bool neutral = std::find(others.begin(), others.end(), seen[i]) != others.end();
                EXPECT_TRUE(seen[i] == right || neutral) << function << " call " << failing << ": "
                                                         << narrow(name) << " gives " << narrow(seen[i]);
                if (!failed) {
                    EXPECT_EQ(right, seen[i]) << function;
                }
            }
        }
        // The function must be called at all.
        EXPECT_GT(failing, 2) << function;
    }
};

TEST_F(LangueFailures, everySystemCallFailingInTurn) {
    expectHarmless<decltype(GetPrivateProfileStringA)>("kernel32.dll", "GetPrivateProfileStringA", DWORD{0});
    expectHarmless<decltype(WritePrivateProfileStringA)>("kernel32.dll", "WritePrivateProfileStringA",
                                                         BOOL{FALSE});
    expectHarmless<decltype(GetFileAttributesA)>("kernel32.dll", "GetFileAttributesA",
                                                 DWORD{INVALID_FILE_ATTRIBUTES});
    expectHarmless<decltype(FindFirstFileA)>("kernel32.dll", "FindFirstFileA", INVALID_HANDLE_VALUE);
    expectHarmless<decltype(FindNextFileA)>("kernel32.dll", "FindNextFileA", BOOL{FALSE});
    expectHarmless<decltype(WideCharToMultiByte)>("kernel32.dll", "WideCharToMultiByte", 0);
    expectHarmless<decltype(MultiByteToWideChar)>("kernel32.dll", "MultiByteToWideChar", 0);
    expectHarmless<decltype(TlsSetValue)>("kernel32.dll", "TlsSetValue", BOOL{FALSE});
    expectHarmless<decltype(SafeArrayCreateVector)>("oleaut32.dll", "SafeArrayCreateVector",
                                                    static_cast<SAFEARRAY*>(nullptr));
}

// The component's own allocations fail: looked-up texts are missing or stay unprocessed, and only the members
// that may fail do.
TEST_F(LangueFailures, withoutMemory) {
    select(L"ENG");
    ScriptedObject list;
    list.method(L"Clear", [](const ScriptedObject::Call&) { return Variant(); })
        .method(L"AddItem", [](const ScriptedObject::Call&) { return Variant(); });
    const std::wstring noMemoryLeft = L"code 14", missing_ = marker;
    const std::vector<Call> calls = {
        {L"LngSetFileName", {text(application.path()), text(L"ENG")}, L"Empty", {noMemoryLeft}},
        {L"LngSetLanguage", {text(L"ENG")}, L"True", {L"False"}},
        {L"LngFolder", {long32(4)}, L"ENG", {noMemoryLeft, L"ENG.lng"}},
        {L"LoadMsgLng", {text(L"m"), true, 1.5}, L"english", {L"français", missing_, L"", noMemoryLeft}},
        {L"LoadCtlLng", {text(L"f"), text(L"c"), long32(0)}, L"ctl", {missing_, L"", noMemoryLeft}},
        {L"LngSpecialInfos", {long32(2)}, L"English", {L"", noMemoryLeft}},
        {L"StringEscape", {text(L"a\r\n")}, L"a\u00FF{l}", {noMemoryLeft}},
        {L"LngSaveMsg", {text(L"w"), text(L"written")}, L"Empty", {noMemoryLeft}},
        {L"LngGetPresent", {long32(1)}, L"array of 2", {noMemoryLeft}},
        {L"LngGetPresent", {long32(3), object(&list)}, L"2", {noMemoryLeft}},
        {L"LngGetPresent", {long32(4), object(&list)}, L"array of 0", {noMemoryLeft}}};
    const auto held = list.references();
    int failures = 0;
    for (const auto& [name, arguments, right, others] : calls) {
        std::set<std::string> whenFailed;
        for (const auto& other : others) whenFailed.insert(narrow(other));
        failures += failEachCall(
            component.module(), noMemory(), narrow(name),
            [&] { return narrow(shownResult(invoke(langue.get(), name, arguments))); }, narrow(right),
            whenFailed);
        list.clearLog();
    }
    EXPECT_GT(failures, 20);
    EXPECT_EQ(held, list.references());
}

TEST_F(Langue, callsLeaveNothing) {
    languageFile(
        L"ENG",
        L"[Messages]\r\nm=english %%1 %%2\r\n[System]\r\nNameISO=English\r\n[f]\r\nc#Caption=ctl\r\n");
    select(L"ENG");
    ScriptedObject list;
    list.method(L"Clear", [](const ScriptedObject::Call&) { return Variant(); })
        .method(L"AddItem", [](const ScriptedObject::Call&) { return Variant(); });
    const auto use = [&](int i) {
        call(L"StringEscape", {text(L"a\r\nb")});
        call(L"StringUnEscape", {text(L"a\u00FF{l}b")});
        call(L"LngPrepareMotCle", {text(L"a"), text(L"1"), text(L"c")});
        call(L"LngFolder", {long32(1)});
        call(L"LngGetFileName");
        call(L"LngSpecialInfos", {long32(1), true});
        call(L"lngMesNull");
        // Fewer calls of those that go to the disk.
        if (i % 100 != 0) return;
        call(L"LoadMsgLng", {text(L"m"), true, text(L"a"), nullValue()});
        call(L"LoadCtlLng", {text(L"f"), text(L"c"), long32(0), short16(1), true, text(L"a")});
        call(L"LngGetPresent", {long32(1)});
        call(L"LngGetPresent", {long32(4), object(&list)});
        call(L"LngGetPresent", {long32(4)});
        call(L"LngSetLanguage", {text(L"ENG")});
        call(L"LngSetLanguage", {text(L"DEU")});
        call(L"LngSaveMsg", {text(L"s"), text(L"saved")});
        list.clearLog();
    };
    int i = 0;
    expectNothingLeft([&] { use(i++); });
}

}  // namespace
}  // namespace vorla::test
