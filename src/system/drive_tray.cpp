#include "system/drive_tray.h"

#include <cstdint>

#include "frame/shared/system_queries.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"

namespace vorla {
namespace {

bool isFamilyNT() {
    Text name;
    return VersionWindows(name) >= WinVer::WinNT4;
}

void requestOfNT(char drive, bool open) {
    constexpr DWORD ejectMedium = 0x2D4808, loadMedium = 0x2D480C;
    const char device[] = {'\\', '\\', '.', '\\', drive, ':', '\0'};
    const File handle(
        CreateFileA(device, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!handle) return;
    DWORD returned = 0;
    DeviceIoControl(handle.get(), open ? ejectMedium : loadMedium, nullptr, 0, nullptr, 0, &returned,
                    nullptr);
}

// The processor's registers for a request to DOS, as the device driver of Windows 95 and its successors takes
// and returns them.
struct Registers {
    std::uint32_t ebx = 0, edx = 0, ecx = 0, eax = 0, edi = 0, esi = 0, flags = 0;
};
static_assert(sizeof(Registers) == 28);

void ejectThroughDos(char drive) {
    constexpr DWORD callDos = 1;
    const File handle(
        CreateFileA("\\\\.\\VWIN32", 0, 0, nullptr, OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!handle) return;
    Registers registers;
    registers.eax = 0x440D;  // generic request to a block device:
    registers.ecx = 0x0849;  // of a disk, eject the medium
    registers.ebx = static_cast<std::uint32_t>(drive - 'A' + 1);
    DWORD returned = 0;
    DeviceIoControl(handle.get(), callDos, &registers, sizeof registers, &registers, sizeof registers,
                    &returned, nullptr);
}

}  // namespace

void moveTray(wchar_t letter, bool open) {
    // Without the user's locale: drives have the same letters everywhere.
    const bool isLower = letter >= L'a' && letter <= L'z';
    if (!isLower && (letter < L'A' || letter > L'Z')) return;
    const auto drive = static_cast<char>(isLower ? letter - L'a' + L'A' : letter);
    if (isFamilyNT())
        requestOfNT(drive, open);
    else
        ejectThroughDos(drive);
}

}  // namespace vorla
