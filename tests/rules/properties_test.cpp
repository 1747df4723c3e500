// Every rule agrees with its naive twin, in value and in error, for random arguments.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>

#include "comparisons.h"

namespace vorla {
namespace {

// `errors` lists the outcomes that must occur (0 is a value), so that the edges cannot be lost unnoticed.
void expectAgreement(Comparison (*compareOne)(Arguments&), const std::set<int>& errors) {
    std::mt19937 random(20240229);
    std::array<std::uint8_t, 96> bytes;
    std::set<int> seen;
    for (int i = 0; i < 30000; ++i) {
        for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
        Arguments arguments(bytes.data(), bytes.size());
        const auto comparison = compareOne(arguments);
        ASSERT_TRUE(comparison.agrees) << comparison.report;
        seen.insert(comparison.error);
    }
    EXPECT_EQ(seen, errors);
}

TEST(Properties, FieldsFollowTheirSteps) { expectAgreement(compare::fields, {0, 5, 6}); }
TEST(Properties, TheTerminatorFollowsItsSteps) { expectAgreement(compare::terminator, {0}); }
TEST(Properties, ColumnsFollowTheirSteps) { expectAgreement(compare::columns, {0, 5}); }
TEST(Properties, ReplacementFollowsItsSteps) { expectAgreement(compare::replacement, {0, 6}); }
TEST(Properties, OccurrencesFollowTheirSteps) { expectAgreement(compare::occurrences, {0, 6}); }
TEST(Properties, QuotingFollowsItsSteps) { expectAgreement(compare::quoting, {0}); }
TEST(Properties, KeysFollowTheirSteps) { expectAgreement(compare::keys, {0, 5}); }
TEST(Properties, TheNextCodeFollowsItsSteps) { expectAgreement(compare::nextCode, {0, 5, 6}); }
TEST(Properties, PathsFollowTheirSteps) { expectAgreement(compare::paths, {0}); }
TEST(Properties, ExtensionsFollowTheirSteps) { expectAgreement(compare::extensions, {0}); }
TEST(Properties, FolderLevelsFollowTheirSteps) { expectAgreement(compare::folderLevels, {0}); }
TEST(Properties, EscapesFollowTheirSteps) { expectAgreement(compare::escapes, {0}); }
TEST(Properties, KeysOfControlsFollowTheirSteps) { expectAgreement(compare::controlKeys, {0}); }
TEST(Properties, MessagesFollowTheirSteps) { expectAgreement(compare::messages, {0}); }
TEST(Properties, AmountsFollowTheirSteps) { expectAgreement(compare::amounts, {0}); }
TEST(Properties, TheBankKeyFollowsItsSteps) { expectAgreement(compare::bankKey, {0}); }
TEST(Properties, VersionsFollowTheirTable) { expectAgreement(compare::versions, {0}); }
TEST(Properties, LeadingNumbersFollowTheirSteps) { expectAgreement(compare::leadingNumbers, {0}); }
TEST(Properties, FileTypesFollowTheirLists) { expectAgreement(compare::fileTypes, {0}); }
TEST(Properties, DatesFollowTheirSteps) { expectAgreement(compare::dateOrder, {0, 5}); }
TEST(Properties, AnswersOfDevicesFollowTheirSteps) { expectAgreement(compare::replies, {0, 6}); }
TEST(Properties, StatesOfDevicesFollowTheirWords) { expectAgreement(compare::mediaStates, {0}); }

}  // namespace
}  // namespace vorla
