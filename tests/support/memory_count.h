// Counts what is allocated through the COM task allocator, BSTRs included.
#pragma once

namespace vorla::test {

/// live() is the number of blocks allocated since this was made and not yet freed. The BSTR cache of
/// oleaut32 must be off (noBstrCache), or freed strings stay allocated.
class MemoryCount {
public:
    MemoryCount();
    long live() const;

    /// Turns oleaut32's cache of freed strings off, for the whole process.
    static void noBstrCache();

private:
    long start_;
};

}  // namespace vorla::test
