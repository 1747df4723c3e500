#include "support/memory_count.h"

#include <gtest/gtest.h>

namespace vorla::test {

MemoryCount::MemoryCount() { EXPECT_EQ(S_OK, CoRegisterMallocSpy(this)); }

MemoryCount::~MemoryCount() { CoRevokeMallocSpy(); }

void MemoryCount::noBstrCache() {
    // Not declared by every compiler's headers.
    const auto function = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache");
    ASSERT_NE(nullptr, function);
    reinterpret_cast<void(WINAPI*)()>(reinterpret_cast<void*>(function))();
}

HRESULT STDMETHODCALLTYPE MemoryCount::QueryInterface(REFIID id, void** object) {
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IMallocSpy) return E_NOINTERFACE;
    *object = this;
    return S_OK;
}

}  // namespace vorla::test
