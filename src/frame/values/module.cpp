#include "frame/values/module.h"

#include <atomic>

#include "frame/values/com_pointer.h"

// Defined by the linker: the address where the module that contains this code is loaded.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace vorla::module {
namespace {

std::atomic<long> references{0};

// Owned by whoever takes it out, so that no thread can release what another is about to use.
std::atomic<ITypeLib*> heldLibrary{nullptr};

void letLibraryGo() noexcept { ComPointer<ITypeLib>::adopt(heldLibrary.exchange(nullptr)); }

// The longest path in Windows, with its NUL.
constexpr std::size_t longestPath = 32768;

}  // namespace

void addReference() noexcept { ++references; }

void release() noexcept {
    // Before the count says that this code may be unloaded; after it only when two threads let go at once.
    if (references == 1) letLibraryGo();
    if (--references == 0) letLibraryGo();
}

HRESULT typeLibrary(HRESULT (*load)(ITypeLib**), ITypeLib** library) noexcept {
    // A thread that finds it taken out loads it again, which costs time and nothing else: the system hands
    // out one object for both, to any apartment.
    auto taken = ComPointer<ITypeLib>::adopt(heldLibrary.exchange(nullptr));
    if (!taken) {
        const auto loaded = load(taken.put());
        if (FAILED(loaded)) return loaded;
    }
    *library = ComPointer<ITypeLib>(taken).detach();
    ITypeLib* none = nullptr;
    if (heldLibrary.compare_exchange_strong(none, taken.get())) taken.detach();
    return S_OK;
}

bool canUnload() noexcept { return references == 0; }

Text path() {
    Text result(MAX_PATH, L'\0');
    for (;;) {
        const auto length = GetModuleFileNameW(reinterpret_cast<HMODULE>(&__ImageBase), result.data(),
                                               static_cast<DWORD>(result.size()));
        if (length < result.size()) {
            result.resize(length);
            return result;
        }
        if (result.size() >= longestPath) return {};
        result.resize(longestPath);
    }
}

}  // namespace vorla::module
