// Counts what is allocated through the COM task allocator, BSTRs included.
#pragma once

#include <objidl.h>
#include <windows.h>

#include <atomic>

namespace vorla::test {

/// While it lives, live() is the number of blocks allocated since its start and not yet freed. The BSTR
/// cache of oleaut32 must be off (noBstrCache), or freed strings stay allocated.
class MemoryCount final : public IMallocSpy {
public:
    MemoryCount();
    ~MemoryCount();
    MemoryCount(const MemoryCount&) = delete;
    MemoryCount& operator=(const MemoryCount&) = delete;

    long live() const { return live_; }

    /// Turns oleaut32's cache of freed strings off, for the whole process.
    static void noBstrCache();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override {
        if (block) ++live_;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL spied) override {
        if (block && spied) --live_;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** newBlock, BOOL) override {
        *newBlock = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}

private:
    std::atomic<long> live_{0};
};

}  // namespace vorla::test
