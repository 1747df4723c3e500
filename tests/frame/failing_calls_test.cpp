// Fails every system call of the shared routines and of the replacements for the host's global objects in
// turn, and every lookup of a name by a host.
#include "support/failing_calls.h"
#include "frame/values/winapi.h"

#include <algorithm>
#include <cstring>

#include "frame/host/bound_object.h"
#include "frame/host/globals.h"
#include "frame/host/host_items.h"
#include "frame/host/message_box.h"
#include "frame/host/object_kinds.h"
#include "frame/shared/comparison.h"
#include "frame/shared/files.h"
#include "frame/shared/host_queries.h"
#include "frame/shared/profile.h"
#include "frame/shared/system_queries.h"
#include "frame/shared/waiting.h"
#include "frame/values/ansi.h"
#include "support/automation.h"
#include "support/no_dialogs.h"
#include "support/scripted_object.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

const HMODULE program = GetModuleHandleW(nullptr);
constexpr const char* kernel = "kernel32.dll";

const Fault noAttributes = fault<decltype(GetFileAttributesA)>(kernel, "GetFileAttributesA",
                                                               INVALID_FILE_ATTRIBUTES, ERROR_NOT_READY);
const Fault noBytes = fault<decltype(WideCharToMultiByte)>(kernel, "WideCharToMultiByte", 0);
const Fault noCharacters = fault<decltype(MultiByteToWideChar)>(kernel, "MultiByteToWideChar", 0);

// The outcome of a routine: its value, or the number of the error that ends it.
std::string shown(bool value) { return value ? "true" : "false"; }
std::string shown(double value) { return std::to_string(value); }
std::string shown(TextView value) { return narrow(value); }
std::string shown(const Variant& value) { return describe(value.raw()); }
template <class Enumeration>
requires std::is_enum_v<Enumeration> std::string shown(Enumeration value) {
    return std::to_string(static_cast<int>(value));
}

template <class Routine>
std::string outcomeOf(Routine&& routine) {
    try {
        return shown(routine());
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(static_cast<int>(error.number()));
    } catch (const std::bad_alloc&) {
        return "no memory";
    }
}

// Expects one of these outcomes for each failing call, and this number of calls.
template <class Routine>
void expectCalls(int calls, const Fault& fault, Routine routine, const std::string& right,
                 const std::set<std::string>& whenFailed) {
    EXPECT_EQ(calls, failEachCall(
                         program, fault, right, [&] { return outcomeOf(routine); }, right, whenFailed))
        << fault.name;
}

TEST(FailingFiles, existNoMore) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier.txt"), folder = temporary.folder(L"dossier.x");
    const auto isFile = [&] { return ExisteFichier(file, eFileToTest::eftFile); };
    expectCalls(1, noAttributes, isFile, "true", {"false"});
    // The length that the bytes need, then the bytes.
    expectCalls(2, noBytes, isFile, "true", {"false"});
    // The first call asks whether the path is a folder, the second whether that folder exists.
    const auto hasFolder = [&] { return ExisteDossier(file); };
    expectCalls(2, noAttributes, hasFolder, "true", {"false"});
    expectCalls(4, noBytes, hasFolder, "true", {"false"});
    // If it is not recognised as a folder, the path is treated as a file's.
    const auto extension = [&] { return DecoupeChemin(folder, eFileN::eFExtension).text(); };
    expectCalls(1, noAttributes, extension, "", {"x"});
    expectCalls(2, noBytes, extension, "", {"x"});
}

TEST(FailingFiles, haveNoShortForm) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"au long nom.texte");
    wchar_t expected[MAX_PATH];
    ASSERT_NE(0u, GetShortPathNameW(file.c_str(), expected, MAX_PATH));
    const auto shortForm = [&] { return CheminCourt(file); };
    expectCalls(1, fault<decltype(GetShortPathNameA)>(kernel, "GetShortPathNameA", DWORD{0}), shortForm,
                narrow(expected), {""});
    // These failures are left to the callers.
    expectCalls(2, noBytes, shortForm, narrow(expected), {"error 5"});
    expectCalls(2, noCharacters, shortForm, narrow(expected), {"error 5"});
}

