// The levels created for a folder, on a disk that is a set of names.
#include "system/folder_levels.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "comparisons.h"

namespace vorla {
namespace {

// Creates `folder` on a disk that contains `existing`. Returns the folders that were to be created, up to the
// first refusal.
std::vector<Text> created(TextView folder, std::size_t drive, std::set<Text> existing,
                          TextView refused = L"?") {
    std::vector<Text> asked;
    createMissingLevels(
        folder, drive, [&](TextView path) { return existing.count(Text(path)) != 0; },
        [&](TextView path) {
            asked.emplace_back(path);
            return path != refused;
        });
    return asked;
}

using Levels = std::vector<Text>;

TEST(FolderLevels, NothingIsCreatedOfWhatExists) {
    EXPECT_EQ(created(L"C:\\A\\B\\", 2, {L"C:\\", L"C:\\A\\", L"C:\\A\\B\\"}), Levels());
    // Even if the levels above cannot be seen.
    EXPECT_EQ(created(L"C:\\A\\B\\", 2, {L"C:\\A\\B\\"}), Levels());
    EXPECT_EQ(created(L"C:\\", 2, {L"C:\\"}), Levels());
}

TEST(FolderLevels, EveryMissingLevelIsCreatedFromTheTop) {
    EXPECT_EQ(created(L"C:\\A\\B\\C\\", 2, {L"C:\\", L"C:\\A\\"}), (Levels{L"C:\\A\\B", L"C:\\A\\B\\C"}));
    EXPECT_EQ(created(L"C:\\A\\", 2, {L"C:\\"}), Levels{L"C:\\A"});
    EXPECT_EQ(created(L"C:\\A\\B\\", 2, {}), (Levels{L"C:\\A", L"C:\\A\\B"}));
    EXPECT_EQ(created(L"\\A\\", 0, {}), Levels{L"\\A"});
    EXPECT_EQ(created(L"A\\B\\", 0, {}), (Levels{L"A", L"A\\B"}));
}

TEST(FolderLevels, TheFirstRefusalIsTheEnd) {
    EXPECT_EQ(created(L"C:\\A\\B\\C\\", 2, {L"C:\\"}, L"C:\\A\\B"), (Levels{L"C:\\A", L"C:\\A\\B"}));
    EXPECT_EQ(created(L"Q:\\A\\B\\", 2, {}, L"Q:\\A"), Levels{L"Q:\\A"});
}

TEST(FolderLevels, NobodyCreatesADrive) {
    EXPECT_EQ(created(L"Q:\\", 2, {}), Levels());
    EXPECT_EQ(created(L"\\", 0, {}), Levels());
    EXPECT_EQ(created(L"\\\\srv\\part\\", 10, {}), Levels());
    EXPECT_EQ(created(L"\\\\srv\\part\\A\\B\\", 10, {}),
              (Levels{L"\\\\srv\\part\\A", L"\\\\srv\\part\\A\\B"}));
    EXPECT_EQ(created(L"\\\\srv\\part\\A\\B\\", 10, {L"\\\\srv\\part\\A\\"}), Levels{L"\\\\srv\\part\\A\\B"});
}

TEST(FolderLevels, APathWithoutARootBeginsBehindItsDrive) {
    EXPECT_EQ(created(L"C:A\\B\\", 2, {}), (Levels{L"C:A", L"C:A\\B"}));
    EXPECT_EQ(created(L"C:A\\B\\", 2, {L"C:A\\"}), Levels{L"C:A\\B"});
}

TEST(FolderLevels, DoubledBackslashesEndNoLevel) {
    EXPECT_EQ(created(L"C:\\\\A\\\\\\B\\", 2, {L"C:\\"}), (Levels{L"C:\\\\A", L"C:\\\\A\\\\\\B"}));
    EXPECT_EQ(created(L"C:\\A\\\\", 2, {L"C:\\A\\"}), Levels());
}

// Every folder of up to seven characters over two letters, on every disk that holds some of its levels and
// with every one of them refused.
TEST(FolderLevels, FollowTheirStepsThroughEveryShortFolder) {
    const TextView alphabet = L"\\ab";
    std::size_t folders = 1;
    for (std::size_t length = 0; length <= 7; ++length, folders *= alphabet.size())
        for (std::size_t number = 0; number < folders; ++number) {
            Text folder = L"C:\\";
            for (std::size_t i = 0, rest = number; i < length; ++i, rest /= alphabet.size())
                folder += alphabet[rest % alphabet.size()];
            folder += L'\\';
            for (std::size_t existing = 3; existing <= folder.size(); ++existing)
                for (std::size_t refused = 3; refused <= folder.size(); ++refused) {
                    const auto comparison = compare::levelsOf(folder, existing, refused);
                    ASSERT_TRUE(comparison.agrees) << comparison.report;
                }
        }
}

}  // namespace
}  // namespace vorla
