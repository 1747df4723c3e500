#include "support/resource_count.h"

#include <cstddef>
#include <stdexcept>
#include <vector>

#include "frame/values/winapi.h"

namespace vorla::test {
namespace {

template <class Function>
Function* fromNtdll(const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), name)));
}

// An entry of the system's list of all open handles, from NtQuerySystemInformation.
struct HandleEntry {
    ULONG process;
    UCHAR type, flags;
    USHORT handle;
    void* object;
    ULONG access;
};

struct HandleList {
    ULONG count;
    HandleEntry entries[1];
};

unsigned openHandles() {
    constexpr int allHandles = 16;
    constexpr LONG tooShort = static_cast<LONG>(0xC0000004);
    static const auto query = fromNtdll<LONG WINAPI(int, void*, ULONG, ULONG*)>("NtQuerySystemInformation");
    std::vector<char> room(1 << 16);
    LONG status;
    while ((status = query(allHandles, room.data(), static_cast<ULONG>(room.size()), nullptr)) == tooShort)
        room.resize(room.size() * 2);
    if (status != 0) throw std::runtime_error("the system does not list its handles");
    const auto& list = *reinterpret_cast<const HandleList*>(room.data());
    unsigned own = 0;
    for (ULONG i = 0; i < list.count; ++i) own += list.entries[i].process == GetCurrentProcessId();
    return own;
}

// GDI keeps the objects of a process in a table that the process can read, from an address that the block of
// the process's environment holds.
struct DrawingEntry {
    ULONGLONG object;
    ULONG owner;
    USHORT generation;
    UCHAR type, flags;
    ULONGLONG user;
};

unsigned drawingObjects() {
    constexpr int tableLength = 0x4000;
    constexpr std::size_t table = sizeof(void*) == 8 ? 0xF8 : 0x94;
    static const auto environment = fromNtdll<const char * WINAPI()>("RtlGetCurrentPeb");
    const auto entries = *reinterpret_cast<const DrawingEntry* const*>(environment() + table);
    if (!entries) throw std::runtime_error("GDI has no table");
    unsigned used = 0;
    for (int i = 0; i < tableLength; ++i) used += entries[i].type != 0;
    return used;
}

BOOL CALLBACK addWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<unsigned*>(count);
    return TRUE;
}

BOOL CALLBACK addOwnWindows(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    EnumChildWindows(window, addWindow, count);
    return addWindow(window, count);
}

unsigned openWindows() {
    unsigned count = 0;
    EnumWindows(addOwnWindows, reinterpret_cast<LPARAM>(&count));
    return count;
}

}  // namespace

Resources Resources::held() { return {openHandles(), drawingObjects(), openWindows()}; }

std::ostream& operator<<(std::ostream& out, const Resources& resources) {
    return out << resources.handles << " handles, " << resources.drawing << " drawing objects, "
               << resources.windows << " windows";
}

}  // namespace vorla::test