TEST(FailingFiles, haveNoShortFormThatFillsTheBuffer) {
    Intercept<decltype(GetShortPathNameA)> shortForms(program, kernel, "GetShortPathNameA");
    DWORD length = 0;
    shortForms.answer([&](LPCSTR, LPSTR buffer, DWORD room) -> DWORD {
        EXPECT_EQ(255u, room);
        std::fill_n(buffer, room, 'x');
        return length;
    });
    for (length = 253; length <= 257; ++length)
        EXPECT_EQ(Text(length < 255 ? length : 0, L'x'), CheminCourt(L"C:\\a")) << length;
}

TEST(FailingFiles, areNotDeleted) {
    const TemporaryFolder temporary;
    const auto path = temporary.path(L"fichier.txt");
    // If the answer says that the file was not deleted, it exists; otherwise it does not.
    const auto deletes = [&] {
        const auto answer = outcomeOf([&] { return SupprimeFichier(path); });
        EXPECT_EQ(answer != "true", TemporaryFolder::exists(path)) << answer;
        return answer;
    };
    const auto expectDeletions = [&](int calls, const Fault& fault, const std::set<std::string>& whenFailed) {
        const auto use = [&] {
            if (!TemporaryFolder::exists(path)) temporary.file(L"fichier.txt");
            return deletes();
        };
        EXPECT_EQ(calls, failEachCall(program, fault, "delete", use, "true", whenFailed)) << fault.name;
    };
    expectDeletions(1, noAttributes, {"false"});
    expectDeletions(1, fault<decltype(DeleteFileA)>(kernel, "DeleteFileA", FALSE, ERROR_ACCESS_DENIED),
                    {"false"});
    // A failing test for existence means no. Failures of the deletion's own conversions reach the caller.
    expectDeletions(4, noBytes, {"false", "error 5"});
}

class FailingTemporaryNames : public testing::Test {
protected:
    FailingTemporaryNames() {
        GetEnvironmentVariableW(L"TMP", before_, MAX_PATH);
        SetEnvironmentVariableW(L"TMP", folder_.c_str());
    }
    ~FailingTemporaryNames() override { SetEnvironmentVariableW(L"TMP", before_); }

    // Makes the first drawn name taken, so that a second one is drawn.
    void takeTheFirstName() {
        attributes_.answer([this](LPCSTR path) -> DWORD {
            const bool drawn = std::string_view(path).ends_with(".txt");
            if (drawn && !taken_) {
                taken_ = true;
                first_ = path;
                return FILE_ATTRIBUTE_ARCHIVE;
            }
            return attributes_.callOriginal(path);
        });
    }

    const TemporaryFolder temporary_;
    const Text folder_ = temporary_.folder(L"noms");
    wchar_t before_[MAX_PATH] = L"";
    Intercept<decltype(GetFileAttributesA)> attributes_{program, kernel, "GetFileAttributesA"};
    bool taken_ = false;
    std::string first_;
};

TEST_F(FailingTemporaryNames, areEmptyOrTheLastOneDrawn) {
    Intercept<decltype(GetTempPathA)> folder(program, kernel, "GetTempPathA");
    Intercept<decltype(GetTempFileNameA)> name(program, kernel, "GetTempFileNameA");
    Text extension = L"txt";
    folder.failCall(1, 0);
    EXPECT_EQ(L"", CheminTemporaire(L"abc", extension));
    EXPECT_EQ(0, name.calls());
    name.failCall(1, 0);
    EXPECT_EQ(L"", CheminTemporaire(L"abc", extension));
    EXPECT_EQ(L"txt", extension);
    // The first name is taken and drawing another fails: the result is the taken name.
    for (const bool byFolder : {true, false}) {
        taken_ = false;
        takeTheFirstName();
        if (byFolder) folder.failCall(2, 0);
        if (!byFolder) name.failCall(2, 0);
        extension = L"txt";
        const auto answer = CheminTemporaire(L"abc", extension);
        EXPECT_NE(L"", answer);
        EXPECT_EQ(first_, toAnsi(answer));
        EXPECT_EQ(L".txt", extension);
    }
}

