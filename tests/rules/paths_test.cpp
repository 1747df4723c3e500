#include "frame/shared/paths.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "comparisons.h"
#include "outcome.h"

namespace vorla {
namespace {

struct Row {
    Text path;
    // In the order of eFileN: folder, name, extension, name without extension, folder without drive, drive,
    // root. The eighth, all, is the path itself.
    Text pieces[7];
};

void expectPieces(bool isFolder, std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        for (std::int32_t part = 1; part <= 7; ++part)
            EXPECT_EQ(DecoupeChemin(row.path, eFileN{part}, [&](TextView) { return isFolder; }).text(),
                      row.pieces[part - 1])
                << call("DecoupeChemin", row.path, part, isFolder);
        EXPECT_EQ(DecoupeChemin(row.path, eFileN::efAll, [&](TextView) { return isFolder; }).text(),
                  row.path);
    }
}

void expectPiecesOfFile(std::initializer_list<Row> rows) { expectPieces(false, rows); }
void expectPiecesOfFolder(std::initializer_list<Row> rows) { expectPieces(true, rows); }

TEST(Paths, OnADrive) {
    expectPiecesOfFile({
        {L"C:\\Data\\Report.txt",
         {L"C:\\Data\\", L"Report.txt", L"txt", L"Report", L"\\Data\\", L"C:", L"C:\\"}},
        {L"C:\\f", {L"C:\\", L"f", L"", L"f", L"\\", L"C:", L"C:\\"}},
        {L"C:f.txt\\x", {L"C:f.txt\\", L"x", L"", L"x", L"f.txt\\", L"C:", L"C:\\"}},
        {L"d:\\\u00E9t\u00E9\\\u20AC.b",
         {L"d:\\\u00E9t\u00E9\\", L"\u20AC.b", L"b", L"\u20AC", L"\\\u00E9t\u00E9\\", L"d:", L"d:\\"}},
    });
}

TEST(Paths, WithoutADrive) {
    expectPiecesOfFile({
        {L"dir\\f.txt", {L"dir\\", L"f.txt", L"txt", L"f", L"dir\\", L"", L"\\"}},
        {L"\\dir\\f.txt", {L"\\dir\\", L"f.txt", L"txt", L"f", L"\\dir\\", L"", L"\\"}},
        {L"\\", {L"\\", L"", L"", L"", L"\\", L"", L"\\"}},
    });
}

// The folder and the name are the whole path; there is no drive.
TEST(Paths, WithoutABackslash) {
    expectPiecesOfFile({
        {L"Report.txt", {L"Report.txt", L"Report.txt", L"txt", L"Report", L"", L"", L"\\"}},
        {L"Report", {L"Report", L"Report", L"", L"Report", L"", L"", L"\\"}},
        {L"C:f.txt", {L"C:f.txt", L"C:f.txt", L"txt", L"C:f", L"", L"C:", L"C:\\"}},
        {L"C:", {L"C:", L"C:", L"", L"C:", L"", L"C:", L"C:\\"}},
        {L"", {L"", L"", L"", L"", L"", L"", L"\\"}},
        {L"dir/f.txt", {L"dir/f.txt", L"dir/f.txt", L"txt", L"dir/f", L"", L"", L"\\"}},
    });
}

TEST(Paths, OnTheNetwork) {
    expectPiecesOfFile({
        {L"\\\\srv\\share\\dir\\f.txt",
         {L"\\\\srv\\share\\dir\\", L"f.txt", L"txt", L"f", L"\\dir\\", L"\\\\srv\\share",
          L"\\\\srv\\share\\"}},
        {L"\\\\srv\\share\\f",
         {L"\\\\srv\\share\\", L"f", L"", L"f", L"\\", L"\\\\srv\\share", L"\\\\srv\\share\\"}},
        {L"\\\\srv\\share\\",
         {L"\\\\srv\\share\\", L"", L"", L"", L"\\", L"\\\\srv\\share", L"\\\\srv\\share\\"}},
        // The share is the last name: its end is the path's.
        {L"\\\\srv\\share",
         {L"\\\\srv\\", L"share", L"", L"share", L"", L"\\\\srv\\share", L"\\\\srv\\share\\"}},
        // In a network path a colon makes no drive.
        {L"\\\\srv\\c:\\f", {L"\\\\srv\\c:\\", L"f", L"", L"f", L"\\", L"\\\\srv\\c:", L"\\\\srv\\c:\\"}},
        // No share, no drive.
        {L"\\\\srv", {L"\\\\", L"srv", L"", L"srv", L"\\\\", L"", L"\\"}},
        {L"\\\\", {L"\\\\", L"", L"", L"", L"\\\\", L"", L"\\"}},
    });
}

TEST(Paths, ThatEndInABackslash) {
    expectPiecesOfFile({
        {L"C:\\Data\\", {L"C:\\Data\\", L"", L"", L"", L"\\Data\\", L"C:", L"C:\\"}},
        {L"C:\\Data.x\\\\", {L"C:\\Data.x\\\\", L"", L"", L"", L"\\Data.x\\\\", L"C:", L"C:\\"}},
        {L"a\\", {L"a\\", L"", L"", L"", L"a\\", L"", L"\\"}},
    });
}

TEST(Paths, OfExistingFoldersAreFolderOnly) {
    expectPiecesOfFolder({
        {L"C:\\Data", {L"C:\\Data", L"", L"", L"", L"\\Data", L"C:", L"C:\\"}},
        {L"C:\\Data\\", {L"C:\\Data\\", L"", L"", L"", L"\\Data\\", L"C:", L"C:\\"}},
        {L"C:\\a.b\\c.txt", {L"C:\\a.b\\c.txt", L"", L"", L"", L"\\a.b\\c.txt", L"C:", L"C:\\"}},
        {L"\\\\srv\\share\\d",
         {L"\\\\srv\\share\\d", L"", L"", L"", L"\\d", L"\\\\srv\\share", L"\\\\srv\\share\\"}},
        {L"\\\\srv\\share", {L"\\\\srv\\share", L"", L"", L"", L"", L"\\\\srv\\share", L"\\\\srv\\share\\"}},
        // Without a backslash the folder test is not called where the whole path is the answer anyway.
        {L"Data.x", {L"Data.x", L"Data.x", L"", L"", L"Data.x", L"", L"\\"}},
        {L"C:", {L"C:", L"C:", L"", L"", L"", L"C:", L"C:\\"}},
    });
}

TEST(Paths, KeepTheDotsOfTheirFoldersOutOfTheExtension) {
    expectPiecesOfFile({
        {L"C:\\a.b\\file", {L"C:\\a.b\\", L"file", L"", L"file", L"\\a.b\\", L"C:", L"C:\\"}},
        {L"C:\\a.b\\file.c", {L"C:\\a.b\\", L"file.c", L"c", L"file", L"\\a.b\\", L"C:", L"C:\\"}},
        {L"..\\f", {L"..\\", L"f", L"", L"f", L"..\\", L"", L"\\"}},
        {L"a.b\\", {L"a.b\\", L"", L"", L"", L"a.b\\", L"", L"\\"}},
    });
}

TEST(Paths, TakeUpToFourCharactersForAnExtension) {
    const struct {
        const wchar_t* path;
        const wchar_t* extension;
        const wchar_t* name;
    } rows[] = {
        {L"C:\\Notes\\Minutes.backup2", L"backup2", L"Minutes.backup2"},
        {L"Report.draft.txt", L"txt", L"Report.draft"},
        {L"Report.draft", L"draft", L"Report.draft"},
        {L"film.mpeg", L"mpeg", L"film"},
        {L"film.mpegs", L"mpegs", L"film.mpegs"},
        {L"file.", L"", L"file"},
        {L".txt", L"txt", L""},
        {L".profile", L"profile", L".profile"},
        {L"a..b", L"b", L"a."},
        {L".", L"", L""},
        {L"f.\u00E9\u20AC", L"\u00E9\u20AC", L"f"},
    };
    const auto noFolder = [](TextView) { return false; };
    for (const auto& row : rows) {
        EXPECT_EQ(DecoupeChemin(row.path, eFileN::eFExtension, noFolder).text(), row.extension)
            << shown(TextView(row.path));
        EXPECT_EQ(DecoupeChemin(row.path, eFileN::eFNomFichierSansExtention, noFolder).text(), row.name)
            << shown(TextView(row.path));
    }
}

// A drive of one letter ends at the second character. Where the colon stands elsewhere, two characters are
// dropped all the same.
TEST(Paths, LoseTwoCharactersToAColonAnywhere) {
    const auto noFolder = [](TextView) { return false; };
    const auto withoutDrive = [&](TextView path) {
        return DecoupeChemin(path, eFileN::eFRépertoireSansDisque, noFolder).text();
    };
    EXPECT_EQ(withoutDrive(L"ab:c\\d"), L":c\\");
    EXPECT_EQ(withoutDrive(L"\\x:y"), L"");
    EXPECT_EQ(DecoupeChemin(L"ab:c\\d", eFileN::efDisque, noFolder).text(), L"ab:");
}

TEST(Paths, HaveNothingUnderOtherNumbers) {
    for (const std::int32_t part : {0, 9, -1, 32768, -2147483647 - 1, 2147483647})
        for (const bool isFolder : {false, true})
            EXPECT_EQ(DecoupeChemin(L"C:\\a\\b.c", eFileN{part}, [&](TextView) { return isFolder; }).text(),
                      L"");
}

TEST(Paths, AreAskedAboutOnceAndOnlyWhenItMatters) {
    const struct {
        const wchar_t* path;
        int questions[8];
    } rows[] = {
        {L"C:\\a\\b.c", {1, 1, 1, 1, 1, 0, 0, 0}},
        {L"C:\\a.b\\c", {1, 1, 0, 1, 1, 0, 0, 0}},
        {L"b.c", {0, 0, 1, 1, 1, 0, 0, 0}},
        {L"\\\\s\\h\\x", {1, 1, 0, 1, 1, 0, 0, 0}},
    };
    for (const auto& row : rows)
        for (std::int32_t part = 1; part <= 8; ++part) {
            int asked = 0;
            DecoupeChemin(row.path, eFileN{part}, [&](TextView path) {
                ++asked;
                EXPECT_EQ(path, row.path);
                return false;
            });
            EXPECT_EQ(asked, row.questions[part - 1]) << call("DecoupeChemin", Text(row.path), part);
        }
}

// Every path of up to six characters over the four that the rule knows and one that it does not.
TEST(Paths, FollowTheirStepsThroughEveryShortPath) {
    const TextView alphabet = L"\\.:a";
    std::size_t paths = 1;
    for (std::size_t length = 0; length <= 6; ++length, paths *= alphabet.size())
        for (std::size_t number = 0; number < paths; ++number) {
            Text path;
            for (std::size_t i = 0, rest = number; i < length; ++i, rest /= alphabet.size())
                path += alphabet[rest % alphabet.size()];
            for (std::int32_t part = 0; part <= 9; ++part)
                for (const bool isFolder : {false, true}) {
                    const auto comparison = compare::piece(path, part, isFolder);
                    ASSERT_TRUE(comparison.agrees) << comparison.report;
                }
        }
}

TEST(Backslash, IsPutBehindAPathOnce) {
    EXPECT_EQ(AjouteAntiSlash(L"").text(), L"\\");
    EXPECT_EQ(AjouteAntiSlash(L"C:").text(), L"C:\\");
    EXPECT_EQ(AjouteAntiSlash(L"C:\\Data").text(), L"C:\\Data\\");
    EXPECT_EQ(AjouteAntiSlash(L"C:\\Data\\").text(), L"C:\\Data\\");
    EXPECT_EQ(AjouteAntiSlash(L"\\\\").text(), L"\\\\");
    EXPECT_EQ(AjouteAntiSlash(L"a/").text(), L"a/\\");
}

TEST(Backslash, IsTakenFromAPathOnce) {
    EXPECT_EQ(withoutBackslash(L""), L"");
    EXPECT_EQ(withoutBackslash(L"\\"), L"");
    EXPECT_EQ(withoutBackslash(L"C:\\Data"), L"C:\\Data");
    EXPECT_EQ(withoutBackslash(L"C:\\Data\\"), L"C:\\Data");
    EXPECT_EQ(withoutBackslash(L"C:\\Data\\\\"), L"C:\\Data\\");
    EXPECT_EQ(withoutBackslash(L"a/"), L"a/");
}

TEST(Extension, IsReplacedWhereverItStands) {
    EXPECT_EQ(withExtension(L"C:\\Temp\\abc1F.tmp", L"tmp", L".txt"), L"C:\\Temp\\abc1F.txt");
    EXPECT_EQ(withExtension(L"C:\\x.tmp\\a.tmp", L"tmp", L".b"), L"C:\\x.b\\a.b");
    EXPECT_EQ(withExtension(L"C:\\Temp\\a.TMP", L"tmp", L".b"), L"C:\\Temp\\a.TMP");
    EXPECT_EQ(withExtension(L"a.tmp.tmp", L"tmp", L""), L"a");
    EXPECT_EQ(withExtension(L"a.tmpx.tmp", L"tmp", L".tmp"), L"a.tmpx.tmp");
    EXPECT_EQ(withExtension(L"a.tmp", L"tmp", L"txt.bak"), L"atxt.bak");
    EXPECT_EQ(withExtension(L"", L"tmp", L".b"), L"");
    EXPECT_EQ(withExtension(L"a.b.", L"", L"-"), L"a-b-");
}

}  // namespace
}  // namespace vorla
