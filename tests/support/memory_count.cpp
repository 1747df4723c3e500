#include "support/memory_count.h"

#include <objidl.h>

#include <gtest/gtest.h>

#include <atomic>

#include "frame/values/winapi.h"

namespace vorla::test {
namespace {

// Registered once and never revoked: a block may be freed long after the test that counted it.
class Spy final : public IMallocSpy {
public:
    long live() const { return live_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id != IID_IUnknown && id != IID_IMallocSpy) return E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
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

const Spy& spy() {
    static Spy* const registered = [] {
        auto* const made = new Spy;
        EXPECT_EQ(S_OK, CoRegisterMallocSpy(made));
        return made;
    }();
    return *registered;
}

}  // namespace

MemoryCount::MemoryCount() : start_(spy().live()) {}

long MemoryCount::live() const { return spy().live() - start_; }

void MemoryCount::noBstrCache() {
    // Not declared by every compiler's headers.
    const auto function = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache");
    ASSERT_NE(nullptr, function);
    reinterpret_cast<void(WINAPI*)()>(reinterpret_cast<void*>(function))();
}

}  // namespace vorla::test
