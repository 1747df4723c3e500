// What keeps the component loaded, as the host asks it: through the entry point, which is linked to these
// tests.
#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <utility>

#include "frame/specimen_fixture.h"
#include "frame/values/module.h"

namespace vorla::test {
namespace {

static_assert(!std::is_copy_constructible_v<module::Reference>);
static_assert(!std::is_copy_assignable_v<module::Reference>);

TEST(ModuleReference, theModuleStaysWhileOneLives) {
    ASSERT_EQ(S_OK, DllCanUnloadNow());
    {
        const module::Reference first;
        EXPECT_EQ(S_FALSE, DllCanUnloadNow());
        { const module::Reference second; }
        EXPECT_EQ(S_FALSE, DllCanUnloadNow());
    }
    EXPECT_EQ(S_OK, DllCanUnloadNow());
}

TEST(ModuleReference, isHandedOnNotDoubled) {
    auto first = std::make_unique<module::Reference>();
    auto second = std::make_unique<module::Reference>(std::move(*first));
    first.reset();
    EXPECT_EQ(S_FALSE, DllCanUnloadNow());
    {
        module::Reference third;
        third = std::move(*second);
        second.reset();
        EXPECT_EQ(S_FALSE, DllCanUnloadNow());
    }
    EXPECT_EQ(S_OK, DllCanUnloadNow());
}

TEST_F(SpecimenTest, anObjectKeepsTheModule) {
    EXPECT_EQ(S_FALSE, DllCanUnloadNow());
    specimen = {};
    EXPECT_EQ(S_OK, DllCanUnloadNow());
}

}  // namespace
}  // namespace vorla::test
