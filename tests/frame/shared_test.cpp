// The shared routines that ask Windows, with real files, and the larger and smaller of two values.
#include "frame/shared/comparison.h"
#include "frame/shared/files.h"
#include "frame/values/ansi.h"
#include "frame/values/runtime_error.h"
#include "support/automation.h"
#include "support/temporary_folder.h"

namespace vorla::test {
namespace {

TEST(Ansi, textCrossesByTheCodePage) {
    ASSERT_EQ(1252u, GetACP());
    EXPECT_EQ("", toAnsi(L""));
    EXPECT_EQ("abc", toAnsi(L"abc"));
    EXPECT_EQ("\xE9\x80\x9C", toAnsi(L"é€œ"));
    EXPECT_EQ(std::string("a\0b", 3), toAnsi(TextView(L"a\0b", 3)));
    EXPECT_EQ("?", toAnsi(L"\u6F22"));
    EXPECT_EQ(L"", fromAnsi(""));
    EXPECT_EQ(L"é€œ", fromAnsi("\xE9\x80\x9C"));
    EXPECT_EQ(Text(L"a\0b", 3), fromAnsi({"a\0b", 3}));
    EXPECT_EQ(L"a", fromAnsiBuffer({"a\0b", 3}));
    EXPECT_EQ(L"é€", fromAnsiBuffer("\xE9\x80"));
    EXPECT_EQ(L"", fromAnsiBuffer({"\0b", 2}));
    EXPECT_EQ(L"", bstrFromAnsi("").view());
    EXPECT_EQ(TextView(L"é\0b", 3), bstrFromAnsi({"\xE9\0b", 3}).view());
    // Every byte comes back.
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(bytes, toAnsi(fromAnsi(bytes)));
}

TEST(Shared, foldersOfPathsExist) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier.txt");
    EXPECT_TRUE(ExisteDossier(temporary.path()));
    EXPECT_TRUE(ExisteDossier(temporary.path() + L"\\"));
    EXPECT_TRUE(ExisteDossier(file));
    EXPECT_TRUE(ExisteDossier(temporary.path(L"rien.txt")));
    EXPECT_FALSE(ExisteDossier(temporary.path(L"rien\\rien.txt")));
    EXPECT_FALSE(ExisteDossier(file + L"\\x"));
    EXPECT_FALSE(ExisteDossier(L"Q:\\x"));
    // Without a backslash the whole path is the folder; an empty path is the root.
    EXPECT_FALSE(ExisteDossier(L"rien"));
    EXPECT_TRUE(ExisteDossier(L"C:"));
    EXPECT_TRUE(ExisteDossier(L""));
    EXPECT_FALSE(ExisteDossier(L"C:\\" + Text(40000, L'x') + L"\\y"));
}

TEST(Shared, onlyFilesAreDeleted) {
    const TemporaryFolder temporary;
    const auto file = temporary.file(L"fichier é.txt"), folder = temporary.folder(L"dossier");
    EXPECT_FALSE(SupprimeFichier(folder));
    EXPECT_TRUE(TemporaryFolder::exists(folder));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(SupprimeFichier(file));
    EXPECT_TRUE(TemporaryFolder::exists(file));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(SupprimeFichier(file));
    EXPECT_FALSE(TemporaryFolder::exists(file));
    EXPECT_FALSE(SupprimeFichier(file));
    EXPECT_FALSE(SupprimeFichier(L""));
    EXPECT_FALSE(SupprimeFichier(temporary.path(L"*")));
}

/// Another folder for temporary files as long as this exists.
class TemporaryFilesIn {
public:
    explicit TemporaryFilesIn(const wchar_t* folder) {
        GetEnvironmentVariableW(L"TMP", before_, MAX_PATH);
        SetEnvironmentVariableW(L"TMP", folder);
    }
    TemporaryFilesIn(const TemporaryFilesIn&) = delete;
    TemporaryFilesIn& operator=(const TemporaryFilesIn&) = delete;
    ~TemporaryFilesIn() { SetEnvironmentVariableW(L"TMP", before_); }

private:
    wchar_t before_[MAX_PATH] = L"";
};

std::size_t filesIn(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    std::size_t count = 0;
    const FileSearch search(FindFirstFileW((folder + L"\\*").c_str(), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found))
        count += found.cFileName[0] != L'.';
    return count;
}

TEST(Shared, temporaryNamesNameNoFile) {
    const TemporaryFolder temporary;
    const auto folder = temporary.folder(L"temp.tmpx é");
    const TemporaryFilesIn there(folder.c_str());
    const struct {
        const wchar_t* given;
        const wchar_t* kept;
        const wchar_t* end;
    } rows[] = {{L"", L"", L".tmp"},
                {L"txt", L".txt", L".txt"},
                {L".txt", L".txt", L".txt"},
                {L"a.b", L"a.b", L"a.b"},
                {L".", L".", L"."},
                {L"é", L".é", L".é"},
                // The system's own extension, in any case of its letters.
                {L"tmp", L".tmp", L".tmp"},
                {L"TMP", L".TMP", L".TMP"}};
    for (const auto& row : rows) {
        Text extension = row.given;
        const auto name = CheminTemporaire(L"abcd", extension);
        EXPECT_EQ(row.kept, extension);
        // ".tmp" is replaced in the folder's name too, wherever it stands.
        EXPECT_EQ(L"abc", name.substr(name.rfind(L'\\') + 1, 3)) << narrow(name);
        EXPECT_TRUE(name.ends_with(row.end)) << narrow(name);
        EXPECT_FALSE(TemporaryFolder::exists(name)) << narrow(name);
        EXPECT_EQ(0u, filesIn(folder)) << narrow(name);
    }
    Text none;
    EXPECT_EQ(folder + L"\\", CheminTemporaire(L"", none).substr(0, folder.size() + 1));
    EXPECT_EQ(folder + L"\\é", CheminTemporaire(L"é", none).substr(0, folder.size() + 2));
}

struct Removal {
    std::wstring file, folder;
};

// Once some names have been drawn.
DWORD WINAPI removeLater(void* given) {
    const auto& removal = *static_cast<Removal*>(given);
    while (filesIn(removal.folder) < 3) Sleep(1);
    return DeleteFileW(removal.file.c_str()) ? 0 : GetLastError();
}

// With this extension every drawn name leads to the same file, which is deleted while names are being drawn.
TEST(Shared, takenTemporaryNamesAreDrawnAgain) {
    const TemporaryFolder temporary;
    const auto folder = temporary.folder(L"noms");
    Removal removal{temporary.file(L"pris"), folder};
    const TemporaryFilesIn there(folder.c_str());
    const HANDLE thread = CreateThread(nullptr, 0, &removeLater, &removal, 0, nullptr);
    Text extension = L".\\..\\..\\pris";
    const auto name = CheminTemporaire(L"abc", extension);
    WaitForSingleObject(thread, INFINITE);
    DWORD answer = 1;
    GetExitCodeThread(thread, &answer);
    CloseHandle(thread);
    EXPECT_EQ(0u, answer);
    EXPECT_TRUE(name.ends_with(extension)) << narrow(name);
    // The placeholders of all draws but the last.
    EXPECT_GE(filesIn(folder), 2u);
    EXPECT_FALSE(TemporaryFolder::exists(name.substr(0, name.size() - extension.size()) + L".tmp"));
}

TEST(Shared, temporaryNamesNeedAFolder) {
    const TemporaryFolder temporary;
    Text extension = L"txt";
    {
        const TemporaryFilesIn nowhere(temporary.path(L"rien").c_str());
        EXPECT_EQ(L"", CheminTemporaire(L"abc", extension));
        EXPECT_EQ(L"txt", extension);
    }
    // Longer than the room for it.
    const TemporaryFilesIn tooFar((L"C:\\" + Text(600, L'x')).c_str());
    EXPECT_EQ(L"", CheminTemporaire(L"abc", extension));
}

std::string larger(const Variant& one, const Variant& other) {
    return describe(MaxVar(one.view(), other.view()).raw());
}
std::string smaller(const Variant& one, const Variant& other) {
    return describe(MinVar(one.view(), other.view()).raw());
}

TEST(Shared, theLargerAndTheSmallerOfTwoValues) {
    const Variant two(std::int16_t{2}), three(std::int32_t{3}), half(0.5), minus(Currency{-10000}), empty;
    const struct {
        const Variant& low;
        const Variant& high;
    } rows[] = {{two, three}, {half, two}, {minus, half}, {minus, empty}, {empty, half}};
    for (const auto& row : rows) {
        const auto low = describe(row.low.raw()), high = describe(row.high.raw());
        EXPECT_EQ(high, larger(row.low, row.high));
        EXPECT_EQ(high, larger(row.high, row.low));
        EXPECT_EQ(low, smaller(row.low, row.high));
        EXPECT_EQ(low, smaller(row.high, row.low));
    }
    const Variant a = text(L"a"), b = text(L"b"), nine = text(L"9");
    EXPECT_EQ(describe(b.raw()), larger(b, a));
    EXPECT_EQ(describe(a.raw()), smaller(b, a));
    // A text is greater than any number.
    EXPECT_EQ(describe(nine.raw()), larger(nine, Variant(10.0)));
    EXPECT_EQ(describe(nine.raw()), larger(Variant(10.0), nine));
    // Variables are followed to their values.
    Variant variable(std::int32_t{7});
    EXPECT_EQ(describe(variable.raw()), larger(byReference(variable), two));
}

TEST(Shared, equalValuesGiveTheSecond) {
    const Variant narrowOne(std::int16_t{2}), wideOne(std::int32_t{2}), floating = single(2);
    for (const auto& [one, other] : {std::pair(&narrowOne, &wideOne), std::pair(&wideOne, &narrowOne),
                                     std::pair(&floating, &narrowOne), std::pair(&narrowOne, &floating)}) {
        EXPECT_EQ(describe(other->raw()), larger(*one, *other));
        EXPECT_EQ(describe(other->raw()), smaller(*one, *other));
    }
    // Null is neither greater nor smaller.
    EXPECT_EQ(describe(narrowOne.raw()), larger(nullValue(), narrowOne));
    EXPECT_EQ(describe(nullValue().raw()), smaller(narrowOne, nullValue()));
}

TEST(Shared, valuesAreEqualAcrossTypes) {
    const Variant two(std::int16_t{2}), wideTwo(std::int32_t{2}), floating = single(2), empty;
    const auto equal = [](const Variant& one, const Variant& other) {
        const bool answer = isEqual(one.view(), other.view());
        EXPECT_EQ(answer, isEqual(other.view(), one.view()));
        return answer;
    };
    EXPECT_TRUE(equal(two, wideTwo));
    EXPECT_TRUE(equal(two, floating));
    EXPECT_FALSE(equal(two, Variant(2.5)));
    EXPECT_TRUE(equal(Variant(true), Variant(std::int16_t{-1})));
    EXPECT_FALSE(equal(Variant(true), Variant(std::int16_t{1})));
    EXPECT_TRUE(equal(text(L"a"), text(L"a")));
    EXPECT_FALSE(equal(text(L"a"), text(L"A")));
    EXPECT_FALSE(equal(text(L"2"), two));
    EXPECT_TRUE(equal(empty, Variant(std::int16_t{0})));
    EXPECT_TRUE(equal(empty, text(L"")));
    EXPECT_FALSE(equal(nullValue(), two));
    EXPECT_FALSE(equal(nullValue(), nullValue()));
    EXPECT_EQ(91, errorOf([&] { isEqual(nothing().view(), two.view()); }));
}

TEST(Shared, whatCannotBeComparedIsATypeMismatch) {
    Variant array;
    array.put()->parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    array.put()->vt = VT_ARRAY | VT_VARIANT;
    for (const Variant& value : {array, nothing(), missing()})
        for (const auto compare : {&MaxVar, &MinVar}) try {
                compare(value.view(), Variant(1.0).view());
                ADD_FAILURE() << describe(value.raw());
            } catch (const RuntimeError& error) {
                EXPECT_EQ(ErrorNumber::typeMismatch, error.number()) << describe(value.raw());
            }
}

}  // namespace
}  // namespace vorla::test
