#include "support/import_patch.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "support/automation.h"

namespace vorla::test {
namespace {

template <class Type>
Type* at(HMODULE module, std::size_t offset) {
    return reinterpret_cast<Type*>(reinterpret_cast<std::uint8_t*>(module) + offset);
}

// Import tables are read-only once the module is loaded.
void write(void** slot, void* value) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = value;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

std::vector<void**> slotsOf(HMODULE module, const char* dll, const char* function) {
    std::vector<void**> slots;
    const auto& headers =
        *at<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    const auto& directory = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (directory.VirtualAddress == 0) return slots;
    for (auto* imported = at<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress); imported->Name != 0;
         ++imported) {
        if (_stricmp(at<const char>(module, imported->Name), dll) != 0) continue;
        // The loader has overwritten the first table with addresses; the original one still has the names.
        auto* name = at<IMAGE_THUNK_DATA>(module, imported->OriginalFirstThunk);
        auto* slot = at<IMAGE_THUNK_DATA>(module, imported->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++slot) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* const byName =
                at<IMAGE_IMPORT_BY_NAME>(module, static_cast<std::size_t>(name->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<const char*>(byName->Name), function) == 0)
                slots.push_back(reinterpret_cast<void**>(&slot->u1.Function));
        }
    }
    return slots;
}

}  // namespace

ImportPatch::ImportPatch(HMODULE module, const char* dll, const char* function, void* replacement)
    : slots_(slotsOf(module, dll, function)) {
    EXPECT_FALSE(slots_.empty()) << function << " is not imported from " << dll;
    for (void** slot : slots_) {
        original_ = *slot;
        write(slot, replacement);
    }
}

ImportPatch::~ImportPatch() {
    for (void** slot : slots_) write(slot, original_);
}

std::string loggedText(const char* text) { return text ? '"' + std::string(text) + '"' : "null"; }
std::string loggedText(const wchar_t* text) { return text ? '"' + narrow(text) + '"' : "null"; }

}  // namespace vorla::test
