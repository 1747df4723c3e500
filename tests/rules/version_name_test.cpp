#include "frame/shared/version_name.h"

#include <gtest/gtest.h>

#include "shown.h"

namespace vorla {
namespace {

// The field as the system returns it: the text, then NUL characters up to 128.
Text field(TextView text) {
    Text whole(128, L'\0');
    text.copy(whole.data(), text.size());
    return whole;
}

struct Row {
    std::uint32_t major, minor, platform;
    Text servicePack;
    int version;
    TextView name;
};

void expectName(const Row& row) {
    const auto found = versionName({row.major, row.minor, row.platform, row.servicePack});
    EXPECT_EQ(row.version, static_cast<int>(found.version)) << row.major << '.' << row.minor;
    EXPECT_EQ(Text(row.name), Text(found.name)) << row.major << '.' << row.minor;
}

TEST(VersionName, OfEveryVersionThatHasOne) {
    const Row rows[] = {
        {3, 51, 2, field(L"Service Pack 5"), 1, L"NT 3.51"},
        {4, 0, 2, field(L"Service Pack 6a"), 7, L"NT 4"},
        {4, 0, 1, field(L""), 2, L"95"},
        {4, 10, 1, field(L""), 4, L"98"},
        {4, 10, 1, field(L" A "), 5, L"98 Second Edition"},
        {4, 10, 1, field(L"A"), 5, L"98 Second Edition"},
        {4, 90, 1, field(L" "), 6, L"Millenium"},
        {5, 0, 2, field(L"Service Pack 4"), 8, L"2000"},
        {5, 1, 2, field(L"Service Pack 3"), 9, L"XP"},
        {5, 2, 2, field(L""), 10, L"Server 2003"},
        {6, 0, 2, field(L"Service Pack 2"), 11, L"Windows Vista"},
    };
    for (const Row& row : rows) expectName(row);
}

TEST(VersionName, OSR2IsNeverTheFieldOfASystem) {
    expectName({4, 0, 1, field(L"C"), 2, L"95"});
    expectName({4, 0, 1, field(L" C"), 2, L"95"});
    expectName({4, 0, 1, L"C" + Text(127, L' '), 2, L"95"});
    // Only a field of exactly one character would match.
    expectName({4, 0, 1, L"C", 3, L"95 OSR2"});
    expectName({4, 0, 2, L"C", 7, L"NT 4"});
}

TEST(VersionName, SecondEditionIsToldByTheFirstCharacterBehindTheBlanks) {
    expectName({4, 10, 1, field(L"   A1"), 5, L"98 Second Edition"});
    expectName({4, 10, 1, field(L"a"), 4, L"98"});
    expectName({4, 10, 1, field(L"B A"), 4, L"98"});
    expectName({4, 10, 1, field(L"\tA"), 4, L"98"});
    expectName({4, 10, 1, Text(128, L' '), 4, L"98"});
    expectName({4, 10, 1, L"", 4, L"98"});
    // The platform does not matter.
    expectName({4, 10, 2, field(L"A"), 5, L"98 Second Edition"});
}

TEST(VersionName, AnyOtherVersionHasNone) {
    const std::uint32_t others[][3] = {{0, 0, 0},  {3, 50, 2}, {3, 10, 0}, {3, 52, 2},
                                       {4, 0, 0},  {4, 0, 3},  {4, 1, 1},  {4, 89, 1},
                                       {4, 91, 1}, {5, 3, 2},  {6, 1, 2},  {6, 2, 2},
                                       {10, 0, 2}, {51, 3, 2}, {0, 5, 2},  {4294967295u, 4294967295u, 2}};
    for (const auto& other : others) expectName({other[0], other[1], other[2], field(L"C"), 0, L""});
}

}  // namespace
}  // namespace vorla
