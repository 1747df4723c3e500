// Counts what is allocated through the COM task allocator, BSTRs included.
#pragma once

#include <gtest/gtest.h>

#include "frame/values/winapi.h"
#include "support/resource_count.h"

namespace vorla::test {

/// live() is the number of blocks allocated since this object was made and not yet freed. Call noBstrCache()
/// first, because oleaut32's cache keeps freed strings allocated.
class MemoryCount {
public:
    MemoryCount();
    long live() const;

    /// Turns oleaut32's cache of freed strings off, for the whole process.
    static void noBstrCache();

private:
    long start_;
};

/// Expects that ten thousand uses leave nothing allocated and nothing open. The first use is not counted,
/// because it makes what is kept on purpose.
template <class Use>
void expectNothingLeft(Use&& useOnce) {
    useOnce();
    SetErrorInfo(0, nullptr);
    const auto before = Resources::held();
    const MemoryCount count;
    for (int i = 0; i < 10'000; ++i) useOnce();
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(0, count.live());
    EXPECT_EQ(before, Resources::held());
}

}  // namespace vorla::test