TEST_F(FailingTemporaryNames, needAFolderThatFits) {
    Intercept<decltype(GetTempPathA)> folder(program, kernel, "GetTempPathA");
    Intercept<decltype(GetTempFileNameA)> name(program, kernel, "GetTempFileNameA");
    DWORD length = 0;
    folder.answer([&](DWORD room, LPSTR buffer) -> DWORD {
        EXPECT_EQ(512u, room);
        *buffer = '\0';
        return length;
    });
    name.answer([](LPCSTR, LPCSTR, UINT, LPSTR drawn) -> UINT {
        strcpy(drawn, "Q:\\abc1.tmp");
        return 1;
    });
    Text none;
    for (const DWORD answered : {0u, 1u, 511u, 512u, 513u}) {
        length = answered;
        const bool fits = answered >= 1 && answered < 512;
        EXPECT_EQ(fits ? L"Q:\\abc1.tmp" : L"", CheminTemporaire(L"abc", none)) << answered;
    }
    EXPECT_EQ(2, name.calls());
}

TEST_F(FailingTemporaryNames, areDrawnAgainWhenTaken) {
    takeTheFirstName();
    Text extension = L"txt";
    const auto answer = toAnsi(CheminTemporaire(L"abc", extension));
    EXPECT_TRUE(taken_);
    EXPECT_NE(first_, answer);
    // The placeholder of the taken name stays, that of the given one does not.
    const auto placeholder = [](std::string path) { return path.replace(path.size() - 3, 3, "tmp"); };
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, attributes_.callOriginal(placeholder(first_).c_str()));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, attributes_.callOriginal(placeholder(answer).c_str()));
}

TEST_F(FailingTemporaryNames, comeEvenWhenTheirPlaceholderStays) {
    Intercept<decltype(DeleteFileA)> deletion(program, kernel, "DeleteFileA");
    deletion.failCall(1, FALSE);
    Text extension;
    auto answer = CheminTemporaire(L"abc", extension);
    EXPECT_TRUE(TemporaryFolder::exists(answer));
    // The disk does not say whether the placeholder exists. It was made here, so it is deleted all the same.
    attributes_.answer([](LPCSTR) -> DWORD { return INVALID_FILE_ATTRIBUTES; });
    answer = CheminTemporaire(L"abc", extension);
    EXPECT_FALSE(TemporaryFolder::exists(answer));
    EXPECT_EQ(2, deletion.calls());
}

TEST_F(FailingTemporaryNames, needTheCodePage) {
    for (const Fault& fault : {noBytes, noCharacters}) {
        const auto begins = [&] {
            Text extension = L"txt";
            return CheminTemporaire(L"abc", extension).starts_with(folder_ + L"\\abc");
        };
        // A failing question about the disk means no; other failures reach the caller.
        const auto calls =
            failEachCall(program, fault, "name", [&] { return outcomeOf(begins); }, "true", {"error 5"});
        EXPECT_GE(calls, 2) << fault.name;
    }
}

