#include "misc/range_criteria.h"

#include <gtest/gtest.h>

namespace vorla {
namespace {

struct Row {
    TextView first, second;
    Criteria optional, required;
};

constexpr auto accepted = Criteria::accepted, descending = Criteria::descending, missing = Criteria::missing;

TEST(RangeCriteria, AreComparedByCharacterCodes) {
    const Row rows[] = {{L"", L"", accepted, missing},
                        {L"a", L"", accepted, missing},
                        {L"", L"a", accepted, missing},
                        {L"a", L"a", accepted, accepted},
                        {L"a", L"b", accepted, accepted},
                        {L"b", L"a", descending, descending},
                        {L"ab", L"a", descending, descending},
                        {L"a", L"ab", accepted, accepted},
                        // Numbers are text: "1" comes before "9", and "2" before "3".
                        {L"10", L"9", accepted, accepted},
                        {L"9", L"10", descending, descending},
                        {L"20", L"3", accepted, accepted},
                        {L"3", L"20", descending, descending},
                        // Capitals come before small letters, and those before accented ones.
                        {L"a", L"B", descending, descending},
                        {L"Z", L"a", accepted, accepted},
                        {L"\u00E9", L"z", descending, descending},
                        {L"\uFFFD", L"a", descending, descending},
                        // A blank is not empty.
                        {L" ", L"a", accepted, accepted},
                        {L"a", L" ", descending, descending},
                        {L"01/02/2024", L"02/01/2023", accepted, accepted},
                        {TextView(L"a\0b", 3), TextView(L"a\0a", 3), descending, descending}};
    for (const Row& row : rows) {
        const auto where = &row - rows;
        EXPECT_EQ(criteriaOf(row.first, row.second, false), row.optional) << where;
        EXPECT_EQ(criteriaOf(row.first, row.second, true), row.required) << where;
    }
}

TEST(RangeCriteria, HaveMessages) {
    EXPECT_EQ(descendingMessage,
              L"Les crit\u00E8res de s\u00E9lection ne sont pas dans l'ordre croissant, je les "
              L"inverse pour vous.");
    EXPECT_EQ(missingMessage, L"Les crit\u00E8res de s\u00E9lection sont obligatoires.");
}

}  // namespace
}  // namespace vorla
