#include "frame/values/module.h"

#include <atomic>

// Defined by the linker: the address where the module that contains this code is loaded.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace vorla::module {
namespace {

std::atomic<long> references{0};

// The longest path in Windows, with its NUL.
constexpr std::size_t longestPath = 32768;

}  // namespace

void addReference() noexcept { ++references; }
void release() noexcept { --references; }
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