TEST(FailingProfiles, areTheCallersBusiness) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"f.ini", "[s]\r\nc=v\r\n");
    for (const bool oem : {false, true}) {
        const auto reads = [&] { return IniLecture(file, L"s", L"c", L"d", oem); };
        // File, section, key and default; with OEM the value once more.
        expectCalls(oem ? 10 : 8, noBytes, reads, "v", {"error 5"});
        expectCalls(oem ? 4 : 2, noCharacters, reads, "v", {"error 5"});
        expectCalls(1,
                    fault<decltype(GetPrivateProfileStringA)>(kernel, "GetPrivateProfileStringA", DWORD{0}),
                    reads, "v", {""});
        const auto writes = [&] { return IniEcriture(file, L"s", L"c", L"v", oem) != 0; };
        expectCalls(8, noBytes, writes, "true", {"error 5"});
        expectCalls(1,
                    fault<decltype(WritePrivateProfileStringA)>(kernel, "WritePrivateProfileStringA", FALSE),
                    writes, "true", {"false"});
    }
    const auto converts = [] { return OemVersAnsi(L"a") + AnsiVersOem(L"a"); };
    expectCalls(4, noBytes, converts, "aa", {"error 5"});
    expectCalls(4, noCharacters, converts, "aa", {"error 5"});
}

TEST(FailingQueries, haveNeutralAnswers) {
    // Without a version the system is unknown. Failing conversions reach the caller.
    Text name;
    const auto version = [&] {
        VersionWindows(name);
        return name.starts_with(L"Windows ");
    };
    expectCalls(1, fault<decltype(GetVersionExA)>(kernel, "GetVersionExA", FALSE), version, "true", {});
    expectCalls(2, noCharacters, version, "true", {"error 5"});

    const auto decimal = [] { return InfoLocale(LOCALE_SDECIMAL); };
    const std::string sign = isFrench() ? "," : ".";
    expectCalls(1, fault<decltype(GetLocaleInfoA)>(kernel, "GetLocaleInfoA", 0), decimal, sign, {""});
    expectCalls(2, noCharacters, decimal, sign, {"error 5"});

    const auto drive = [] { return TypeLecteur(L"C:\\x"); };
    expectCalls(1, fault<decltype(GetDriveTypeA)>(kernel, "GetDriveTypeA", UINT{DRIVE_UNKNOWN}), drive, "3",
                {"0"});
    expectCalls(2, noBytes, drive, "3", {"error 5"});
}

TEST(FailingComparisons, areTheCallersBusiness) {
    const Variant one(std::int16_t{1}), word = text(L"b");
    const auto larger = [&] { return MaxVar(one.view(), word.view()); };
    const auto smaller = [&] { return MinVar(word.view(), one.view()); };
    const auto incomparable =
        fault<HRESULT WINAPI(VARIANT*, VARIANT*, LCID, ULONG)>("oleaut32.dll", "VarCmp", DISP_E_BADVARTYPE);
    expectCalls(1, incomparable, larger, "vt 8 \"b\"", {"error 13"});
    expectCalls(1, incomparable, smaller, "vt 2 1", {"error 13"});
    const auto noCopy = fault<decltype(VariantCopyInd)>("oleaut32.dll", "VariantCopyInd", E_OUTOFMEMORY);
    expectCalls(1, noCopy, larger, "vt 8 \"b\"", {"no memory"});
    expectCalls(1, noCopy, smaller, "vt 2 1", {"no memory"});
}

TEST(FailingWaits, stillEnd) {
    // Without sleeping, the wait just polls more often.
    Intercept<decltype(MsgWaitForMultipleObjects)> naps(program, "user32.dll", "MsgWaitForMultipleObjects");
    naps.answer([](DWORD, const HANDLE*, WINBOOL, DWORD, DWORD) -> DWORD { return WAIT_FAILED; });
    const auto start = GetTickCount();
    Attente(60);
    EXPECT_GE(GetTickCount() - start, 60u);
    EXPECT_GT(naps.calls(), 0);
}

TEST(FailingScreens, countAs96DotsPerInch) {
    const auto width = [] { return double{screen::twipsPerPixelX()}; };
    const auto height = [] { return double{screen::twipsPerPixelY()}; };
    Intercept<decltype(GetDeviceCaps)> dots(program, "gdi32.dll", "GetDeviceCaps");
    dots.answer([](HDC screen, int) { return screen ? 144 : 0; });
    for (const auto& twips : {std::function<double()>(width), std::function<double()>(height)}) {
        expectCalls(1, fault<decltype(GetDC)>("user32.dll", "GetDC", HDC{}), twips, shown(10.0),
                    {shown(15.0)});
    }
}

