#include "language/message_text.h"

#include <gtest/gtest.h>

namespace vorla::language {
namespace {

TEST(MessageText, AccessKeysLoseTheirMark) {
    EXPECT_EQ(L"Ouvrir", withoutAccessKeys(L"&Ouvrir"));
    EXPECT_EQ(L"AB", withoutAccessKeys(L"&A&&B&"));
    EXPECT_EQ(L"", withoutAccessKeys(L"&&"));
    EXPECT_EQ(L"", withoutAccessKeys(L""));
    EXPECT_EQ(L"rien", withoutAccessKeys(L"rien"));
}

TEST(MessageText, ValuesTakeTheirPlaces) {
    EXPECT_EQ(L"Ouvrir x", withValue(L"Ouvrir %%1", 1, L"x"));
    EXPECT_EQ(L"x,%%2,x", withValue(L"%%1,%%2,%%1", 1, L"x"));
    EXPECT_EQ(L"%%1,,%%1", withValue(L"%%1,%%2,%%1", 2, L""));
    EXPECT_EQ(L"", withValue(L"", 1, L"x"));
    EXPECT_EQ(L"%1 %% 1", withValue(L"%1 %% 1", 1, L"x"));
    // The first placeholder that fits counts, and a digit after it does not matter.
    EXPECT_EQ(L"%x", withValue(L"%%%1", 1, L"x"));
    EXPECT_EQ(L"x0", withValue(L"%%10", 1, L"x"));
    EXPECT_EQ(L"xx", withValue(L"%%4%%4", 4, L"x"));
    // The value is not searched, alone or together with the text around it.
    EXPECT_EQ(L"%%1", withValue(L"%%1", 1, L"%%1"));
    EXPECT_EQ(L"%%11", withValue(L"%%%11", 1, L"%1"));
    EXPECT_EQ(L"a&b", withValue(L"%%1", 1, L"a&b"));
}

}  // namespace
}  // namespace vorla::language