TEST(FailingPrograms, haveNoNameAndNoHelp) {
    const auto noName = fault<decltype(GetModuleFileNameW)>(kernel, "GetModuleFileNameW", DWORD{0});
    expectCalls(1, noName, [] { return app::title(); }, "frame_tests", {""});
    expectCalls(1, noName, [] { return app::path().empty(); }, "false", {"true"});
    expectCalls(1, noName, [] { return app::helpFile(); }, "", {});
    // If the disk does not answer, neither file exists.
    expectCalls(2, fault<decltype(GetFileAttributesW)>(kernel, "GetFileAttributesW", INVALID_FILE_ATTRIBUTES),
                [] { return app::helpFile(); }, "", {});
}

TEST(FailingMessages, areLost) {
    const NoDialogs none;
    const auto tells = [] {
        messageBox(L"message");
        return true;
    };
    expectCalls(1, fault<decltype(MessageBoxW)>("user32.dll", "MessageBoxW", 0), tells, "true", {});
    expectCalls(1, fault<decltype(GetModuleFileNameW)>(kernel, "GetModuleFileNameW", DWORD{0}), tells, "true",
                {});
}

TEST(FailingPictures, areErrors) {
    // 2 by 1 pixels, 24 bits each.
    const std::string bitmap(
        "BM\x3e\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\x08\0\0\0\0\0\0\0"
        "\0\0\0\0\0\0\0\0\0\0\0\0\1\2\3\4\5\6\0\0",
        62);
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"image.bmp", bitmap);
    const auto load = [](const Text& name) {
        return [name] { return static_cast<bool>(LoadPicture(name)); };
    };
    expectCalls(1, fault<decltype(GetFullPathNameW)>(kernel, "GetFullPathNameW", DWORD{0}), load(file),
                "true", {"error 53"});
    expectCalls(1, fault<decltype(GetFileAttributesW)>(kernel, "GetFileAttributesW", INVALID_FILE_ATTRIBUTES),
                load(file), "true", {"error 53"});
    expectCalls(1,
                fault<decltype(OleLoadPicturePath)>("oleaut32.dll", "OleLoadPicturePath",
                                                    static_cast<HRESULT>(CTL_E_INVALIDPICTURE)),
                load(file), "true", {"error 481"});
    const auto noPicture = [](HRESULT code) {
        return fault<decltype(OleCreatePictureIndirect)>("oleaut32.dll", "OleCreatePictureIndirect", code);
    };
    expectCalls(1, noPicture(E_OUTOFMEMORY), load(L""), "true", {"no memory"});
    expectCalls(1, noPicture(E_FAIL), load(L""), "true", {"error 440"});
}

// --- names that a host cannot look up ---

constexpr HRESULT disconnected = RPC_E_DISCONNECTED;

TEST(FailingLookups, areFailuresOfTheHost) {
    ScriptedObject control;
    control.property(L"Text", text(L"x"));
    BoundObject bound{HostObject(&control)};
    const struct {
        HRESULT code;
        const char* expected;
    } rows[] = {{DISP_E_UNKNOWNNAME, "error 438"},
                {disconnected, "error 440"},
                {static_cast<HRESULT>(0x800A017D), "error 381"},
                {E_OUTOFMEMORY, "no memory"}};
    for (const auto& row : rows) {
        control.failLookup(1, row.code);
        EXPECT_FALSE(bound.knows(L"Text"));
        control.failLookup(1, row.code);
        EXPECT_EQ(row.expected, outcomeOf([&] { return bound.get(L"Text"); }));
        control.failLookup(1, row.code);
        EXPECT_EQ(row.expected, outcomeOf([&] { return bound.put(L"Text", L"y"), true; }));
        control.failLookup(1, row.code);
        EXPECT_EQ(row.expected, outcomeOf([&] { return bound.call(L"Text"); }));
    }
    // No member was called, and a failed lookup is not remembered.
    EXPECT_EQ(0u, control.logged(L"get") + control.logged(L"put") + control.logged(L"call"));
    EXPECT_EQ(L"x", bound.getAs<Text>(L"Text"));
}

TEST(FailingLookups, endTheQueriesOfHosts) {
    ScriptedObject container, control;
    container.property(L"ScaleMode", std::int16_t{3});
    control.property(L"Container", object(&container));
    const HostObject host(&control);
    control.failLookup(1, disconnected);
    EXPECT_FALSE(ProprieteExiste(host, L"Container", callPropertyGet));
    control.failLookup(1, disconnected);
    EXPECT_EQ(0, ScaleModeConteneur(host));
    control.failLookup(1, disconnected);
    EXPECT_FALSE(ObjetConteneur(host));
    // If the probe fails, the answer is twips; if the read fails, there is no answer.
    container.failLookup(1, disconnected);
    EXPECT_EQ(1, ScaleModeConteneur(host));
    container.failLookup(2, disconnected);
    EXPECT_EQ(0, ScaleModeConteneur(host));
    container.failLookup(1, disconnected);
    EXPECT_FALSE(ObjetConteneur(host));
    EXPECT_EQ(&container, ObjetConteneur(host).get());
    EXPECT_EQ(1, container.references());

    ScriptedObject form, forms;
    form.property(L"hWnd", std::int32_t{5});
    forms.items({object(&form)}, ScriptedObject::Walk::byEnumerator);
    form.failLookup(1, disconnected);
    EXPECT_EQ(440, errorOf([&] { FormChargee(Variant(std::int32_t{5}).view(), HostObject(&forms)); }));
    EXPECT_TRUE(FormChargee(Variant(std::int32_t{5}).view(), HostObject(&forms)));
}

TEST(FailingLookups, endAWalk) {
    for (int failing = 1; failing <= 2; ++failing) {
        ScriptedObject collection;
        collection.items({std::int16_t{1}}, ScriptedObject::Walk::byCountAndItem)
            .failLookup(failing, disconnected);
        const auto walk = [&] {
            HostItems items{HostObject(&collection)};
            Variant item;
            return items.next(item);
        };
        // Without `Count` the walk fails. Without `Item` the default property is used, which does not exist
        // here.
        EXPECT_EQ(failing == 1 ? "error 440" : "error 438", outcomeOf(walk));
        EXPECT_EQ(0, collection.references());
    }
}

// Objects that tell neither their class nor their interface, each in its own way.
class Secretive : public ScriptedObject {
public:
    explicit Secretive(HRESULT answer) : answer_(answer) {}
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** type) override {
        *type = nullptr;
        return answer_;
    }

private:
    HRESULT answer_;
};

TEST(FailingTypes, areCalledObject) {
    for (const HRESULT answer : {S_OK, E_FAIL, E_OUTOFMEMORY, TYPE_E_LIBNOTREGISTERED}) {
        Secretive secretive(answer);
        EXPECT_EQ(L"Object", typeName(HostObject(&secretive)));
        EXPECT_EQ(0, secretive.references());
        EXPECT_FALSE(isTextBox(HostObject(&secretive)));
    }
    // Four names are looked up in a form. A name that cannot be looked up counts as missing.
    for (int failing = 1; failing <= 3; ++failing) {
        ScriptedObject form;
        form.property(L"hWnd")
            .property(L"Controls")
            .property(L"WindowState")
            .failLookup(failing, disconnected);
        EXPECT_FALSE(isHostForm(HostObject(&form))) << failing;
        EXPECT_TRUE(isHostForm(HostObject(&form)));
    }
}

}  // namespace
}  // namespace vorla::test
